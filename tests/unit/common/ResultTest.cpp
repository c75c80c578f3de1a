#include "common/Result.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

namespace vintoral {
namespace {

Result<std::string> Missing() {
  return Outcome::Failed("open", "x", ENOENT);
}

TEST(Result, HoldsAValue) {
  const Result<std::string> result = std::string("text");
  EXPECT_TRUE(result);
  EXPECT_EQ(*result, "text");
  EXPECT_EQ(result->size(), 4u);
  EXPECT_TRUE(result.Why());
}

TEST(Result, OrTheReasonWhyThereIsNone) {
  const Result<std::string> result = Missing();
  EXPECT_FALSE(result);
  EXPECT_EQ(result.Why().Describe(), "open x: No such file or directory");
}

TEST(Result, EqualsItsValueAlone) {
  const std::vector<Result<int>> results = {7, Outcome::Failed("count", "x", EIO)};
  EXPECT_TRUE(results[0] == 7);
  EXPECT_FALSE(results[0] == 8);
  EXPECT_FALSE(results[1] == 0);
}

TEST(Result, PassedOverFailureIsOneLineForSupport) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(Missing().PassOver(), std::nullopt);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "vintoral: open x: No such file or directory\n");
}

TEST(Result, ValueComesOutInSilence) {
  testing::internal::CaptureStderr();
  Result<std::unique_ptr<int>> result(std::make_unique<int>(7));
  EXPECT_EQ(**result.PassOver(), 7);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace vintoral
