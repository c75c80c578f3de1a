#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
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
class Unsyncable {
 public:
  Unsyncable() : descriptor_(open("/", O_PATH | O_CLOEXEC)) {}
  ~Unsyncable() { Close(); }
  Unsyncable(const Unsyncable&) = delete;
  Unsyncable& operator=(const Unsyncable&) = delete;
  int Get() const { return descriptor_; }
  void Close() {
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
  }

 private:
  int descriptor_;
};

TEST(PendingSyncs, OutermostEndSyncsAll) {
  PendingSyncs pending;
  Unsyncable file;
  EXPECT_FALSE(pending.Waiting());
  pending.Begin();
  pending.Begin();
  EXPECT_TRUE(pending.Add(file.Get(), "/srv/x"));
  EXPECT_TRUE(pending.End());
  EXPECT_TRUE(pending.Waiting());
  const Outcome ended = pending.End();
  EXPECT_EQ(ended.Error(), EBADF);
  EXPECT_EQ(ended.Describe(), "sync /srv/x: Bad file descriptor");
  EXPECT_FALSE(pending.Waiting());
}

TEST(PendingSyncs, FileMayBeClosedMeanwhileAndIsSyncedOnce) {
  PendingSyncs pending;
  Unsyncable file;
  pending.Begin();
  EXPECT_TRUE(pending.Add(file.Get(), "x"));
  file.Close();
  EXPECT_FALSE(pending.End());
  pending.Begin();
  EXPECT_TRUE(pending.End());
}

TEST(PendingSyncs, ClosedDescriptorIsNotNoted) {
  PendingSyncs pending;
  pending.Begin();
  EXPECT_FALSE(pending.Add(-1, "x"));
  EXPECT_TRUE(pending.End());
}

/// Writes down what is asked of the system. A descriptor is known by the file that it was opened from.
class RecordedCalls : public SyncCalls {
 public:
  int Sync(int descriptor) override { return Note("sync", descriptor, FailSync); }
  int Start(int descriptor) override { return Note("start", descriptor, FailStart); }
  int AwaitData(int descriptor) override { return Note("await", descriptor, FailAwait); }
  int Flush(const std::string& path, std::uint64_t device) override {
    log_.push_back("flush " + std::to_string(device) + " at " + path);
    return FailFlush;
  }
  FileFacts Facts(int descriptor) override { return Files[NameOf(descriptor)]; }

  bool LiesWritten(int descriptor, std::uint64_t length) override {
    EXPECT_EQ(length, Files[NameOf(descriptor)].length);
    return Written;
  }

  std::vector<std::string> Take() { return std::exchange(log_, {}); }

  std::map<std::string, FileFacts> Files;
  std::map<std::string, int> FailSync, FailStart, FailAwait;
  int FailFlush = 0;
  bool Written = true;

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
      descriptors_[name] = open(folder_.Path(name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    calls_.Files["slot"] = {.device = 1, .inode = 10, .length = 188'188, .blocks = 368, .inPlace = true};
    calls_.Files["row"] = {.device = 1, .inode = 11, .length = 376, .blocks = 8, .inPlace = true};
  }
  ~SlotAndRow() override {
    for (const auto& [name, descriptor] : descriptors_)
      close(descriptor);
  }

  /// Twice: the second time the register is known to have stayed as it was.
  void SaveSlot() {
    for (int i = 0; i < 2; ++i)
      EXPECT_TRUE(pending_.SyncNow(descriptors_["slot"], "slot"));
    calls_.Take();
  }
  /// What is asked of the system when both are waited for, after the start of each.
  std::vector<std::string> Retire() {
    calls_.Files["row"].length += 188;
    pending_.Begin();
    EXPECT_TRUE(pending_.Add(descriptors_["slot"], "slot"));
    EXPECT_TRUE(pending_.Add(descriptors_["row"], "row"));
    EXPECT_EQ(calls_.Take(), (Calls{"start slot", "start row"}));
    ended_ = pending_.End();
    return calls_.Take();
  }

  using Calls = std::vector<std::string>;
  const TempFolder folder_;
  RecordedCalls calls_;
  PendingSyncs pending_{calls_};
  std::map<std::string, int> descriptors_;
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
  calls_.Written = false;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
  calls_.Written = true;
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row"}));
}

TEST_F(SlotAndRow, OnTwoDisksAreFlushedOnBoth) {
  calls_.Files["row"].device = 2;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "flush 1 at slot"}));
  EXPECT_TRUE(ended_);
}

