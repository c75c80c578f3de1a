#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "camera/cJpeg/NewFile.h"
#include "camera/cJpeg/cJpeg.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

Bytes ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class cJpegFileTest : public testing::Test {
 protected:
  cJpegFileTest() {
    std::string pattern = (fs::temp_directory_path() / "vintoral-jpeg-XXXXXX").string();
    folder = mkdtemp(pattern.data());
    const made::MadePicture picture = made::Noise(60, 50, 1);
    EXPECT_TRUE(jpeg.SampleHDC(picture.View(), 60, 50));
  }
  ~cJpegFileTest() override { fs::remove_all(folder); }

  fs::path folder;
  cJpeg jpeg;
};

TEST_F(cJpegFileTest, SavesWhatEncodeGives) {
  const fs::path path = folder / "Im\xC3\xA1genes 1.jpg";
  EXPECT_EQ(jpeg.SaveFile(path.string()), SaveResult::kSaved);
  EXPECT_EQ(ReadFile(path), jpeg.Encode());
}

TEST_F(cJpegFileTest, ResultsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(jpeg.SaveFile((folder / "a").string())), 0);
  EXPECT_EQ(static_cast<int>(jpeg.SaveFile("")), 1);
  EXPECT_EQ(static_cast<int>(jpeg.SaveFile((folder / "a").string())), 2);
}

TEST_F(cJpegFileTest, WritesNothingWithoutAPath) {
  EXPECT_EQ(jpeg.SaveFile(""), SaveResult::kNoPath);
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(cJpegFileTest, NeverOverwrites) {
  const fs::path path = folder / "old.jpg";
  std::ofstream(path) << "old";
  EXPECT_EQ(jpeg.SaveFile(path.string()), SaveResult::kExists);
  EXPECT_EQ(ReadFile(path), (Bytes{'o', 'l', 'd'}));
  EXPECT_EQ(jpeg.SaveFile(folder.string()), SaveResult::kExists);
}

TEST_F(cJpegFileTest, DoesNotWriteThroughALinkThatLeadsNowhere) {
  fs::create_symlink(folder / "target", folder / "link");
  EXPECT_EQ(jpeg.SaveFile((folder / "link").string()), SaveResult::kExists);
  EXPECT_FALSE(fs::exists(folder / "target"));
}

// A file that comes into being between the look and the writing is not lost either.
TEST_F(cJpegFileTest, NewFileRefusesWhatExists) {
  const fs::path path = folder / "other.jpg";
  std::ofstream(path) << "other";
  EXPECT_EQ(WriteNewFile(path.string(), Bytes{1, 2, 3}), NewFileResult::kExists);
  EXPECT_EQ(fs::file_size(path), 5U);
}

TEST_F(cJpegFileTest, TellsThatTheFolderIsMissing) {
  EXPECT_EQ(jpeg.SaveFile((folder / "none" / "a.jpg").string()), SaveResult::kNotWritten);
}

TEST_F(cJpegFileTest, SavesNothingBeforeSampling) {
  EXPECT_EQ(cJpeg().SaveFile((folder / "a.jpg").string()), SaveResult::kNoPicture);
  EXPECT_TRUE(fs::is_empty(folder));
}

// The system lets files grow to 1000 bytes only; the picture takes more.
TEST_F(cJpegFileTest, RemovesAFileThatCouldNotBeWrittenWhole) {
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{1000, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const SaveResult result = jpeg.SaveFile((folder / "a.jpg").string());
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(result, SaveResult::kNotWritten);
  EXPECT_TRUE(fs::is_empty(folder));
}

}  // namespace
}  // namespace vintoral
