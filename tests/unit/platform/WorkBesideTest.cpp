#include "platform/WorkBeside.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <csignal>
#include <memory>
#include <thread>
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

/// No memory takes the stacks of its threads.
class NoThreads {
 public:
  NoThreads() {
    pthread_attr_t attributes;
    pthread_getattr_default_np(&attributes);
    pthread_attr_getstacksize(&attributes, &stack_);
    pthread_attr_destroy(&attributes);
    Set(std::size_t{1} << 60);
  }
  NoThreads(const NoThreads&) = delete;
  NoThreads& operator=(const NoThreads&) = delete;
  ~NoThreads() { Set(stack_); }

 private:
  static void Set(std::size_t stack) {
    pthread_attr_t attributes;
    pthread_getattr_default_np(&attributes);
    pthread_attr_setstacksize(&attributes, stack);
    EXPECT_EQ(pthread_setattr_default_np(&attributes), 0);
    pthread_attr_destroy(&attributes);
  }
  std::size_t stack_ = 0;
};

TEST(WorkBeside, DoesItHereWhereThereIsNoThread) {
  std::vector<std::thread::id> threads;
  WorkBeside beside;
  const auto note = [&] { threads.push_back(std::this_thread::get_id()); };
  {
    const NoThreads none;
    beside.Add(note);
    EXPECT_THAT(threads, ElementsAre(std::this_thread::get_id()));
  }
  beside.Add(note);
  beside.Await();
  ASSERT_EQ(threads.size(), 2u);
  EXPECT_NE(threads[1], std::this_thread::get_id());
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
