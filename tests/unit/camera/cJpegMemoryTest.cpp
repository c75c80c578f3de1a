// What the encoder says when there is no memory, wherever on its way it runs out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "camera/cJpeg/cJpeg.h"
#include "unit/camera/FailingMemory.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

struct Attempt {
  Bytes file;
  bool failed;
};

Attempt EncodeWith(const cJpeg& jpeg, int allowed) {
  const made::FailingMemory memory(allowed);
  Bytes file = jpeg.Encode();
  return {std::move(file), memory.HasFailed()};
}

// The pieces of memory that encoding takes.
int PiecesFor(const cJpeg& jpeg) {
  int allowed = 0;
  while (EncodeWith(jpeg, allowed).failed)
    ++allowed;
  return allowed;
}

class cJpegMemoryTest : public testing::Test {
 protected:
  cJpegMemoryTest() { EXPECT_TRUE(jpeg.SampleHDC(picture.View(), 30, 20)); }

  made::MadePicture picture = made::Gradient(30, 20);
  cJpeg jpeg;
};

TEST_F(cJpegMemoryTest, EncodeGivesNothingWhereverMemoryEnds) {
  const Bytes whole = jpeg.Encode();
  const int pieces = PiecesFor(jpeg);
  ASSERT_GT(pieces, 20);
  for (int allowed = 0; allowed < pieces; ++allowed)
    ASSERT_THAT(EncodeWith(jpeg, allowed).file, testing::IsEmpty()) << allowed;
  EXPECT_EQ(EncodeWith(jpeg, pieces).file, whole);
}

TEST_F(cJpegMemoryTest, ScansApartGiveNothingEither) {
  jpeg.SetSamplingFrequencies(4, 4, 1, 1, 1, 1);
  const Bytes whole = jpeg.Encode();
  const int pieces = PiecesFor(jpeg);
  for (int allowed = 0; allowed < pieces; ++allowed)
    ASSERT_THAT(EncodeWith(jpeg, allowed).file, testing::IsEmpty()) << allowed;
  EXPECT_EQ(EncodeWith(jpeg, pieces).file, whole);
}

TEST_F(cJpegMemoryTest, SaveFileTellsAndLeavesNoFile) {
  std::string pattern = (fs::temp_directory_path() / "vintoral-jpeg-XXXXXX").string();
  const fs::path folder = mkdtemp(pattern.data());
  const std::string path = (folder / "a.jpg").string();
  const int last = PiecesFor(jpeg) - 1;
  for (const int allowed : {0, last / 2, last}) {
    SaveResult result = SaveResult::kSaved;
    {
      const made::FailingMemory memory(allowed);
      result = jpeg.SaveFile(path);
    }
    EXPECT_EQ(result, SaveResult::kNoMemory) << allowed;
    EXPECT_TRUE(fs::is_empty(folder));
  }
  EXPECT_EQ(jpeg.SaveFile(path), SaveResult::kSaved);
  fs::remove_all(folder);
}

TEST_F(cJpegMemoryTest, SamplingHoldsNothingWithoutMemory) {
  ASSERT_FALSE(jpeg.Encode().empty());
  bool sampled = true;
  {
    const made::FailingMemory memory(0);
    sampled = jpeg.SampleHDC(picture.View(), 30, 20);
  }
  EXPECT_FALSE(sampled);
  EXPECT_EQ(jpeg.SaveFile("never.jpg"), SaveResult::kNoPicture);
}

}  // namespace
}  // namespace vintoral
