// Folders and names on a real disk.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/PosixDisk.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

class FoldersTest : public testing::Test {
 protected:
  FoldersTest() {
    folder_.Put("a/one.jpg", "1");
    folder_.Put("a/deep/two.jpg", "2");
    folder_.Put("elsewhere/keep.jpg", "keep");
  }
  bool There(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(folder_.Path(name)));
  }
  void Link(const std::string& to, const std::string& name) {
    ASSERT_EQ(symlink(folder_.Path(to).c_str(), folder_.Path(name).c_str()), 0);
  }
  test::TempFolder folder_;
  PosixDisk disk_{folder_.Path()};
};

TEST_F(FoldersTest, AFolderIsThereAFileIsNone) {
  EXPECT_TRUE(disk_.FolderExists("A"));
  EXPECT_FALSE(disk_.FolderExists("a\\one.jpg"));
  EXPECT_FALSE(disk_.FolderExists("b"));
}

TEST_F(FoldersTest, AFolderMovesWithAllInIt) {
  ASSERT_TRUE(disk_.Move("a", "b"));
  EXPECT_FALSE(There("a"));
  EXPECT_TRUE(There("b/one.jpg") && There("b/deep/two.jpg"));
}

TEST_F(FoldersTest, NothingIsMovedOverAnything) {
  folder_.Put("b/x", "");
  folder_.Put("c.jpg", "c");
  for (const auto& [from, to] : {std::pair{"a", "b"}, {"a\\one.jpg", "c.jpg"}, {"a", "c.jpg"}}) {
    const Outcome moved = disk_.Move(from, to);
    EXPECT_FALSE(moved);
    EXPECT_EQ(moved.Error(), EEXIST) << from;
  }
  EXPECT_TRUE(There("a/one.jpg") && There("b/x"));
  EXPECT_FALSE(disk_.Move("missing", "d"));
  EXPECT_FALSE(disk_.Move("a", "missing\\d"));
}

TEST_F(FoldersTest, ALinkIsMovedItself) {
  Link("elsewhere/keep.jpg", "link.jpg");
  ASSERT_TRUE(disk_.IsLink("link.jpg"));
  ASSERT_TRUE(disk_.Move("link.jpg", "a\\link.jpg"));
  EXPECT_TRUE(disk_.IsLink("a\\link.jpg"));
  EXPECT_TRUE(There("elsewhere/keep.jpg"));
  EXPECT_FALSE(disk_.IsLink("a\\one.jpg") || disk_.IsLink("missing"));
}

TEST_F(FoldersTest, AFolderGoesWithAllInItAndNothingElse) {
  Link("elsewhere", "a/out");
  Link("elsewhere/keep.jpg", "a/keep.jpg");
  ASSERT_TRUE(disk_.RemoveFolder("a"));
  EXPECT_FALSE(There("a"));
  EXPECT_TRUE(There("elsewhere/keep.jpg"));
}

TEST_F(FoldersTest, AFolderThatIsALinkIsTakenAwayAsALink) {
  Link("elsewhere", "out");
  ASSERT_TRUE(disk_.RemoveFolder("out"));
  EXPECT_FALSE(There("out"));
  EXPECT_TRUE(There("elsewhere/keep.jpg"));
}

TEST_F(FoldersTest, ACopyHasAllButTheLinks) {
  Link("elsewhere/keep.jpg", "a/link.jpg");
  ASSERT_TRUE(disk_.CopyFolder("a", "b"));
  EXPECT_EQ(folder_.Get("b/deep/two.jpg"), "2");
  EXPECT_EQ(folder_.Get("a/one.jpg"), "1");
  EXPECT_FALSE(There("b/link.jpg"));
  EXPECT_EQ(disk_.CopyFolder("a", "b").Error(), EEXIST);
  EXPECT_FALSE(disk_.CopyFolder("missing", "c"));
}

TEST_F(FoldersTest, FoldersAreListedWithoutFilesLinksAndHiddenOnes) {
  folder_.Put("a/.hidden/x", "");
  folder_.Put("a/b\\c/x", "");  // a name that would mean another place
  Link("elsewhere", "a/out");
  EXPECT_EQ(disk_.ListFolders("a"), (std::vector<String>{"deep"_w}));
  EXPECT_TRUE(disk_.ListFolders("missing").empty());
}

TEST_F(FoldersTest, FilesAreListedWithLinksToFilesAndWithoutStrangeNames) {
  Link("elsewhere/keep.jpg", "a/link.jpg");
  Link("elsewhere", "a/folder.jpg");
  folder_.Put("a/..\\x.jpg", "");
  EXPECT_EQ(disk_.List("a", ".jpg"), (std::vector<String>{"link.jpg"_w, "one.jpg"_w}));
}

}  // namespace
}  // namespace vintoral
