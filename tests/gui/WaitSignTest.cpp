// What is shown while the station waits for the folder, and where a key goes that was kept meanwhile.
#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTest>
#include <map>

#include "gui/Gate.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/Light.h"
#include "window/form1/GridPanel.h"
#include "window/form1/ToolBar.h"
#include "window/form1/WaitSign.h"

namespace vintoral::test {
namespace {

class WaitSigns : public Gate {
 protected:
  WaitSigns() { Start(); }
  WaitSign& Sign() { return window_->Waiting(); }
  QString Text() { return Sign().findChild<CaptionLabel*>()->Caption(); }
  QWidget& Grid() { return *Sign().parentWidget(); }
  /// Of all widgets but the sign's own.
  std::map<QWidget*, QRect> Places() {
    std::map<QWidget*, QRect> places;
    for (QWidget* const widget : window_->findChildren<QWidget*>()) {
      if (widget != &Sign() && !Sign().isAncestorOf(widget)) places[widget] = widget->geometry();
    }
    return places;
  }
  const std::vector<Light*>& Bars() { return window_->findChild<ToolBar*>()->Bars(); }
  std::vector<QImage> BarPictures() {
    std::vector<QImage> pictures;
    for (Light* const bar : Bars())
      pictures.push_back(Picture(*bar));
    return pictures;
  }
};

TEST_F(WaitSigns, SaysWhatIsWaitedForInWholeSeconds) {
  EXPECT_FALSE(Sign().isVisible());
  Sign().ShowWait(4321);
  EXPECT_TRUE(Sign().isVisible());
  EXPECT_EQ(Text(), "Esperando la carpeta compartida… 4 s");
  Sign().ShowWait(4999);
  EXPECT_EQ(Text(), "Esperando la carpeta compartida… 4 s");
  Sign().ShowWait(125000);
  EXPECT_EQ(Text(), "Esperando la carpeta compartida… 125 s");
  EXPECT_TRUE(Sign().findChild<CaptionLabel*>()->Fits());
  Sign().ShowNone();
  EXPECT_FALSE(Sign().isVisible());
}

TEST_F(WaitSigns, LiesOverTheGridAndMovesNothing) {
  const auto before = Places();
  ASSERT_GT(before.size(), 50U);
  Sign().ShowWait(4321);
  QCoreApplication::processEvents();
  EXPECT_EQ(Places(), before);
  const QRect place = Sign().geometry();
  EXPECT_NE(dynamic_cast<GridPanel*>(&Grid()), nullptr);
  EXPECT_TRUE(Grid().rect().contains(place));
  EXPECT_GT(place.width(), Grid().width() * 9 / 10);
  EXPECT_GT(place.top(), Face("LblInfo(0)").mapTo(&Grid(), Face("LblInfo(0)").rect().bottomLeft()).y());
  Sign().ShowNone();
  QCoreApplication::processEvents();
  EXPECT_EQ(Places(), before);
}

TEST_F(WaitSigns, KeepsItsPlaceInALargerWindow) {
  Sign().ShowWait(1000);
  const int before = Sign().width(), beside = Grid().width() - before;
  window_->resize(1920, 1080);
  QCoreApplication::processEvents();
  EXPECT_GT(Sign().width(), before);
  EXPECT_EQ(Grid().width() - Sign().width(), beside);
}

TEST_F(WaitSigns, ThePointerPassesThroughIt) {
  const QPoint middle = Sign().mapTo(window_.get(), Sign().rect().center());
  QWidget* const beneath = window_->childAt(middle);
  ASSERT_NE(beneath, nullptr);
  Sign().ShowWait(4321);
  EXPECT_EQ(window_->childAt(middle), beneath);
}

TEST_F(WaitSigns, TheBarsPulseAndAreThemselvesAgain) {
  const std::vector<QImage> before = BarPictures();
  ASSERT_EQ(before.size(), 3U);
  Sign().ShowWait(4000);  // two pulses and a half: the faintest
  const std::vector<QImage> faint = BarPictures();
  for (std::size_t i = 0; i < before.size(); ++i)
    EXPECT_NE(faint[i], before[i]);
  Sign().ShowWait(4800);  // three pulses
  EXPECT_EQ(BarPictures(), before);
  Sign().ShowWait(4000);
  EXPECT_EQ(BarPictures(), faint);
  Sign().ShowNone();
  EXPECT_EQ(BarPictures(), before);
}

/// Keys that were kept, in a box.
class KeptInBoxes : public Gate {
 protected:
  bool ToBox(int key, Qt::KeyboardModifiers modifiers, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    event.setTimestamp(at_ += 1000);  // of a hand
    return screen_.ToBox(&event);
  }
  Answer Ask(Answer preselected, const std::function<void(QMessageBox&)>& hook) {
    screen_.OnShown = [&](QMessageBox& dialog, const Box&) {
      hook(dialog);
      dialog.reject();  // whatever is still up
    };
    return screen_.Show({"Título"_w, "¿Sí?"_w, Icon::kNone, {Answer::kYes, Answer::kNo}, preselected});
  }
  quint64 at_ = 1'000'000;
};

TEST_F(KeptInBoxes, WithoutABoxNobodyTakesThem) {
  EXPECT_FALSE(ToBox(Qt::Key_Return, Qt::NoModifier, "\r"));
  EXPECT_FALSE(screen_.ToBox(nullptr));
}

TEST_F(KeptInBoxes, AltAndALetterAnswer) {
  EXPECT_EQ(Ask(Answer::kNo, [&](QMessageBox&) { EXPECT_TRUE(ToBox(Qt::Key_S, Qt::AltModifier)); }),
            Answer::kYes);
}

TEST_F(KeptInBoxes, EnterTakesThePreselected) {
  EXPECT_EQ(Ask(Answer::kYes, [&](QMessageBox&) { ToBox(Qt::Key_Return, Qt::NoModifier, "\r"); }),
            Answer::kYes);
}

TEST_F(KeptInBoxes, EachIsOfTheTimeAtWhichItWasTyped) {
  const auto hand = [&](QMessageBox&) {
    ToBox(Qt::Key_5, Qt::NoModifier, "5");
    ToBox(Qt::Key_Return, Qt::NoModifier, "\r");
  };
  EXPECT_EQ(Ask(Answer::kYes, hand), Answer::kYes) << "both come at once, and a hand typed them";
}

TEST_F(KeptInBoxes, SpacePressesWhereTheKeyboardIs) {
  const auto press = [&](QMessageBox&) {
    ToBox(Qt::Key_Left, Qt::NoModifier);
    ToBox(Qt::Key_Space, Qt::NoModifier, " ");
  };
  EXPECT_EQ(Ask(Answer::kNo, press), Answer::kYes);
}

TEST_F(KeptInBoxes, EscIsHarmless) {
  EXPECT_EQ(Ask(Answer::kYes,
                [&](QMessageBox& dialog) {
                  EXPECT_TRUE(ToBox(Qt::Key_Escape, Qt::NoModifier));
                  EXPECT_FALSE(dialog.isVisible());
                }),
            Answer::kNo);
}

TEST_F(KeptInBoxes, AMereCharacterAnswersNothing) {
  Ask(Answer::kYes, [&](QMessageBox& dialog) {
    EXPECT_TRUE(ToBox(Qt::Key_S, Qt::NoModifier, "s"));
    EXPECT_TRUE(screen_.ToBox(nullptr));
    QTest::qWait(150);
    EXPECT_TRUE(dialog.isVisible());
  });
}

TEST_F(KeptInBoxes, TheStationsAnswersAreTold) {
  std::vector<std::pair<std::string, Answer>> told;
  screen_.OnAnswered = [&](const Box& box, Answer answer) { told.emplace_back(box.title.ToUtf8(), answer); };
  Ask(Answer::kNo, [&](QMessageBox&) { ToBox(Qt::Key_S, Qt::AltModifier); });
  EXPECT_EQ(told, (std::vector<std::pair<std::string, Answer>>{{"Título", Answer::kYes}}));
}

TEST_F(KeptInBoxes, NoAnswerToWhatTheWindowAsksByItself) {
  const Box box{"Cerrar"_w, "¿Salir?"_w, Icon::kNone, {Answer::kYes, Answer::kNo}, Answer::kNo};
  int answers = 0, ups = 0;
  screen_.OnUp = [&] { ++ups; };
  screen_.OnShown = nullptr;
  const std::unique_ptr<QMessageBox> own(&screen_.Ask(box, [&](Answer) { ++answers; }));
  EXPECT_FALSE(ToBox(Qt::Key_Return, Qt::NoModifier, "\r"));
  EXPECT_FALSE(ToBox(Qt::Key_S, Qt::AltModifier));
  EXPECT_FALSE(screen_.ToBox(nullptr));
  EXPECT_TRUE(own->isVisible());
  EXPECT_EQ(answers, 0);
  EXPECT_EQ(ups, 0) << "nothing is taken back for it";
  // One of the station's that comes up over it takes them.
  screen_.OnShown = [&](QMessageBox& dialog, const Box&) {
    EXPECT_TRUE(ToBox(Qt::Key_S, Qt::AltModifier));
    dialog.reject();
  };
  EXPECT_EQ(screen_.Show(box), Answer::kYes);
  EXPECT_EQ(ups, 1);
  EXPECT_TRUE(own->isVisible());
}

bool IsHourglass() {
  const QCursor* const pointer = QApplication::overrideCursor();
  return pointer != nullptr && pointer->shape() == Qt::WaitCursor;
}

TEST_F(KeptInBoxes, WhatTheWindowAsksByItselfIsAnsweredWithAnArrow) {
  const Box box{"Cerrar"_w, "¿Salir?"_w, Icon::kNone, {Answer::kYes, Answer::kNo}, Answer::kNo};
  screen_.OnShown = nullptr;
  screen_.ShowLate(true);
  ASSERT_TRUE(IsHourglass());
  std::unique_ptr<QMessageBox> own(&screen_.Ask(box, [](Answer) {}));
  EXPECT_FALSE(IsHourglass());
  screen_.Busy(true);
  screen_.ShowLate(true);
  EXPECT_FALSE(IsHourglass());
  own->reject();
  EXPECT_TRUE(IsHourglass());
  own.reset(&screen_.Ask(box, [](Answer) {}));
  ASSERT_FALSE(IsHourglass());
  own.reset();
  EXPECT_TRUE(IsHourglass());
  screen_.Busy(false);
  screen_.ShowLate(false);
  EXPECT_FALSE(IsHourglass());
}

}  // namespace
}  // namespace vintoral::test
