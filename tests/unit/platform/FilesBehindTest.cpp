// Files that are made while the station goes on: who waits for them, and who doesn't.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "platform/PosixDisk.h"
#include "support/TempFolder.h"

namespace vintoral::test {
namespace {

using testing::ElementsAre;

const String kPhoto = "Fotos\\000007.jpg"_w;

class FilesBehindTest : public testing::Test {
 protected:
  FilesBehindTest() { disk_.CreateFolder("Fotos").PassOver(); }
  ~FilesBehindTest() override { Go(); }
  /// A photo that is made once Go is called.
  void Begin(const String& path = kPhoto, const char* bytes = "new") {
    disk_.Behind({path}, [this, path, bytes](Disk& disk) {
      gate_.wait();
      made_.push_back(path);
      disk.CreateNew(path, bytes).PassOver();
    });
  }
  void Go() {
    if (!std::exchange(gone_, true)) go_.set_value();
  }
  /// Does `ask` return only after the photo may be made?
  template <class Ask>
  bool Waits(Ask ask) {
    std::atomic<bool> answered = false;
    std::thread asking([&] {
      ask();
      answered = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    const bool waited = !answered;
    Go();
    asking.join();
    return waited;
  }

  TempFolder folder_;
  std::promise<void> go_;
  std::shared_future<void> gate_ = go_.get_future().share();
  bool gone_ = false;
  std::vector<String> made_;
  PosixDisk disk_{folder_.Path(), PosixDisk::Work::kBeside};
};

TEST_F(FilesBehindTest, TheStationGoesOnMeanwhile) {
  Begin();
  EXPECT_FALSE(disk_.NothingBehind());
  const std::vector<String> names = {"000007.jpg"_w};
  EXPECT_EQ(disk_.LookIn("Fotos", names)[0], std::nullopt);
  EXPECT_FALSE(disk_.Exists("Vintoral.ACT"));
  Go();
  disk_.Settle();
  EXPECT_TRUE(disk_.NothingBehind());
  EXPECT_NE(disk_.LookIn("Fotos", names)[0], std::nullopt);
}

TEST_F(FilesBehindTest, WhoAsksForTheFileFindsIt) {
  Begin();
  bool there = false;
  EXPECT_TRUE(Waits([&] { there = disk_.Exists(kPhoto); }));
  EXPECT_TRUE(there);
}

TEST_F(FilesBehindTest, ItsBytesAreWaitedFor) {
  Begin();
  String bytes;
  EXPECT_TRUE(Waits([&] { bytes = disk_.ReadAll(kPhoto).PassOver().value_or(String()); }));
  EXPECT_EQ(bytes, "new"_w);
}

TEST_F(FilesBehindTest, ACopyIsMadeOfWhatWasMade) {
  Begin();
  EXPECT_TRUE(Waits([&] { disk_.Copy(kPhoto, "Fotos\\copy.jpg").PassOver(); }));
  EXPECT_EQ(disk_.ReadAll("Fotos\\copy.jpg").PassOver().value_or(String()), "new"_w);
}

TEST_F(FilesBehindTest, WhatIsRemovedStaysAway) {
  Begin();
  EXPECT_TRUE(Waits([&] { EXPECT_TRUE(disk_.Remove(kPhoto)); }));
  EXPECT_FALSE(disk_.Exists(kPhoto));
}

TEST_F(FilesBehindTest, AFolderIsMovedWithAllThatBelongsIntoIt) {
  Begin();
  EXPECT_TRUE(Waits([&] { EXPECT_TRUE(disk_.Move("Fotos", "Otras")); }));
  EXPECT_TRUE(disk_.Exists("Otras\\000007.jpg"));
}

TEST_F(FilesBehindTest, AFolderIsListedWithAllThatBelongsIntoIt) {
  Begin();
  std::vector<String> names;
  EXPECT_TRUE(Waits([&] { names = disk_.List("Fotos", ".jpg"); }));
  EXPECT_THAT(names, ElementsAre("000007.jpg"_w));
}

TEST_F(FilesBehindTest, OneAfterTheOther) {
  Begin(kPhoto, "first");
  Begin("Fotos\\000008.jpg"_w, "second");
  Begin(kPhoto, "too late");  // there is one of that name
  Go();
  disk_.Settle();
  EXPECT_THAT(made_, ElementsAre(kPhoto, "Fotos\\000008.jpg"_w, kPhoto));
  EXPECT_EQ(disk_.ReadAll(kPhoto).PassOver().value_or(String()), "first"_w);
}

TEST_F(FilesBehindTest, APhotoWaitsUntilItsSaleIsOnTheDisk) {
  Go();
  disk_.BeginTogether();
  Begin();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  const std::vector<String> names = {"000007.jpg"_w};
  EXPECT_EQ(disk_.LookIn("Fotos", names)[0], std::nullopt);
  EXPECT_FALSE(disk_.NothingBehind());
  disk_.EndTogether().PassOver();
  disk_.Settle();
  EXPECT_NE(disk_.LookIn("Fotos", names)[0], std::nullopt);
}

TEST_F(FilesBehindTest, WhoAsksForItMeanwhileHasIt) {
  Go();
  disk_.BeginTogether();
  Begin();
  EXPECT_TRUE(disk_.Exists(kPhoto));
  disk_.EndTogether().PassOver();
}

TEST_F(FilesBehindTest, WhatIsLeftIsDoneAtTheEnd) {
  {
    PosixDisk disk(folder_.Path(), PosixDisk::Work::kBeside);
    disk.Behind({kPhoto}, [](Disk& work) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      work.CreateNew(kPhoto, "late").PassOver();
    });
  }
  EXPECT_TRUE(disk_.Exists(kPhoto));
}

TEST_F(FilesBehindTest, ADiskThatIsWatchedFromOutsideDoesItAtOnce) {
  PosixDisk disk(folder_.Path());
  const std::thread::id self = std::this_thread::get_id();
  std::thread::id worker;
  disk.Behind({kPhoto}, [&](Disk& work) {
    worker = std::this_thread::get_id();
    work.CreateNew(kPhoto, "now").PassOver();
  });
  EXPECT_EQ(worker, self);
  EXPECT_TRUE(disk.NothingBehind());
  EXPECT_TRUE(disk.Exists(kPhoto));
}

}  // namespace
}  // namespace vintoral::test
