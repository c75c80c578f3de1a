#include "app/EndSignals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <csignal>

namespace vintoral {
namespace {

void RunUntilIdle() {
  for (int i = 0; i < 5; ++i)
    QCoreApplication::processEvents();
}

TEST(EndSignals, EachIsHeardInTheEventLoop) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    int heard = 0;
    const EndSignals signals([&] { ++heard; });
    raise(signal);
    EXPECT_EQ(heard, 0);
    RunUntilIdle();
    EXPECT_EQ(heard, 1);
  }
}

TEST(EndSignals, SecondOneEndsTheProcess) {
  EXPECT_EXIT(
      {
        const EndSignals signals([] { raise(SIGTERM); });
        raise(SIGTERM);
        RunUntilIdle();
      },
      testing::KilledBySignal(SIGTERM), "");
}

TEST(EndSignals, IgnoredOneStaysIgnored) {
  std::signal(SIGHUP, SIG_IGN);
  {
    int heard = 0;
    const EndSignals signals([&] { ++heard; });
    raise(SIGHUP);
    RunUntilIdle();
    EXPECT_EQ(heard, 0);
  }
  std::signal(SIGHUP, SIG_DFL);
}

}  // namespace
}  // namespace vintoral
