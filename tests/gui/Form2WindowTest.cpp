// The window of the search, which stands beside the main one: whose the keys are, and how far a search is.
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "gui/Gate.h"
#include "reports/form2/Form2.h"
#include "station/forms/Forms.h"
#include "support/Bytes.h"
#include "window/controls/DialogWindow.h"

namespace vintoral::test {
namespace {

class Searches : public Gate {
 protected:
  void Open() {
    Start();
    RegistroFicha left;
    left.EnUso = true;
    left.NumeroFicha = "0009";
    left.Placa = "KLM483";
    left.MarcaSalida = "13:45  (20/11/2026)";
    folder_.Put("Multimedia/Vintoral.HST", Encoded(RegistroFicha{}) + Encoded(left));
    Key(Qt::Key_F5);
    ASSERT_NE(form_->Form2, nullptr);
    QCoreApplication::processEvents();
  }
  bool HasKeys(const Form& form) const { return &form_->OpenForms.Active() == &form; }
  /// Enter in the last box.
  void Search() {
    Click("TxtCampo(9)");
    Key(Qt::Key_Return);
    QCoreApplication::processEvents();
  }
};

TEST_F(Searches, StandsBesideTheMainWindow) {
  Open();
  EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Búsqueda de Registros"));
  EXPECT_EQ(Front().windowModality(), Qt::NonModal);
  EXPECT_TRUE(Front().isActiveWindow());
  EXPECT_EQ(Focused(), "TxtCampo(4)");
  Type("12");
  EXPECT_EQ(Shown("TxtCampo(4)"), "12");
  EXPECT_EQ(form_->TxtCampo[0].Text(), ""_w);
}

TEST_F(Searches, WhatIsFoundBringsTheMainWindowForward) {
  Open();
  ASSERT_FALSE(window_->isActiveWindow());
  Search();
  ASSERT_EQ(form_->TotalVista(), 1);
  EXPECT_TRUE(HasKeys(*form_));
  EXPECT_TRUE(window_->isActiveWindow());
  EXPECT_NE(form_->Form2, nullptr);
}

TEST_F(Searches, WhicheverWindowIsBroughtForwardHasTheKeys) {
  Open();
  Search();
  dialogs_->Find("Form2")->activateWindow();
  QCoreApplication::processEvents();
  EXPECT_TRUE(HasKeys(*form_->Form2));
  Type("7");
  EXPECT_EQ(Shown("TxtCampo(4)"), "7");
  window_->activateWindow();
  QCoreApplication::processEvents();
  EXPECT_TRUE(HasKeys(*form_));
  Key(Qt::Key_F5);
  EXPECT_EQ(form_->Form2, nullptr);
}

TEST_F(Searches, WorkOfMoreThanHalfASecondIsSeenAndEndedByEsc) {
  Start();
  const String what = "Buscando en el historial…"_w;
  ASSERT_TRUE(screen_.Working(what, 0));
  EXPECT_EQ(window_->findChild<QProgressDialog*>()->isVisible(), false);
  QTest::qWait(600);
  EXPECT_TRUE(screen_.Working(what, 0.25));
  auto* const dialog = window_->findChild<QProgressDialog*>();
  ASSERT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->labelText(), QString::fromUtf8("Buscando en el historial…"));
  EXPECT_EQ(dialog->value() * 4, dialog->maximum());
  QTest::keyClick(dialog, Qt::Key_Escape);
  EXPECT_FALSE(screen_.Working(what, 0.5));
  screen_.Worked();
  EXPECT_EQ(window_->findChild<QProgressDialog*>(), nullptr);
}

TEST_F(Searches, OfShortWorkNothingIsSeen) {
  Start();
  const String what = "Buscando en el historial…"_w;
  ASSERT_TRUE(screen_.Working(what, 0));
  EXPECT_FALSE(screen_.ShowsWork());
  QTest::qWait(100);
  ASSERT_TRUE(screen_.Working(what, 0.001));  // it would take long
  EXPECT_FALSE(window_->findChild<QProgressDialog*>()->isVisible());
  screen_.Worked();
}

// Broken off, it may hang all the same: then the line of the wait is the only sign.
TEST_F(Searches, WorkIsSeenUntilItIsBrokenOff) {
  Start();
  const String what = "Buscando en el historial…"_w;
  ASSERT_TRUE(screen_.Working(what, 0));
  QTest::qWait(600);
  EXPECT_TRUE(screen_.ShowsWork());
  window_->findChild<QProgressDialog*>()->findChild<QPushButton*>()->click();
  EXPECT_FALSE(screen_.ShowsWork());
  EXPECT_FALSE(screen_.BreakOff());
  EXPECT_FALSE(screen_.Working(what, 0.5));
  screen_.Worked();
  EXPECT_FALSE(screen_.ShowsWork());
}

TEST_F(Searches, TheFirstEscAloneBreaksOff) {
  Start();
  EXPECT_FALSE(screen_.BreakOff());
  const String what = "Buscando en el historial…"_w;
  for (int work = 0; work < 2; ++work) {
    ASSERT_TRUE(screen_.Working(what, 0));
    EXPECT_TRUE(screen_.BreakOff());
    EXPECT_FALSE(screen_.BreakOff());
    EXPECT_FALSE(screen_.Working(what, 0.5));
    QTest::qWait(600);
    EXPECT_FALSE(screen_.ShowsWork());
    screen_.Worked();
    EXPECT_FALSE(screen_.BreakOff());
  }
}

TEST_F(Searches, WorkWhoseWindowHasGoneEnds) {
  Start();
  ASSERT_TRUE(screen_.Working("Escribiendo el informe…"_w, 0));
  screen_.Owner = nullptr;
  dialogs_.reset();
  window_.reset();
  QCoreApplication::processEvents();
  screen_.BeforeWaiting = nullptr;
  screen_.Worked();  // what went with its window is not deleted twice
  EXPECT_TRUE(screen_.Working("Escribiendo el informe…"_w, 0.5));
  screen_.Worked();
}

}  // namespace
}  // namespace vintoral::test
