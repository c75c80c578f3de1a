// A file that is begun beside another one and takes its place later, on a real disk and on the others.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/PosixDisk.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::FaultyDisk;
using test::MemoryDisk;
using test::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;

/// Begun, and not yet seen.
std::unique_ptr<Replacement> Around(Disk& disk, std::string_view path, std::string_view before,
                                    std::string_view after) {
  std::unique_ptr<Replacement> replacement = disk.BeginReplacement(path);
  replacement->PutAround(before, after);
  return replacement;
}

class ReplacementTest : public testing::Test {
 protected:
  std::vector<std::string> Names(const std::string& folder = "") const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path(folder)))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  /// The name under which this process's new file stands for a moment.
  static std::string Hidden(const std::string& name) {
    return "." + name + "." + std::to_string(getpid()) + ".nuevo";
  }

  TempFolder folder_;
  PosixDisk disk_{folder_.Path()};
};

TEST_F(ReplacementTest, KeepsWhatTheFileHeldInTheMiddle) {
  folder_.Put("Log.HFC", "the old one");
  ASSERT_EQ(chmod(folder_.Path("Log.HFC").c_str(), 0640), 0);
  EXPECT_TRUE(Around(disk_, "log.hfc", "new, ", "!")->Commit());
  EXPECT_EQ(folder_.Get("Log.HFC"), "new, the old one!");
  EXPECT_TRUE(Around(disk_, "log.hfc", "", "")->Commit());
  EXPECT_EQ(folder_.Get("Log.HFC"), "new, the old one!");
  struct stat status {};
  ASSERT_EQ(stat(folder_.Path("Log.HFC").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640u);
  EXPECT_THAT(Names(), ElementsAre("Log.HFC"));
}

TEST_F(ReplacementTest, MakesAFileThatWasMissing) {
  EXPECT_TRUE(Around(disk_, "x", "a", "b")->Commit());
  EXPECT_EQ(folder_.Get("x"), "ab");
}

TEST_F(ReplacementTest, TellsWhyItCouldNot) {
  folder_.Put("Folder/x", "inside");
  EXPECT_EQ(Around(disk_, "Folder", "a", "b")->Commit().Error(), EISDIR);
  EXPECT_EQ(Around(disk_, "No folder\\x", "a", "b")->Commit().Error(), ENOENT);
  EXPECT_THAT(Names(), ElementsAre("Folder"));
}

TEST_F(ReplacementTest, NobodySeesItBeforeCommit) {
  folder_.Put("x", "old");
  const auto replacement = Around(disk_, "x", "new ", "");
  disk_.Settle();  // it has been written
  EXPECT_EQ(folder_.Get("x"), "old");
  EXPECT_THAT(Names(), ElementsAre("x"));
  EXPECT_TRUE(replacement->Commit());
  EXPECT_EQ(folder_.Get("x"), "new old");
  EXPECT_THAT(Names(), ElementsAre("x"));
}

TEST_F(ReplacementTest, WithoutCommitNothingChanges) {
  folder_.Put("x", "old");
  { const auto replacement = Around(disk_, "x", "new ", ""); }
  disk_.Settle();
  EXPECT_EQ(folder_.Get("x"), "old");
  EXPECT_THAT(Names(), ElementsAre("x"));
  EXPECT_TRUE(Around(disk_, "x", "next ", "")->Commit());
  EXPECT_EQ(folder_.Get("x"), "next old");
}

TEST_F(ReplacementTest, WithoutContentNothingChangesEither) {
  folder_.Put("x", "old");
  { const auto begun = disk_.BeginReplacement("x"); }
  EXPECT_EQ(disk_.BeginReplacement("x")->Commit().Error(), EINVAL);
  EXPECT_EQ(folder_.Get("x"), "old");
  EXPECT_THAT(Names(), ElementsAre("x"));
}

TEST_F(ReplacementTest, EachOfManyStandsOnTheOneBefore) {
  std::string expected;
  for (int i = 0; i < 50; ++i) {
    const std::string line = std::to_string(i) + "\n";
    expected.insert(0, line);
    ASSERT_TRUE(Around(disk_, "x", line, "")->Commit());
    ASSERT_EQ(folder_.Get("x"), expected);
  }
}

/// Files that this process has open and that have no name any more.
int OpenWithoutName(const std::string& below) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    const std::string target = std::filesystem::read_symlink(entry, gone).string();
    if (target.starts_with(below) && target.ends_with(" (deleted)")) ++count;
  }
  return count;
}

TEST_F(ReplacementTest, OnceSettledTheOldFileIsFreed) {
  folder_.Put("x", "old");
  const auto replacement = Around(disk_, "x", "new ", "");
  disk_.Settle();
  ASSERT_EQ(OpenWithoutName(folder_.Path()), 1);  // the new one
  EXPECT_TRUE(replacement->Commit());
  disk_.Settle();
  EXPECT_EQ(OpenWithoutName(folder_.Path()), 0);
}

