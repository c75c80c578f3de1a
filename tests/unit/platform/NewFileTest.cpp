#include "platform/NewFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "support/TempFolder.h"

namespace vintoral {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

/// No file may grow beyond this while it lives: a disk that fills up in the middle of a file.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t most) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{most, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallFiles() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

using Way = int (*)(const std::string& path, std::string_view bytes);

/// What holds for the whole and for either way that it may take.
class NewFileTest : public testing::TestWithParam<Way> {
 protected:
  int Write(const std::string& name, std::string_view bytes) { return GetParam()(folder_.Path(name), bytes); }
  std::size_t Names() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()));
  }
  TempFolder folder_;
};

TEST_P(NewFileTest, WritesEveryByteAndLeavesNothingElse) {
  std::string bytes(300'000, 'x');
  bytes[299'999] = '\0';
  EXPECT_EQ(Write("Im\xC3\xA1genes.jpg", bytes), 0);
  EXPECT_EQ(folder_.Get("Im\xC3\xA1genes.jpg"), bytes);
  EXPECT_EQ(Write("empty", ""), 0);
  EXPECT_EQ(folder_.Get("empty"), "");
  EXPECT_EQ(Names(), 2U);
}

TEST_P(NewFileTest, EveryGateMayReadAndWriteIt) {
  const mode_t before = umask(002);
  EXPECT_EQ(Write("a", "x"), 0);
  umask(before);
  struct stat status {};
  ASSERT_EQ(stat(folder_.Path("a").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0664U);
}

TEST_P(NewFileTest, RefusesWhatExists) {
  folder_.Put("a", "old");
  folder_.Put("folder/x", "");
  fs::create_symlink(folder_.Path("target"), folder_.Path("link"));
  for (const char* name : {"a", "folder", "link"})
    EXPECT_EQ(Write(name, "new"), EEXIST) << name;
  EXPECT_EQ(folder_.Get("a"), "old");
  EXPECT_FALSE(fs::exists(folder_.Path("target")));
  EXPECT_EQ(Names(), 3U);
}

TEST_P(NewFileTest, NeedsItsFolder) {
  EXPECT_EQ(Write("none/a", "x"), ENOENT);
  folder_.Put("file", "");
  EXPECT_EQ(Write("file/a", "x"), ENOTDIR);
}

TEST_P(NewFileTest, HalfAFileIsNone) {
  {
    const SmallFiles full(1000);
    EXPECT_EQ(Write("a", std::string(5000, 'x')), EFBIG);
  }
  EXPECT_EQ(Names(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Ways, NewFileTest, testing::Values(WriteNewFile, WriteUnnamed, WriteHidden));

TEST(NewFile, WithoutUnnamedFilesAHiddenOneIsTried) {
  // /proc makes neither, and has an error of its own for each.
  ASSERT_EQ(WriteUnnamed("/proc/x", "x"), EOPNOTSUPP);
  EXPECT_EQ(WriteNewFile("/proc/x", "x"), ENOENT);
}

TEST(NewFile, RenamingLooksWhereTheSystemDoesNot) {
  const TempFolder folder;
  folder.Put("from", "new");
  folder.Put("taken", "old");
  fs::create_symlink(folder.Path("nothing"), folder.Path("link"));
  EXPECT_EQ(RenameUnlessTaken(folder.Path("from"), folder.Path("taken")), EEXIST);
  EXPECT_EQ(RenameUnlessTaken(folder.Path("from"), folder.Path("link")), EEXIST);
  EXPECT_EQ(folder.Get("taken"), "old");
  EXPECT_EQ(RenameUnlessTaken(folder.Path("from"), folder.Path("free")), 0);
  EXPECT_EQ(folder.Get("free"), "new");
  EXPECT_EQ(RenameUnlessTaken(folder.Path("from"), folder.Path("other")), ENOENT);
}

}  // namespace
}  // namespace vintoral
