#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;

/// A station whose timers write down who ticked when, and do nothing else.
class AdvanceTimeTest : public testing::Test {
 protected:
  AdvanceTimeTest() {
    for (Timer* timer : form_.Timers()) {
      timer->OnTick = [this, timer] {
        log_.push_back(timer->Name + " " + std::to_string(station_.Clock.Ticks()));
      };
    }
  }
  void Run(Timer& timer, int interval) {
    timer.SetInterval(interval);
    timer.SetEnabled(true);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  std::vector<std::string> log_;
};

TEST_F(AdvanceTimeTest, TicksComeInOrderOfTime) {
  Run(form_.TmrConexion, 300);
  Run(form_.TmrBarCode, 200);
  station_.Pass(600);
  EXPECT_THAT(log_, ElementsAre("TmrBarCode 200", "TmrConexion 300", "TmrBarCode 400", "TmrConexion 600",
                                "TmrBarCode 600"));
}

TEST_F(AdvanceTimeTest, SimultaneousTicksRunInTheOrderOfTheScreen) {
  for (Timer* timer :
       {&form_.TmrBarCode, &form_.TmrConexion, &form_.TmrMonitor, &form_.TmrHorario, &form_.TmrHoraFecha})
    Run(*timer, 500);
  station_.Pass(500);
  EXPECT_THAT(log_, ElementsAre("TmrHoraFecha 500", "TmrHorario 500", "TmrMonitor 500", "TmrConexion 500",
                                "TmrBarCode 500"));
}

TEST_F(AdvanceTimeTest, ATickAtTheVeryEndStillComesAndOneLaterDoesNot) {
  Run(form_.TmrBarCode, 500);
  station_.Pass(499);
  EXPECT_THAT(log_, IsEmpty());
  station_.Pass(1);
  EXPECT_THAT(log_, ElementsAre("TmrBarCode 500"));
}

TEST_F(AdvanceTimeTest, NothingTicksInNoTime) {
  Run(form_.TmrBarCode, 500);
  station_.Pass(0);
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(AdvanceTimeTest, WallClockAndTicksMoveTogether) {
  station_.Pass(90'000);
  EXPECT_EQ(station_.Clock.Now(), At(14, 1, 30));
  EXPECT_EQ(station_.Clock.Ticks(), 90'000);
}

TEST_F(AdvanceTimeTest, ATickSeesTheWallClockOfItsMoment) {
  Moment seen;
  form_.TmrBarCode.OnTick = [&] { seen = station_.Clock.Now(); };
  Run(form_.TmrBarCode, 1000);
  station_.Pass(1900);
  EXPECT_EQ(seen, At(14, 0, 1));
}

TEST_F(AdvanceTimeTest, ATimerMayTurnOffAnotherThatIsDueAtTheSameMoment) {
  form_.TmrHoraFecha.OnTick = [this] { form_.TmrBarCode.SetEnabled(false); };
  Run(form_.TmrHoraFecha, 500);
  Run(form_.TmrBarCode, 500);
  station_.Pass(500);
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(AdvanceTimeTest, ATimerMayChangeItsOwnInterval) {
  form_.TmrConexion.OnTick = [this] {
    log_.push_back("TmrConexion " + std::to_string(station_.Clock.Ticks()));
    form_.TmrConexion.SetInterval(1000);
  };
  Run(form_.TmrConexion, 300);
  station_.Pass(2400);
  EXPECT_THAT(log_, ElementsAre("TmrConexion 300", "TmrConexion 1300", "TmrConexion 2300"));
}

TEST_F(AdvanceTimeTest, TimersTickOnUnderABox) {
  Run(form_.TmrBarCode, 500);
  station_.Answers = {Answer::kOk};
  station_.UnderBox = [this] { station_.Pass(1000); };
  station_.Screen.Show({"Vintoral"_w, "texto"_w});
  EXPECT_THAT(log_, ElementsAre("TmrBarCode 500", "TmrBarCode 1000"));
}

TEST_F(AdvanceTimeTest, ATickThatWaitsInABoxIsNotEnteredTwiceForOneMoment) {
  form_.TmrBarCode.OnTick = [this] {
    log_.push_back("TmrBarCode " + std::to_string(station_.Clock.Ticks()));
    if (station_.Clock.Ticks() > 500) return;
    station_.Answers = {Answer::kOk};
    station_.UnderBox = [this] { station_.Pass(1200); };
    station_.Screen.Show({"Vintoral"_w, "texto"_w});
  };
  Run(form_.TmrBarCode, 500);
  station_.Pass(2000);
  EXPECT_THAT(log_, ElementsAre("TmrBarCode 500", "TmrBarCode 1000", "TmrBarCode 1500", "TmrBarCode 2000"));
  EXPECT_EQ(station_.Clock.Ticks(), 2000);
}

TEST_F(AdvanceTimeTest, TimeSpentInABoxIsNotSpentAgain) {
  form_.TmrBarCode.OnTick = [this] {
    form_.TmrBarCode.SetEnabled(false);
    station_.Answers = {Answer::kOk};
    station_.UnderBox = [this] { station_.Pass(5000); };
    station_.Screen.Show({"Vintoral"_w, "texto"_w});
  };
  Run(form_.TmrBarCode, 500);
  station_.Pass(1000);
  EXPECT_EQ(station_.Clock.Ticks(), 5500);
}

TEST(NextTick, IsMinusOneWhileNoTimerRuns) {
  MemoryStation station;
  EXPECT_EQ(station.Form.OpenForms.NextTick(), -1);
  station.Form.TmrConexion.SetEnabled(true);
  EXPECT_EQ(station.Form.OpenForms.NextTick(), 3000);
}

TEST(RunTicks, ALateTimerTicksOnce) {
  MemoryStation station;
  int ticks = 0;
  station.Form.TmrBarCode.OnTick = [&] { ++ticks; };
  station.Form.TmrBarCode.SetEnabled(true);
  station.Clock.Advance(10'500);
  station.Form.OpenForms.RunTicks();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(station.Form.OpenForms.NextTick(), 11'500);
}

TEST(RunTicks, NothingTicksAfterTheEnd) {
  MemoryStation station;
  station.StartConnected();
  station.Answers = {Answer::kYes};
  station.Form.CerrarVentana();
  ASSERT_TRUE(station.Form.Terminado());
  EXPECT_EQ(station.Form.OpenForms.NextTick(), -1);
}

}  // namespace
}  // namespace vintoral
