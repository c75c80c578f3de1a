// The program is gone in time, whatever holds it up.
#include "app/LeaveWithin.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace vintoral::test {
namespace {

using namespace std::chrono_literals;

TEST(LeavingDeathTest, TheProcessEndsHoweverLongItsEndTakes) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        LeaveWithin(50ms, 3);
        std::this_thread::sleep_for(60s);
      },
      testing::ExitedWithCode(3), "");
}

}  // namespace
}  // namespace vintoral::test
