#include "platform/WorkBeside.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <vector>

namespace vintoral {
namespace {

using testing::ElementsAre;

TEST(WorkBeside, OneAfterTheOtherOnAThreadOfItsOwn) {
  std::vector<int> done;
  std::vector<std::thread::id> threads;
  WorkBeside beside;
  for (const int i : {1, 2, 3})
    beside.Add([&, i] {
      done.push_back(i);
      threads.push_back(std::this_thread::get_id());
    });
  beside.Await();
  EXPECT_THAT(done, ElementsAre(1, 2, 3));
  EXPECT_THAT(threads, ElementsAre(threads[0], threads[0], threads[0]));
  EXPECT_NE(threads[0], std::this_thread::get_id());
}

TEST(WorkBeside, AwaitAlsoWaitsForWhatTheWorkHeld) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> seen = held;
  WorkBeside beside;
  beside.Add([held = std::move(held)] {});
  beside.Await();
  EXPECT_TRUE(seen.expired());
}

TEST(WorkBeside, ItsEndDoesWhatIsLeft) {
  int done = 0;
  {
    WorkBeside beside;
    for (int i = 0; i < 100; ++i)
      beside.Add([&done] { ++done; });
  }
  EXPECT_EQ(done, 100);
}

TEST(WorkBeside, WithoutWorkThereIsNothingToWaitFor) {
  WorkBeside beside;
  beside.Await();
  beside.Add([] {});
  beside.Await();
  beside.Await();
}

TEST(WorkBeside, SignalsGoToOtherThreads) {
  const auto taken = [](int signal) {
    sigset_t masked;
    pthread_sigmask(SIG_SETMASK, nullptr, &masked);
    return sigismember(&masked, signal) == 0;
  };
  bool beside = true;
  {
    WorkBeside work;
    work.Add([&] { beside = taken(SIGTERM) || taken(SIGXFSZ); });
  }
  EXPECT_FALSE(beside);
  EXPECT_TRUE(taken(SIGTERM));
}

}  // namespace
}  // namespace vintoral