TEST_F(SlotAndRow, SlotAloneTakesAFlush) {
  SaveSlot();
  pending_.Begin();
  EXPECT_TRUE(pending_.Add(descriptors_["slot"], "slot"));
  EXPECT_TRUE(pending_.End());
  EXPECT_EQ(calls_.Take(), (Calls{"start slot", "await slot", "flush 1 at slot"}));
}

TEST_F(SlotAndRow, DiskThatCannotBeFlushedAloneSyncsWhole) {
  calls_.Files["row"].device = 2;
  calls_.FailFlush = ENOSYS;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "flush 1 at slot", "sync slot"}));
  EXPECT_TRUE(ended_);
  calls_.FailSync["slot"] = EIO;
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "flush 1 at slot", "sync slot"}));
  EXPECT_EQ(ended_.Describe(), "sync slot: Input/output error");
}

TEST_F(SlotAndRow, FailedFlushIsNotAskedForAgain) {
  calls_.Files["row"].device = 2;
  calls_.FailFlush = EIO;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "flush 1 at slot"}));
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

TEST_F(SlotAndRow, WhereBytesAreNotWrittenInPlaceHaveTheirOwn) {
  calls_.Files["slot"].inPlace = calls_.Files["row"].inPlace = false;
  SaveSlot();
  EXPECT_EQ(Retire(), (Calls{"sync row", "sync slot"}));
}

TEST_F(SlotAndRow, RegisterThatChangedIsSyncedWholeUntilItIsKnownAgain) {
  const FileFacts before = calls_.Files["slot"];
  SaveSlot();
  for (const FileFacts& now : {FileFacts{1, 10, before.length + 188, 368, true},  // it grew
                               FileFacts{1, 10, before.length, 376, true},        // a hole was filled
                               FileFacts{1, 99, before.length, 368, true}}) {     // it was replaced
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
  EXPECT_EQ(Retire(), (Calls{"await slot", "sync row", "flush 1 at slot"}));
  EXPECT_EQ(ended_.Describe(), "sync row: Input/output error");
}

TEST_F(SlotAndRow, ManyFilesLaterTheSlotIsSyncedWholeAgain) {
  SaveSlot();
  for (std::uint64_t other = 20; other < 28; ++other) {
    calls_.Files["row"].inode = other;
    EXPECT_TRUE(pending_.SyncNow(descriptors_["row"], "row"));
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
  // Done where there is no journal, and refused where there is one.
  EXPECT_THAT(calls.Flush(folder.Path("a"), disk), testing::AnyOf(0, ENOSYS));
  EXPECT_EQ(calls.Flush(folder.Path("a"), disk + 1), ENOSYS);
  EXPECT_EQ(calls.Flush(folder.Path("missing/a"), disk), ENOSYS);
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
  const auto lies = [&](const char* name, auto prepare) {
    const int descriptor = open(folder.Path(name).c_str(), O_RDWR | O_CLOEXEC);
    prepare(descriptor);
    EXPECT_EQ(calls.Sync(descriptor), 0);
    const bool written = calls.LiesWritten(descriptor, calls.Facts(descriptor).length);
    const bool inPlace = calls.Facts(descriptor).inPlace;
    close(descriptor);
    return written || !inPlace;  // of other file systems nobody asks
  };
  EXPECT_TRUE(lies("full", [](int) {}));
  const int here = open(folder.Path().c_str(), O_RDONLY | O_CLOEXEC);
  const bool asked = calls.Facts(here).inPlace;
  close(here);
  if (asked) {
    EXPECT_FALSE(lies("hole", [&](int file) {
      EXPECT_EQ(pwrite(file, full.data(), 4096, 0), 4096);
      EXPECT_EQ(pwrite(file, full.data(), 4096, 12288), 4096);
    }));
    EXPECT_FALSE(lies("aside", [](int file) { EXPECT_EQ(fallocate(file, 0, 0, 16384), 0); }));
    EXPECT_FALSE(lies("empty", [](int) {}));
  }
}

TEST(SyncTogether, FilesAreWrittenAndSyncedByTheEnd) {
  const TempFolder folder;
  PosixDisk disk(folder.Path());
  SyncTogether together(disk);
  for (const char* name : {"slot", "row", "user"}) {
    const auto file = disk.Open(name, OpenMode::kCreate);
    EXPECT_TRUE(file->WriteAt(0, std::string_view(name)));
    EXPECT_TRUE(file->Sync());
  }
  EXPECT_TRUE(together.Finish());
  EXPECT_TRUE(together.Finish());
  EXPECT_EQ(folder.Get("row"), "row");
}

}  // namespace
}  // namespace vintoral
