// Message boxes: their buttons, their keys, and what goes on beneath them.
#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "gui/Gate.h"

namespace vintoral::test {
namespace {

class Boxes : public Gate {
 protected:
  using Hook = std::function<void(QMessageBox&)>;
  /// The answer to a box of `buttons` when `hook` runs in it.
  Answer Ask(std::vector<Answer> buttons, Answer preselected, const Hook& hook) {
    screen_.OnShown = [&](QMessageBox& dialog, const Box&) { hook(dialog); };
    return screen_.Show({"Título"_w, "¿Sí?"_w, Icon::kExclamation, std::move(buttons), preselected});
  }
  static Hook Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return [=](QMessageBox& dialog) {
      QTest::keyClick(dialog.windowHandle(), key, modifiers);
      // A letter presses its button for a moment, as a finger would.
      for (int i = 0; dialog.isVisible() && i < 100; ++i)
        QTest::qWait(10);
    };
  }
};

const std::vector<Answer> kYesNo = {Answer::kYes, Answer::kNo};

TEST_F(Boxes, WhatLooksLikeMarkupIsText) {
  Ask(kYesNo, Answer::kNo, [](QMessageBox& dialog) {
    EXPECT_EQ(dialog.textFormat(), Qt::PlainText);
    dialog.reject();
  });
}

TEST_F(Boxes, ButtonsStandInOrderWithSpanishNames) {
  QStringList names;
  const Answer answer =
      Ask({Answer::kYes, Answer::kNo, Answer::kCancel}, Answer::kNo, [&](QMessageBox& dialog) {
        std::vector<std::pair<int, QString>> places;
        for (QAbstractButton* button : dialog.buttons())
          places.emplace_back(button->x(), button->text());
        std::sort(places.begin(), places.end());
        for (const auto& place : places)
          names << place.second;
        EXPECT_EQ(dialog.defaultButton()->text(), "&No");
        EXPECT_EQ(dialog.text(), "¿Sí?");
        dialog.reject();
      });
  EXPECT_EQ(names, QStringList({"&Sí", "&No", "&Cancelar"}));
  EXPECT_EQ(answer, Answer::kCancel);
}

TEST_F(Boxes, EnterTakesThePreselected) {
  EXPECT_EQ(Ask(kYesNo, Answer::kYes, Press(Qt::Key_Return)), Answer::kYes);
  EXPECT_EQ(Ask(kYesNo, Answer::kNo, Press(Qt::Key_Return)), Answer::kNo);
}

TEST_F(Boxes, EscChangesNothing) {
  EXPECT_EQ(Ask(kYesNo, Answer::kYes, Press(Qt::Key_Escape)), Answer::kNo);
  EXPECT_EQ(Ask({Answer::kOk}, Answer::kOk, Press(Qt::Key_Escape)), Answer::kOk);
}

TEST_F(Boxes, AltAndTheFirstLetterAnswer) {
  EXPECT_EQ(Ask(kYesNo, Answer::kNo, Press(Qt::Key_S, Qt::AltModifier)), Answer::kYes);
  EXPECT_EQ(Ask(kYesNo, Answer::kYes, Press(Qt::Key_N, Qt::AltModifier)), Answer::kNo);
}

// What is typed right behind the letter is for the station.
TEST_F(Boxes, AltAndTheFirstLetterAnswerAtOnce) {
  const Answer answer = Ask(kYesNo, Answer::kNo, [](QMessageBox& dialog) {
    ASSERT_TRUE(dialog.isVisible());
    QTest::keyPress(dialog.windowHandle(), Qt::Key_S, Qt::AltModifier);
    EXPECT_FALSE(dialog.isVisible());
    dialog.reject();
  });
  EXPECT_EQ(answer, Answer::kYes);
}

TEST_F(Boxes, ALetterAloneAnswersNothing) {
  const Answer answer = Ask(kYesNo, Answer::kNo, [](QMessageBox& dialog) {
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_N, Qt::Key_A, Qt::Key_1}) {
      QTest::keyClick(dialog.windowHandle(), key);
      QTest::keyClick(dialog.windowHandle(), key, Qt::ShiftModifier);
      QTest::qWait(150);  // a letter would press its button for a moment, as a finger does
      EXPECT_TRUE(dialog.isVisible()) << key;
    }
    dialog.buttons().at(0)->click();
  });
  EXPECT_EQ(answer, Answer::kYes);
}

TEST_F(Boxes, KeysThatTellNoTimeAreTimedAsTheyCome) {
  const Answer answer = Ask(kYesNo, Answer::kYes, [](QMessageBox& dialog) {
    const auto press = [&](Qt::Key key, const QString& text) {
      QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
      ASSERT_EQ(event.timestamp(), 0U);
      QCoreApplication::sendEvent(dialog.windowHandle(), &event);
    };
    press(Qt::Key_X, "x");
    press(Qt::Key_Return, "\r");
    EXPECT_TRUE(dialog.isVisible());
    QTest::qWait(KeyBurst::kGap + 10);
    press(Qt::Key_Return, "\r");
    EXPECT_FALSE(dialog.isVisible());
    dialog.reject();
  });
  EXPECT_EQ(answer, Answer::kYes);
}

TEST_F(Boxes, KeysWalkOverTheButtonsAndSpacePressesOne) {
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Right}) {
    const Answer answer = Ask(kYesNo, Answer::kYes, [&](QMessageBox& dialog) {
      QTest::qWait(KeyBurst::kGap + 10);  // behind the keys of the box before
      QTest::keyClick(dialog.windowHandle(), key);
      QTest::keyClick(dialog.windowHandle(), Qt::Key_Space);
      EXPECT_FALSE(dialog.isVisible());
      dialog.reject();
    });
    EXPECT_EQ(answer, Answer::kNo) << key;
  }
}

TEST_F(Boxes, AProgramThatEndsAnswersHarmlessly) {
  const Answer answer = Ask(kYesNo, Answer::kYes, [&](QMessageBox&) { seam_.Ended = [] { return true; }; });
  EXPECT_EQ(answer, Answer::kNo);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Boxes, TimersTickBeneath) {
  Start();
  Type("7");
  Key(Qt::Key_Return);
  QString clock;
  screen_.OnShown = [&](QMessageBox& dialog, const Box&) {
    Advance(61'000);
    clock = Shown("LblFechaEnt");
    dialog.reject();
  };
  Key(Qt::Key_Insert);
  EXPECT_EQ(clock, "14:01  (20/11/2026)");
}

TEST_F(Boxes, TheWindowIsUpToDateBehindABox) {
  Start();
  Type("7");
  Key(Qt::Key_Return);
  bool message = false;
  screen_.OnShown = [&](QMessageBox& dialog, const Box&) {
    message = Face("LblWebCamMsg").isVisible();
    dialog.reject();
  };
  Key(Qt::Key_Insert);
  EXPECT_TRUE(message);
}

TEST_F(Boxes, KeysOfABoxDoNotReachTheStation) {
  Start();
  Type("7");
  Key(Qt::Key_Return);
  screen_.OnShown = [&](QMessageBox& dialog, const Box&) {
    QTest::keyClick(dialog.windowHandle(), Qt::Key_9);
    EXPECT_EQ(Shown("TxtCampo(1)"), "");
    dialog.reject();
  };
  Key(Qt::Key_Insert);
  EXPECT_EQ(Shown("TxtCampo(1)"), "");
}

}  // namespace
}  // namespace vintoral::test
