#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;

const Box kQuestion{"Pregunta"_w, "¿Sí?"_w, Icon::kExclamation, {Answer::kYes, Answer::kNo}, Answer::kNo};
const Box kThreeWays{
    "Pregunta"_w, "¿Sí?"_w, Icon::kQuestion, {Answer::kYes, Answer::kNo, Answer::kCancel}, Answer::kYes};
const Box kNotice{"Aviso"_w, "Listo."_w};

class RecordingScreenTest : public testing::Test {
 protected:
  Recording events_;
  VirtualClock clock_;
  RecordingScreen screen_{events_, clock_};
};

TEST_F(RecordingScreenTest, ABoxIsUpUntilItIsAnswered) {
  screen_.OnWait = [&] {
    ASSERT_NE(screen_.Shown(), nullptr);
    EXPECT_EQ(screen_.Shown()->title, "Pregunta"_w);
    EXPECT_TRUE(screen_.Answer(Answer::kYes));
  };
  EXPECT_EQ(screen_.Show(kQuestion), Answer::kYes);
  EXPECT_EQ(screen_.Shown(), nullptr);
}

TEST_F(RecordingScreenTest, AButtonThatIsNotThereIsNoAnswer) {
  int waits = 0;
  screen_.OnWait = [&] {
    ++waits;
    EXPECT_FALSE(screen_.Answer(Answer::kCancel));
    if (waits == 3) screen_.Answer(Answer::kNo);
  };
  EXPECT_EQ(screen_.Show(kQuestion), Answer::kNo);
  EXPECT_EQ(waits, 3);
}

TEST_F(RecordingScreenTest, WithoutABoxThereIsNothingToAnswer) {
  EXPECT_FALSE(screen_.Answer(Answer::kOk));
}

TEST_F(RecordingScreenTest, TheInnerBoxIsAnsweredFirstAndTheOuterStaysUp) {
  int waits = 0;
  screen_.OnWait = [&] {
    if (++waits == 1) {
      EXPECT_EQ(screen_.Show(kNotice), Answer::kOk);
      EXPECT_EQ(screen_.Shown()->title, "Pregunta"_w);
    } else if (screen_.Shown()->title == "Aviso"_w) {
      EXPECT_FALSE(screen_.Answer(Answer::kYes));
      EXPECT_TRUE(screen_.Answer(Answer::kOk));
    } else {
      EXPECT_TRUE(screen_.Answer(Answer::kYes));
    }
  };
  EXPECT_EQ(screen_.Show(kQuestion), Answer::kYes);
  EXPECT_EQ(waits, 3);
  EXPECT_EQ(screen_.Shown(), nullptr);
}

TEST_F(RecordingScreenTest, AnAnswerDoesNotServeTheNextBox) {
  screen_.OnWait = [&] { screen_.Answer(Answer::kYes); };
  screen_.Show(kQuestion);
  int waits = 0;
  screen_.OnWait = [&] {
    ++waits;
    screen_.Answer(Answer::kNo);
  };
  EXPECT_EQ(screen_.Show(kQuestion), Answer::kNo);
  EXPECT_EQ(waits, 1);
}

TEST_F(RecordingScreenTest, WhenTheProgramEndsEveryBoxAnswersWhatChangesNothing) {
  screen_.OnWait = [&] { screen_.Close(); };
  EXPECT_EQ(screen_.Show(kThreeWays), Answer::kCancel);
  EXPECT_EQ(screen_.Show(kQuestion), Answer::kNo);
  EXPECT_EQ(screen_.Show(kNotice), Answer::kOk);
}

TEST_F(RecordingScreenTest, AnAnswerGivenAsTheProgramEndsDoesNotCount) {
  screen_.OnWait = [&] {
    screen_.Answer(Answer::kYes);
    screen_.Close();
  };
  EXPECT_EQ(screen_.Show(kQuestion), Answer::kNo);
}

TEST_F(RecordingScreenTest, EndingUnderNestedBoxesClosesAll) {
  int waits = 0;
  screen_.OnWait = [&] {
    if (++waits == 1) {
      EXPECT_EQ(screen_.Show(kNotice), Answer::kOk);
    } else {
      screen_.Close();
    }
  };
  EXPECT_EQ(screen_.Show(kQuestion), Answer::kNo);
  EXPECT_EQ(screen_.Shown(), nullptr);
}

TEST_F(RecordingScreenTest, AWaitBrokenOffTakesTheBoxDown) {
  struct BrokenOff {};
  screen_.OnWait = [] { throw BrokenOff(); };
  EXPECT_THROW(screen_.Show(kQuestion), BrokenOff);
  EXPECT_EQ(screen_.Shown(), nullptr);
}

TEST(Recording, EventsComeInOrderAndOnce) {
  Recording events;
  const VirtualClock clock;
  RecordingScreen screen(events, clock);
  RecordingSystem system(events, screen);
  RecordingSound sound(events);
  sound.Play("Sonidos\\Vintoral-5.wav", false);
  screen.Beep();
  system.Launch("Explorer.exe Fondos");
  system.End();
  using Kind = DeviceEvent::Kind;
  EXPECT_THAT(events.Take(), ElementsAre(DeviceEvent{Kind::kSound, "Sonidos\\Vintoral-5.wav"_w, false},
                                         DeviceEvent{Kind::kBeep, {}, false},
                                         DeviceEvent{Kind::kLaunch, "Explorer.exe Fondos"_w, false},
                                         DeviceEvent{Kind::kEnd, {}, false}));
  EXPECT_THAT(events.Take(), IsEmpty());
}

TEST(RecordingSystem, ShortcutsAreRealFilesOnTheGivenDesktop) {
  const TempFolder desktop;
  Recording events;
  const VirtualClock clock;
  RecordingScreen screen(events, clock);
  RecordingSystem system(events, screen);
  system.Desktop = desktop.Path();
  EXPECT_FALSE(system.HasShortcut("Vintoral"));
  EXPECT_TRUE(system.CreateShortcut({"Vintoral"_w, "/opt\\v.ico"_w, "/opt"_w}));
  EXPECT_TRUE(system.HasShortcut("Vintoral"));
  EXPECT_TRUE(std::filesystem::exists(desktop.Path("Vintoral.desktop")));
}

TEST(RecordingSystem, WithoutADesktopThereIsNoShortcut) {
  Recording events;
  const VirtualClock clock;
  RecordingScreen screen(events, clock);
  RecordingSystem system(events, screen);
  EXPECT_FALSE(system.CreateShortcut({"Vintoral"_w, {}, {}}));
  EXPECT_FALSE(system.HasShortcut("Vintoral"));
}

}  // namespace
}  // namespace vintoral
