#include "platform/PendingSyncs.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

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
