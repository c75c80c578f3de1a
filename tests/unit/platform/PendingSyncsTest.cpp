#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/magic.h>
#include <sys/mman.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/PosixDisk.h"
#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;

/// A descriptor that exists and can't be synced.
SharedDescriptor Unsyncable() {
  return std::make_shared<Descriptor>(open("/", O_PATH | O_CLOEXEC));
}

TEST(PendingSyncs, OutermostEndSyncsAll) {
  PendingSyncs pending;
  EXPECT_FALSE(pending.Waiting());
  pending.Begin();
  pending.Begin();
  pending.Add(Unsyncable(), "/srv/x");
  EXPECT_TRUE(pending.End());
  EXPECT_TRUE(pending.Waiting());
  const Outcome ended = pending.End();
  EXPECT_EQ(ended.Error(), EBADF);
  EXPECT_EQ(ended.Describe(), "sync /srv/x: Bad file descriptor");
  EXPECT_FALSE(pending.Waiting());
}

TEST(PendingSyncs, FileStaysOpenUntilItIsSyncedAndIsSyncedOnce) {
  PendingSyncs pending;
  pending.Begin();
  const SharedDescriptor file = Unsyncable();
  pending.Add(file, "x");
  EXPECT_EQ(file.use_count(), 2);
  EXPECT_FALSE(pending.End());
  EXPECT_EQ(file.use_count(), 1);
  pending.Begin();
  EXPECT_TRUE(pending.End());
}

/// Writes down what is asked of the system, by which thread. A descriptor is known by the file that it was
/// opened from.
class RecordedCalls : public SyncCalls {
 public:
  int Sync(int descriptor) override {
    if (std::this_thread::get_id() == station_) return Note("sync", descriptor, FailSync);
    const std::string name = NameOf(descriptor);
    beside_.push_back("beside: sync " + name);
    return Failure(name, FailSync);
  }
  int Start(int descriptor) override { return Note("start", descriptor, FailStart); }
  int AwaitData(int descriptor) override { return Note("await", descriptor, FailAwait); }
  std::optional<FileStatus> Status(int descriptor) override {
    const auto found = Files.find(NameOf(descriptor));
    return found == Files.end() ? std::nullopt : std::optional(found->second);
  }
  std::uint64_t WrittenUpTo(int descriptor, std::uint64_t length) override {
    const std::string name = NameOf(descriptor);
    EXPECT_EQ(length, Files[name].length);
    Mapped.push_back(name);
    return InPlace ? (length + kBlock - 1) / kBlock * kBlock : Written;
  }

  /// The station's own calls, then those beside it; asked for when nothing is under way.
  std::vector<std::string> Take() {
    std::vector<std::string> all = std::exchange(log_, {});
    for (std::string& call : std::exchange(beside_, {}))
      all.push_back(std::move(call));
    return all;
  }

  static constexpr std::uint64_t kBlock = 4096;
  std::map<std::string, FileStatus> Files;
  std::map<std::string, int> FailSync, FailStart, FailAwait;
  bool InPlace = true;
  std::uint64_t Written = 0;        ///< how far otherwise
  std::vector<std::string> Mapped;  ///< whose extent map was asked for

