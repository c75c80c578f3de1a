#include "platform/SideBySide.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace vintoral {
namespace {

TEST(SideBySide, DoesEachOnce) {
  for (const std::size_t count : {0U, 1U, 4U, 50U, 1000U}) {
    std::vector<int> done(count);
    SideBySide(count, [&done](std::size_t i) { ++done[i]; });
    EXPECT_THAT(done, testing::Each(1)) << count;
  }
}

TEST(SideBySide, DoesFewWithoutAThread) {
  std::set<std::thread::id> threads;
  SideBySide(3, [&threads](std::size_t) { threads.insert(std::this_thread::get_id()); });
  EXPECT_THAT(threads, testing::ElementsAre(std::this_thread::get_id()));
}

TEST(SideBySide, DoesSeveralAtATime) {
  std::mutex mutex;
  std::condition_variable came;
  std::size_t inside = 0;
  bool four = false;  // are at it at once, each waiting for the others
  SideBySide(20, [&](std::size_t) {
    std::unique_lock lock(mutex);
    four = ++inside >= 4 || four;
    came.notify_all();
    came.wait_for(lock, std::chrono::seconds(2), [&four] { return four; });
    --inside;
  });
  EXPECT_TRUE(four);
}

}  // namespace
}  // namespace vintoral
