#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <string>
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

/// Writes down what is asked of the system. A descriptor is known by the file that it was opened from.
class RecordedCalls : public SyncCalls {
 public:
  int Sync(int descriptor) override { return Note("sync", descriptor, FailSync); }
  int Start(int descriptor) override { return Note("start", descriptor, FailStart); }
  int AwaitData(int descriptor) override { return Note("await", descriptor, FailAwait); }
  int SyncFolderOf(const std::string& path, std::uint64_t device) override {
    log_.push_back("folder of " + path + " on " + std::to_string(device));
    return FailFolder;
  }
  FileFacts Facts(int descriptor) override { return Files[NameOf(descriptor)]; }

  Place PlaceOf(int descriptor, const FileFacts& facts) override {
    EXPECT_EQ(facts, Files[NameOf(descriptor)]);
    return Where;
  }

  std::vector<std::string> Take() { return std::exchange(log_, {}); }

  std::map<std::string, FileFacts> Files;
  std::map<std::string, int> FailSync, FailStart, FailAwait;
  int FailFolder = 0;
  Place Where = Place::kFixedWithoutJournal;

 private:
  static std::string NameOf(int descriptor) {
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    const std::string text(path, static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return text.substr(text.rfind('/') + 1);
  }
  int Note(const std::string& call, int descriptor, const std::map<std::string, int>& failures) {
    const std::string name = NameOf(descriptor);
    log_.push_back(call + " " + name);
    const auto failure = failures.find(name);
    return failure == failures.end() ? 0 : failure->second;
  }
  std::vector<std::string> log_;
};

class SlotAndRow : public testing::Test {
 protected:
  SlotAndRow() {
    for (const char* name : {"slot", "row"})
      files_[name] =
          std::make_shared<Descriptor>(open(folder_.Path(name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    calls_.Files["slot"] = {.device = 1, .inode = 10, .length = 188'188, .blocks = 368};
    calls_.Files["row"] = {.device = 1, .inode = 11, .length = 376, .blocks = 8};
  }

  /// Twice: the second time the register is known to have stayed as it was.
  void SaveSlot() {
    for (int i = 0; i < 2; ++i)
      EXPECT_TRUE(pending_.SyncNow(*files_["slot"], "slot"));
    calls_.Take();
  }
  /// What is asked of the system when both are waited for, after the start of each.
  std::vector<std::string> Retire() {
    calls_.Files["row"].length += 188;
    pending_.Begin();
    pending_.Add(files_["slot"], "slot");
    pending_.Add(files_["row"], "row");
    EXPECT_EQ(calls_.Take(), (Calls{"start slot", "start row"}));
    ended_ = pending_.End();
    return calls_.Take();
  }

  using Calls = std::vector<std::string>;
  const TempFolder folder_;
  RecordedCalls calls_;
  PendingSyncs pending_{calls_};
  std::map<std::string, SharedDescriptor> files_;
  Outcome ended_ = Outcome::Done();
};

TEST_F(SlotAndRow, OfOneDiskTakeOneSync) {
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, SlotHasItsOwnUntilTheRegisterIsKnown) {
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
}

TEST_F(SlotAndRow, RegisterWithRoomThatWasOnlySetAsideIsSyncedWhole) {
  calls_.Where = Place::kUnknown;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
  calls_.Where = Place::kFixed;
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
}

TEST_F(SlotAndRow, OnTwoDisksAreFlushedOnBoth) {
  calls_.Files["row"].device = 2;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "folder of slot on 1"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, SlotAloneTakesAFlush) {
  SaveSlot();
  pending_.Begin();
  pending_.Add(files_["slot"], "slot");
  EXPECT_TRUE(pending_.End());
  EXPECT_EQ(calls_.Take(), (Calls{"start slot", "await slot", "folder of slot on 1"}));
}

TEST_F(SlotAndRow, DiskThatCannotBeFlushedAloneSyncsWhole) {
  calls_.Files["row"].device = 2;
  calls_.FailFolder = ENOSYS;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "folder of slot on 1", "sync slot"}));
  EXPECT_TRUE(ended_);
  calls_.FailSync["slot"] = EIO;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "folder of slot on 1", "sync slot"}));
  EXPECT_EQ(ended_.Describe(), "sync slot: Input/output error");
}

TEST_F(SlotAndRow, FailedFlushIsNotAskedForAgain) {
  calls_.Files["row"].device = 2;
  calls_.FailFolder = EIO;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "folder of slot on 1"}));
  EXPECT_EQ(ended_.Describe(), "flush the disk of slot: Input/output error");
}

TEST_F(SlotAndRow, FailedHeadStartIsAFailure) {
  SaveSlot();
  calls_.FailStart["row"] = EUCLEAN;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
  EXPECT_EQ(ended_.Describe(), "sync row: Structure needs cleaning");
  calls_.FailStart = {{"slot", EIO}};
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
  EXPECT_EQ(ended_.Describe(), "sync slot: Input/output error");
  calls_.FailStart = {{"slot", ENOSYS}, {"row", ENOSYS}};
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, WithAJournalTheSlotsOwnSyncFlushes) {
  calls_.Where = Place::kFixed;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
  pending_.Begin();
  pending_.Add(files_["slot"], "slot");
  EXPECT_TRUE(pending_.End());
  EXPECT_EQ(calls_.Take(), (Calls{"start slot", "await slot", "sync slot"}));
}