TEST_F(ReplacementTest, FollowsALinkAndLeavesReadersTheOldFile) {
  folder_.Put("real/x", "old");
  std::filesystem::create_symlink("real/x", folder_.Path("link"));
  const std::unique_ptr<DiskFile> reader = disk_.Open("link", OpenMode::kRead).Take();
  EXPECT_TRUE(Around(disk_, "link", "new ", "")->Commit());
  std::array<char, 20> bytes{};
  EXPECT_EQ(reader->ReadAt(0, bytes), 3u);
  EXPECT_EQ(folder_.Get("real/x"), "new old");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link")));
  EXPECT_THAT(Names("real"), ElementsAre("x"));
}

TEST_F(ReplacementTest, WhatAKilledStationLeftIsNoHindrance) {
  folder_.Put("x", "old");
  folder_.Put(Hidden("x"), "left by somebody");
  EXPECT_TRUE(Around(disk_, "x", "new ", "")->Commit());
  EXPECT_EQ(folder_.Get("x"), "new old");
  EXPECT_THAT(Names(), ElementsAre("x"));
}

TEST_F(ReplacementTest, APlaceThatCantBeTakenLeavesNothingBehind) {
  folder_.Put("x", "old");
  const auto replacement = Around(disk_, "x", "new ", "");
  disk_.Settle();
  std::filesystem::remove(folder_.Path("x"));
  folder_.Put("x/inside", "somebody else's");
  EXPECT_EQ(replacement->Commit().Error(), EISDIR);
  EXPECT_THAT(Names(), ElementsAre("x"));
  EXPECT_EQ(folder_.Get("x/inside"), "somebody else's");
}

TEST_F(ReplacementTest, AHiddenNameThatCantBeTakenChangesNothing) {
  folder_.Put("x", "old");
  folder_.Put(Hidden("x") + "/inside", "");
  EXPECT_EQ(Around(disk_, "x", "new ", "")->Commit().Error(), EISDIR);
  EXPECT_EQ(folder_.Get("x"), "old");
}

TEST_F(ReplacementTest, AFolderThatGoesBetweenTheTwoIsTold) {
  folder_.Put("Recursos/x", "old");
  const auto replacement = Around(disk_, "Recursos\\x", "new ", "");
  disk_.Settle();
  std::filesystem::remove_all(folder_.Path("Recursos"));
  EXPECT_EQ(replacement->Commit().Error(), ENOENT);
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(ReplacementTest, TheEndOfTheDiskWaitsForAll) {
  folder_.Put("x", "old");
  {
    PosixDisk disk(folder_.Path());
    EXPECT_TRUE(Around(disk, "x", "new ", "")->Commit());
  }
  EXPECT_EQ(OpenWithoutName(folder_.Path()), 0);
  EXPECT_EQ(folder_.Get("x"), "new old");
}

class ReplacementAtOnceTest : public testing::Test {
 protected:
  void SetUp() override { memory_.Put("x", "old"); }
  Outcome CommitWith(const test::Faults& faults) {
    const auto replacement = Around(disk_, "x", "new ", "!");
    disk_.Set() = faults;
    Outcome done = replacement->Commit();
    disk_.Repair();
    return done;
  }
  MemoryDisk memory_;
  FaultyDisk disk_{memory_};
};

TEST_F(ReplacementAtOnceTest, DoesAllOfItInCommit) {
  { const auto dropped = Around(disk_, "x", "dropped ", ""); }
  const auto replacement = Around(disk_, "x", "new ", "!");
  disk_.Settle();
  EXPECT_EQ(disk_.BeginReplacement("x")->Commit().Error(), EINVAL);  // nothing was put
  EXPECT_EQ(disk_.Operations(), 0);
  EXPECT_EQ(memory_.Get("x"), "old");
  EXPECT_TRUE(replacement->Commit());
  EXPECT_EQ(memory_.Get("x"), "new old!");
  EXPECT_TRUE(Around(disk_, "y", "a", "b")->Commit());
  EXPECT_EQ(memory_.Get("y"), "ab");
}

TEST_F(ReplacementAtOnceTest, LeavesTheOldFileWhicheverStepFails) {
  EXPECT_EQ(CommitWith({.failRead = 1}).Error(), EIO);
  EXPECT_EQ(CommitWith({.failWrite = 1}).Error(), ENOSPC);
  EXPECT_EQ(CommitWith({.openReadOnly = true}).Error(), EACCES);
  for (const int steps : {0, 1})
    EXPECT_EQ(CommitWith({.goneAfter = steps}).Error(), ENOTCONN) << steps;
  EXPECT_EQ(memory_.Get("x"), "old");
  EXPECT_TRUE(CommitWith({.goneAfter = 2}));
  EXPECT_EQ(memory_.Get("x"), "new old!");
}

}  // namespace
}  // namespace vintoral
