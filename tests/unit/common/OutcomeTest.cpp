#include "common/Outcome.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace vintoral {
namespace {

TEST(Outcome, DoneIsTrueAndSilent) {
  testing::internal::CaptureStderr();
  Outcome::Done().PassOver();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(Outcome::Done());
  EXPECT_EQ(Outcome::Done().Error(), 0);
}

TEST(Outcome, FailureSaysWhatWhereAndWhy) {
  const Outcome outcome = Outcome::Failed("write", "/srv/Vintoral.ACT", ENOSPC);
  EXPECT_FALSE(outcome);
  EXPECT_EQ(outcome.Error(), ENOSPC);
  EXPECT_EQ(outcome.Describe(), "write /srv/Vintoral.ACT: No space left on device");
}

TEST(Outcome, PassedOverFailureIsOneLineForSupport) {
  testing::internal::CaptureStderr();
  Outcome::Failed("write", "x", ENOSPC).PassOver();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "vintoral: write x: No space left on device\n");
}

TEST(Outcome, MissingIsNoOtherFailure) {
  EXPECT_TRUE(Outcome::Failed("open", "x", ENOENT).Missing());
  EXPECT_FALSE(Outcome::Failed("open", "x", EACCES).Missing());
  EXPECT_FALSE(Outcome::Done().Missing());
}

TEST(Outcome, FailureWithoutReasonIsStillAFailure) {
  EXPECT_FALSE(Outcome::Failed("write", "x", 0));
}

}  // namespace
}  // namespace vintoral
