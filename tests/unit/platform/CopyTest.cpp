// A file copied under another name on a real disk.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/PosixDisk.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;
using testing::ElementsAre;

/// No file of this process may grow beyond so many bytes while it lives, as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t most) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{most, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

class CopyTest : public testing::Test {
 protected:
  /// Hidden ones too.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  mode_t ModeOf(const std::string& name) const {
    struct stat status {};
    stat(folder_.Path(name).c_str(), &status);
    return status.st_mode & 07777;
  }
  TempFolder folder_;
  PosixDisk disk_{folder_.Path()};
};

TEST_F(CopyTest, HasEveryByteAndLeavesNothingElse) {
  std::string bytes(300'000, 'x');
  bytes[299'999] = '\0';
  folder_.Put("a", bytes);
  folder_.Put("empty", "");
  EXPECT_TRUE(disk_.Copy("a", "b"));
  EXPECT_TRUE(disk_.Copy("empty", "c"));
  EXPECT_EQ(folder_.Get("b"), bytes);
  EXPECT_EQ(folder_.Get("a"), bytes);
  EXPECT_EQ(folder_.Get("c"), "");
  EXPECT_THAT(Names(), ElementsAre("a", "b", "c", "empty"));
}

TEST_F(CopyTest, TakesThePlaceOfWhatStoodThere) {
  folder_.Put("a", "new");
  folder_.Put("b", "the old one, which is longer");
  EXPECT_TRUE(disk_.Copy("a", "b"));
  EXPECT_EQ(folder_.Get("b"), "new");
  EXPECT_THAT(Names(), ElementsAre("a", "b"));
}

TEST_F(CopyTest, FindsFoldersAndNamesInAnyCase) {
  folder_.Put("Im\xC3\xA1genes ACT/000007.jpg", "photo");
  folder_.Put("Im\xC3\xA1genes USR/Ana.JPG", "old");
  EXPECT_TRUE(disk_.Copy("IM\xC1GENES ACT\\000007.jpg", "im\xE1genes usr\\ana.jpg"));
  EXPECT_EQ(folder_.Get("Im\xC3\xA1genes USR/Ana.JPG"), "photo");
  EXPECT_TRUE(disk_.Copy("im\xE1genes act\\000007.jpg", "IM\xC1GENES USR\\000001.jpg"));
  EXPECT_EQ(folder_.Get("Im\xC3\xA1genes USR/000001.jpg"), "photo");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path("Im\xC3\xA1genes USR")), {}), 2);
}

TEST_F(CopyTest, ReadersKeepTheOldOne) {
  folder_.Put("a", "new");
  folder_.Put("b", "old");
  const std::unique_ptr<DiskFile> reader = disk_.Open("b", OpenMode::kRead).Take();
  EXPECT_TRUE(disk_.Copy("a", "b"));
  std::array<char, 10> bytes{};
  EXPECT_EQ(reader->ReadAt(0, bytes), 3u);
  EXPECT_EQ(std::string(bytes.data(), 3), "old");
}

TEST_F(CopyTest, WithoutASourceNothingChanges) {
  folder_.Put("b", "old");
  folder_.Put("Folder/x", "");
  EXPECT_EQ(disk_.Copy("missing", "b").Error(), ENOENT);
  EXPECT_EQ(disk_.Copy("Folder", "b").Error(), EISDIR);
  EXPECT_FALSE(disk_.Copy("", "b"));
  EXPECT_EQ(folder_.Get("b"), "old");
  EXPECT_THAT(Names(), ElementsAre("Folder", "b"));
}

TEST_F(CopyTest, WithoutAFolderThereIsNone) {
  folder_.Put("a", "new");
  EXPECT_EQ(disk_.Copy("a", "No folder\\b").Error(), ENOENT);
  EXPECT_EQ(disk_.Copy("a", std::string_view("b\0c", 3)).Error(), ENOENT);
  folder_.Put("Folder/x", "inside");
  EXPECT_FALSE(disk_.Copy("a", "Folder"));
  EXPECT_EQ(folder_.Get("Folder/x"), "inside");
  EXPECT_THAT(Names(), ElementsAre("Folder", "a"));
}

TEST_F(CopyTest, AFullDiskLeavesTheOldOne) {
  folder_.Put("a", std::string(200, 'n'));
  folder_.Put("b", "old");
  {
    const FullDisk full(100);
    EXPECT_EQ(disk_.Copy("a", "b").Error(), EFBIG);
    EXPECT_EQ(disk_.Copy("a", "c").Error(), EFBIG);
  }
  EXPECT_EQ(folder_.Get("b"), "old");
  EXPECT_THAT(Names(), ElementsAre("a", "b"));
}

TEST_F(CopyTest, EveryGateMayReadAndWriteIt) {
  const mode_t mask = umask(0);
  folder_.Put("a", "new");
  folder_.Put("b", "old");
  ASSERT_EQ(chmod(folder_.Path("a").c_str(), 0400), 0);
  EXPECT_TRUE(disk_.Copy("a", "b"));
  EXPECT_TRUE(disk_.Copy("a", "c"));
  umask(mask);
  EXPECT_EQ(ModeOf("b"), 0666u);
  EXPECT_EQ(ModeOf("c"), 0666u);
}

TEST_F(CopyTest, OntoItselfIsTheSame) {
  folder_.Put("a", "photo");
  EXPECT_TRUE(disk_.Copy("a", "A"));
  EXPECT_EQ(folder_.Get("a"), "photo");
  EXPECT_THAT(Names(), ElementsAre("a"));
}

// ---- The way of a disk that has no better one
// --------------------------------------------------------------------------

TEST(CopyInMemory, ReplacesAndTellsWhyItCouldNot) {
  test::MemoryDisk memory;
  test::FaultyDisk disk(memory);
  memory.Put("a", "new");
  memory.Put("b", "old");
  EXPECT_EQ(disk.Copy("missing", "b").Error(), ENOENT);
  disk.Set().failWrite = 1;
  EXPECT_EQ(disk.Copy("a", "b").Error(), ENOSPC);
  disk.Set().failRead = 1;
  EXPECT_EQ(disk.Copy("a", "b").Error(), EIO);
  EXPECT_EQ(memory.Get("b"), "old");
  EXPECT_TRUE(disk.Copy("a", "b"));
  EXPECT_EQ(memory.Get("b"), "new");
  EXPECT_EQ(memory.Get("a"), "new");
}

}  // namespace
}  // namespace vintoral