TEST_F(SlotAndRow, RegisterThatChangedIsSyncedWholeUntilItIsKnownAgain) {
  const FileFacts before = calls_.Files["slot"];
  SaveSlot();
  for (const FileFacts& now : {FileFacts{1, 10, before.length + 188, 368},  // it grew
                               FileFacts{1, 10, before.length, 376},        // a hole was filled
                               FileFacts{1, 99, before.length, 368}}) {     // it was replaced
    calls_.Files["slot"] = now;
    EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
    EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
    EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
  }
}

TEST_F(SlotAndRow, DataThatDidNotArriveAreAFailure) {
  SaveSlot();
  calls_.FailAwait["slot"] = EIO;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "sync slot"}));
  EXPECT_EQ(ended_.Describe(), "sync slot: Input/output error");
}

TEST_F(SlotAndRow, SystemThatCannotAwaitSyncsWhole) {
  SaveSlot();
  calls_.FailAwait["slot"] = ENOSYS;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "sync slot"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, RowThatCannotBeSyncedLeavesTheFlushToTheSlot) {
  SaveSlot();
  calls_.FailSync["row"] = EIO;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "folder of slot on 1"}));
  EXPECT_EQ(ended_.Describe(), "sync row: Input/output error");
}

TEST_F(SlotAndRow, ManyFilesLaterTheSlotIsSyncedWholeAgain) {
  SaveSlot();
  for (std::uint64_t other = 20; other < 28; ++other) {
    calls_.Files["row"].inode = other;
    EXPECT_TRUE(pending_.SyncNow(*files_["row"], "row"));
  }
  calls_.Take();
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
}

TEST(SyncCalls, ThisSystemTellsFilesApart) {
  const TempFolder folder;
  folder.Put("a", "123");
  folder.Put("b", "");
  const int a = open(folder.Path("a").c_str(), O_RDWR | O_CLOEXEC),
            b = open(folder.Path("b").c_str(), O_RDWR | O_CLOEXEC);
  SyncCalls& calls = SyncCalls::System();
  EXPECT_EQ(calls.Facts(a).length, 3u);
  EXPECT_NE(calls.Facts(a).inode, calls.Facts(b).inode);
  EXPECT_EQ(calls.Facts(a).device, calls.Facts(b).device);
  EXPECT_EQ(calls.Facts(a), calls.Facts(a));
  EXPECT_EQ(calls.Sync(a), 0);
  EXPECT_EQ(calls.Start(a), 0);
  EXPECT_EQ(calls.AwaitData(a), 0);
  const std::uint64_t disk = calls.Facts(a).device;
  EXPECT_EQ(calls.SyncFolderOf(folder.Path("a"), disk), 0);
  EXPECT_EQ(calls.SyncFolderOf(folder.Path("a"), disk + 1), ENOSYS);
  EXPECT_EQ(calls.SyncFolderOf(folder.Path("missing/a"), disk), ENOSYS);
  close(a);
  close(b);
  EXPECT_EQ(calls.Facts(a), FileFacts{});
  EXPECT_EQ(calls.Sync(a), EBADF);
  EXPECT_EQ(calls.AwaitData(a), EBADF);
}

TEST(SyncCalls, KnowsWhatWasOnlySetAside) {
  const TempFolder folder;
  const std::string full(16384, 'x');
  folder.Put("full", full);
  folder.Put("hole", "");
  folder.Put("aside", "");
  folder.Put("empty", "");
  SyncCalls& calls = SyncCalls::System();
  const auto fixed = [&](const char* name, auto prepare) {
    const Descriptor file(open(folder.Path(name).c_str(), O_RDWR | O_CLOEXEC));
    prepare(file.Number());
    EXPECT_EQ(calls.Sync(file.Number()), 0);
    return calls.PlaceOf(file.Number(), calls.Facts(file.Number())) != Place::kUnknown;
  };
  struct statfs system {};
  ASSERT_EQ(statfs(folder.Path().c_str(), &system), 0);
  EXPECT_EQ(fixed("full", [](int) {}), system.f_type == EXT4_SUPER_MAGIC);  // of others nothing is known
  EXPECT_FALSE(fixed("hole", [&](int file) {
    EXPECT_EQ(pwrite(file, full.data(), 4096, 0), 4096);
    EXPECT_EQ(pwrite(file, full.data(), 4096, 12288), 4096);
  }));
  EXPECT_FALSE(fixed("aside", [](int file) { EXPECT_EQ(fallocate(file, 0, 0, 16384), 0); }));
  EXPECT_FALSE(fixed("empty", [](int) {}));
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
