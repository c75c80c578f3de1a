// Work under the append lock: what other gates wait for, and what they don't.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "records/Register.h"
#include "records/RegistroUsuario.h"
#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::FaultyDisk;
using test::MemoryDisk;
using Users = Register<RegistroUsuario>;

RegistroUsuario User(std::string_view plate) {
  RegistroUsuario user;
  user.Placa = plate;
  return user;
}

class UnderLockTest : public testing::Test {
 protected:
  Users OneUser() {
    memory_.Put("USR", test::Encoded(User("A")));
    return {disk_, "USR", OpenMode::kReadWrite};
  }
  MemoryDisk memory_;
  FaultyDisk disk_{memory_};
  Users users_ = OneUser();
};

TEST_F(UnderLockTest, WorkIsDoneWhileOtherGatesWait) {
  ASSERT_EQ(memory_.Locked(), 0);
  EXPECT_TRUE(users_.UnderLock([&]() -> Outcome {
    EXPECT_EQ(memory_.Locked(), 1);
    EXPECT_TRUE(memory_.UsedUnderLock().empty());
    EXPECT_EQ(users_.Read(1)->Placa.Trimmed(), "A"_w);
    EXPECT_EQ(memory_.UsedUnderLock().size(), 1u);
    return users_.Write(2, User("B"), false);
  }));
  EXPECT_EQ(memory_.Locked(), 1);
  EXPECT_EQ(memory_.Get("USR"), test::Encoded(User("A")) + test::Encoded(User("B")));
}

TEST_F(UnderLockTest, TheLockIsGivenBackBeforeTheDiskIsWaitedFor) {
  EXPECT_TRUE(users_.UnderLock([&] {
    EXPECT_EQ(memory_.Syncs(), 0);
    return Outcome::Done();
  }));
  EXPECT_EQ(memory_.Syncs(), 1);
  const std::size_t before = memory_.UsedUnderLock().size();
  EXPECT_TRUE(users_.Read(1));
  EXPECT_EQ(memory_.UsedUnderLock().size(), before);
}

TEST_F(UnderLockTest, WorkThatFailedIsNotWaitedForAndTellsWhy) {
  const Outcome done = users_.UnderLock([] { return Outcome::Failed("do", "it", EPERM); });
  EXPECT_EQ(done.Error(), EPERM);
  EXPECT_EQ(memory_.Syncs(), 0);
  EXPECT_TRUE(users_.Read(1));
  EXPECT_TRUE(memory_.UsedUnderLock().empty());  // the lock is given back all the same
}

TEST_F(UnderLockTest, ADiskThatKeepsNothingIsTold) {
  disk_.Set().failSync = true;
  EXPECT_EQ(users_.UnderLock([] { return Outcome::Done(); }).Error(), EIO);
}

TEST_F(UnderLockTest, AClosedRegisterDoesNoWork) {
  Users missing(disk_, "NO", OpenMode::kReadWrite);
  bool worked = false;
  const Outcome done = missing.UnderLock([&] {
    worked = true;
    return Outcome::Done();
  });
  EXPECT_EQ(done.Error(), ENOENT);
  EXPECT_FALSE(worked);
  EXPECT_EQ(memory_.Locked(), 0);
}

}  // namespace
}  // namespace vintoral