 private:
  static std::string NameOf(int descriptor) {
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    const std::string text(path, static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return text.substr(text.rfind('/') + 1);
  }
  static int Failure(const std::string& name, const std::map<std::string, int>& failures) {
    const auto failure = failures.find(name);
    return failure == failures.end() ? 0 : failure->second;
  }
  int Note(const std::string& call, int descriptor, const std::map<std::string, int>& failures) {
    const std::string name = NameOf(descriptor);
    log_.push_back(call + " " + name);
    return Failure(name, failures);
  }
  const std::thread::id station_ = std::this_thread::get_id();
  std::vector<std::string> log_, beside_;
};

class SlotAndRow : public testing::Test {
 protected:
  SlotAndRow() {
    for (const char* name : {"slot", "row", "number", "user"})
      files_[name] =
          std::make_shared<Descriptor>(open(folder_.Path(name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    calls_.Files["slot"] = {.inode = 10, .device = 1, .length = 188'188, .blocks = 368};
    calls_.Files["row"] = {.inode = 11, .device = 1, .length = 376, .blocks = 8};
    calls_.Files["user"] = {.inode = 13, .device = 1, .length = 124, .blocks = 8};
  }

  /// By itself, and once more: from then on the register is known.
  void SaveSlot() {
    for (int i = 0; i < 2; ++i) {
      EXPECT_TRUE(pending_.SyncNow(*files_["slot"], "slot"));
      EXPECT_EQ(calls_.Take(), (Calls{"sync slot"}));
    }
  }
  /// What is asked of the system when all of them are waited for, but for their beginning.
  std::vector<std::string> Together(const std::vector<std::string>& names) {
    pending_.Begin();
    for (const std::string& name : names)
      pending_.Add(files_[name], name);
    ended_ = pending_.End();
    std::vector<std::string> calls = calls_.Take();
    EXPECT_GE(calls.size(), names.size());
    for (const std::string& name : names) {
      EXPECT_EQ(calls.front(), "start " + name);
      calls.erase(calls.begin());
    }
    return calls;
  }
  std::vector<std::string> Retire() {
    calls_.Files["row"].length += 188;
    return Together({"slot", "row"});
  }

  using Calls = std::vector<std::string>;
  const Calls kTogether{"await slot", "sync row"};
  const Calls kApart{"sync row", "beside: sync slot"};
  const TempFolder folder_;
  RecordedCalls calls_;
  PendingSyncs pending_{calls_};
  std::map<std::string, SharedDescriptor> files_;
  Outcome ended_ = Outcome::Done();
};

TEST_F(SlotAndRow, OfOneDiskTakeOneSync) {
  SaveSlot();
  EXPECT_EQ(Retire(), kTogether);
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, TheRowsFlushIsAlsoThatOfANumberWrittenBehindIt) {
  calls_.Files["number"] = {.inode = 12, .device = 1, .length = 10'146, .blocks = 24};
  SaveSlot();
  for (int i = 0; i < 2; ++i)
    EXPECT_TRUE(pending_.SyncNow(*files_["number"], "number"));
  calls_.Take();
  EXPECT_EQ(Together({"slot", "row", "number"}), (Calls{"await slot", "await number", "sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, SlotAloneIsSyncedWhole) {
  SaveSlot();
  EXPECT_EQ(Together({"slot"}), (Calls{"sync slot"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, SlotHasItsOwnUntilTheRegisterIsKnown) {
  EXPECT_EQ(Retire(), kApart);
  EXPECT_EQ(Retire(), kApart);
  EXPECT_EQ(Retire(), kTogether);
}

TEST_F(SlotAndRow, ExtentMapIsAskedForOnceOfAFileThatStaysTheSame) {
  for (int i = 0; i < 4; ++i)
    Retire();  // the row makes its file longer each time
  EXPECT_EQ(calls_.Mapped, (Calls{"slot"}));
}

TEST_F(SlotAndRow, RegisterWithUnwrittenExtentsIsSyncedWhole) {
  calls_.InPlace = false;
  SaveSlot();
  EXPECT_EQ(Retire(), kApart);
  calls_.InPlace = true;
  EXPECT_EQ(Retire(), kApart);
  EXPECT_EQ(Retire(), kTogether);
}

TEST_F(SlotAndRow, OnTwoDisksAreSyncedOnBoth) {
  calls_.Files["row"].device = 2;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"sync slot", "sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, RegisterThatChangedIsSyncedWholeUntilItIsKnownAgain) {
  const FileStatus before = calls_.Files["slot"];
  SaveSlot();
  FileStatus grown = before, filled = before, replaced = before;
  grown.length += 4096;
  grown.blocks += 8;
  filled.blocks += 8;
  replaced.inode = 99;
  for (const FileStatus& now : {grown, filled, replaced}) {
    calls_.Files["slot"] = now;
    EXPECT_EQ(Retire(), kApart);
    EXPECT_EQ(Retire(), kApart);
    EXPECT_EQ(Retire(), kTogether);
  }
}

TEST_F(SlotAndRow, WithoutTheirStatusEachIsSyncedWhole) {
  SaveSlot();
  const FileStatus slot = calls_.Files["slot"];
  calls_.Files.erase("slot");
  EXPECT_EQ(Retire(), kApart);
  calls_.Files["slot"] = slot;
  calls_.Files.erase("row");
  EXPECT_EQ(Together({"slot", "row"}), (Calls{"sync slot", "sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, FailureToBeginIsAFailure) {
  SaveSlot();
  calls_.FailStart = {{"slot", EUCLEAN}, {"row", EIO}};
  EXPECT_EQ(Retire(), kTogether);
  EXPECT_EQ(ended_.Describe(), "sync slot: Structure needs cleaning");
  calls_.FailStart = {{"slot", ENOSYS}, {"row", ENOSYS}};
  EXPECT_EQ(Retire(), kTogether);
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, DataThatDidNotArriveAreAFailure) {
  SaveSlot();
  calls_.FailAwait["slot"] = EIO;
  EXPECT_EQ(Retire(), kTogether);
  EXPECT_EQ(ended_.Describe(), "sync slot: Input/output error");
}

TEST_F(SlotAndRow, SystemThatCannotAwaitSyncsWhole) {
  SaveSlot();
  calls_.FailAwait["slot"] = ENOSYS;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync slot", "sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, RowThatCannotBeSyncedLeavesTheFlushToTheSlot) {
  SaveSlot();
  calls_.FailSync["row"] = EIO;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "sync slot"}));
  EXPECT_EQ(ended_.Describe(), "sync row: Input/output error");
}

TEST_F(SlotAndRow, FirstFailureIsTold) {
  calls_.FailSync = {{"slot", EIO}, {"row", ENOSPC}};
  EXPECT_EQ(Retire(), kApart);
  EXPECT_EQ(ended_.Describe(), "sync slot: Input/output error");
}

TEST_F(SlotAndRow, FailedSyncMakesNoRegisterKnown) {
  calls_.FailSync["slot"] = EIO;
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(pending_.SyncNow(*files_["slot"], "slot").Error(), EIO);
  calls_.FailSync["slot"] = ENOSYS;  // of a file system that keeps by itself what it has
  EXPECT_TRUE(pending_.SyncNow(*files_["row"], "row"));
  calls_.Take();
  EXPECT_EQ(Retire(), kApart);
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, EachThatNeedsAFlushHasItBesideButTheLast) {
  calls_.Files["number"] = {.inode = 12, .device = 1, .length = 10'146, .blocks = 24};
  SaveSlot();
  EXPECT_EQ(Together({"user", "slot", "row", "number"}),
            (Calls{"await slot", "sync number", "beside: sync user", "beside: sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, FileThatIsNotedTwiceIsSyncedTwice) {
  EXPECT_EQ(Together({"user", "user"}), (Calls{"sync user", "beside: sync user"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, FailureBesideIsToldOfItsFile) {
  calls_.FailSync["row"] = EIO;
  EXPECT_EQ(Together({"user", "row", "slot"}), (Calls{"sync slot", "beside: sync user", "beside: sync row"}));
  EXPECT_EQ(ended_.Describe(), "sync row: Input/output error");
  calls_.FailSync.clear();
  EXPECT_EQ(Together({"user", "row", "slot"}), (Calls{"sync slot", "beside: sync user", "beside: sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, FailedSyncBesideMakesNoRegisterKnown) {
  calls_.FailSync["slot"] = EIO;
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(Retire(), kApart);
  calls_.FailSync.clear();
  for (const Calls& asked : {kApart, kApart, kTogether})
    EXPECT_EQ(Retire(), asked);
}

TEST_F(SlotAndRow, FileStaysOpenUntilItIsSyncedBeside) {
  const SharedDescriptor user = files_["user"];
  const auto held = user.use_count();
  pending_.Begin();
  pending_.Add(user, "user");
  pending_.Add(files_["row"], "row");
  EXPECT_EQ(user.use_count(), held + 1);
  EXPECT_TRUE(pending_.End());
  EXPECT_EQ(user.use_count(), held);
}

/// A register of users: each time somebody is added, later his points.
class Users : public SlotAndRow {
 protected:
  /// By a day's first users: the register has been the same at two syncs.
  Users() {
    for (int i = 0; i < 2; ++i)
      EXPECT_TRUE(pending_.SyncNow(*files_["user"], "user"));
    calls_.Take();
    calls_.Mapped.clear();
  }
  void Grow(std::uint64_t length, std::uint64_t blocks) {
    calls_.Files["user"].length = length;
    calls_.Files["user"].blocks = blocks;
  }
  const Calls kWhole{"sync row", "beside: sync user"};
  const Calls kInPlace{"await user", "sync row"};
};

TEST_F(Users, ThatGrewInTheirLastBlockAreWrittenInPlaceOnceThatIsOnDisk) {
  Grow(4096, 8);
  EXPECT_EQ(Together({"user", "row"}), kWhole);
  EXPECT_EQ(Together({"user", "row"}), kInPlace);
  EXPECT_EQ(std::count(calls_.Mapped.begin(), calls_.Mapped.end(), "user"), 0);
}

TEST_F(Users, ThatGrewBehindTheirLastBlockAreSyncedWholeUntilTheirMapIsKnown) {
  Grow(4097, 16);
  for (const Calls& asked : {kWhole, kWhole, kInPlace})
    EXPECT_EQ(Together({"user", "row"}), asked);
  EXPECT_EQ(std::count(calls_.Mapped.begin(), calls_.Mapped.end(), "user"), 1);
}

TEST_F(Users, WhoseLastBlockWasFilledBehindAHoleAreSyncedWholeUntilTheirMapIsKnown) {
  Grow(4096, 16);
  for (const Calls& asked : {kWhole, kWhole, kInPlace})
    EXPECT_EQ(Together({"user", "row"}), asked);
}

TEST_F(Users, ThatWereCutAreSyncedWholeUntilTheirMapIsKnown) {
  Grow(62, 8);
  for (const Calls& asked : {kWhole, kWhole, kInPlace})
    EXPECT_EQ(Together({"user", "row"}), asked);
}

TEST_F(SlotAndRow, RegisterThatIsWrittenInPartOnlyIsSyncedWhole) {
  calls_.InPlace = false;
  calls_.Written = calls_.Files["slot"].length - 1;
  SaveSlot();
  EXPECT_EQ(Retire(), kApart);
}

TEST(SyncCalls, ThisSystemSyncs) {
  const TempFolder folder;
  folder.Put("a", "123");
  const int a = open(folder.Path("a").c_str(), O_RDWR | O_CLOEXEC);
  SyncCalls& calls = SyncCalls::System();
  const std::optional<FileStatus> status = StatusOf(folder.Path("a"));
  EXPECT_EQ(status->length, 3u);
  EXPECT_EQ(calls.Status(a), status->IsOnABlockDevice() ? status : std::nullopt);
  EXPECT_EQ(calls.Sync(a), 0);
  EXPECT_EQ(calls.Start(a), 0);
  EXPECT_EQ(calls.AwaitData(a), 0);
  close(a);
  EXPECT_EQ(calls.Status(a), std::nullopt);
  EXPECT_EQ(calls.Sync(a), EBADF);
  EXPECT_EQ(calls.AwaitData(a), EBADF);
}

TEST(SyncCalls, SayNothingOfAFileOnNoDisk) {
  const Descriptor memory(memfd_create("register", MFD_CLOEXEC));
  ASSERT_EQ(write(memory.Number(), "123", 3), 3);
  ASSERT_EQ(StatusOf(memory.Number())->length, 3u);
  EXPECT_EQ(SyncCalls::System().Status(memory.Number()), std::nullopt);
}

TEST(SyncCalls, KnowsWhatIsNotWrittenInPlace) {
  const TempFolder folder;
  const std::string full(16384, 'x');
  folder.Put("full", full);
  folder.Put("hole", "");
  folder.Put("unwritten", "");
  folder.Put("empty", "");
  SyncCalls& calls = SyncCalls::System();
  const auto inPlace = [&](const char* name, auto prepare) {
    const Descriptor file(open(folder.Path(name).c_str(), O_RDWR | O_CLOEXEC));
    prepare(file.Number());
    EXPECT_EQ(calls.Sync(file.Number()), 0);
    const std::uint64_t length = StatusOf(file.Number())->length;
    return length > 0 && calls.WrittenUpTo(file.Number(), length) >= length;
  };
  struct statfs system {};
  ASSERT_EQ(statfs(folder.Path().c_str(), &system), 0);
  EXPECT_EQ(inPlace("full", [](int) {}), system.f_type == EXT4_SUPER_MAGIC);  // of others nothing is known
  EXPECT_FALSE(inPlace("hole", [&](int file) {
    EXPECT_EQ(pwrite(file, full.data(), 4096, 0), 4096);
    EXPECT_EQ(pwrite(file, full.data(), 4096, 12288), 4096);
  }));
  EXPECT_FALSE(inPlace("unwritten", [](int file) { EXPECT_EQ(fallocate(file, 0, 0, 16384), 0); }));
  EXPECT_FALSE(inPlace("empty", [](int) {}));
}

TEST(SyncTogether, FilesAreWrittenAndSyncedByTheEnd) {
  const TempFolder folder;
  PosixDisk disk(folder.Path());
  SyncTogether together(disk);
  for (const char* name : {"slot", "row", "user"}) {
    const std::unique_ptr<DiskFile> file = disk.Open(name, OpenMode::kCreate).Take();
    EXPECT_TRUE(file->WriteAt(0, std::string_view(name)));
    EXPECT_TRUE(file->Sync());
  }
  EXPECT_TRUE(together.Finish());
  EXPECT_TRUE(together.Finish());
  EXPECT_EQ(folder.Get("row"), "row");
}

}  // namespace
}  // namespace vintoral
