// Windows of dialogs: they come, hold the others and go with their forms.
#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "gui/Gate.h"
#include "tariffs/form6/Form6.h"
#include "window/controls/DialogWindow.h"

namespace vintoral::test {
namespace {

class DialogsOfAGate : public Gate {
 protected:
  DialogsOfAGate() { Start(); }
  DialogWindow* Dialog() const { return dialogs_->Find("Form6"); }
  Form6& Load() { return form_->OpenForms.Load(std::make_unique<Form6>(*form_)); }
  /// Runs `steps` in the loop of a modal `form`, which is off the screen afterwards.
  void InModal(Form& form, const std::function<void()>& steps) {
    QTimer::singleShot(0, window_.get(), [&] {
      steps();
      form_->OpenForms.Hide(form);
    });
    form_->OpenForms.ShowModal(form);
    Refresh();
  }
  /// What was to be destroyed when its event is through is destroyed.
  static void LetGo() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

TEST_F(DialogsOfAGate, ADialogComesUpInFrontOfTheMainWindow) {
  EXPECT_EQ(Dialog(), nullptr);
  EXPECT_EQ(&Front(), window_.get());
  bool ran = false;
  InTariffs([&] {
    ran = true;
    ASSERT_NE(Dialog(), nullptr);
    EXPECT_TRUE(Dialog()->isVisible());
    EXPECT_EQ(&Front(), Dialog());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == Dialog(); }));
    EXPECT_EQ(Dialog()->objectName(), "Form6");
    EXPECT_EQ(Dialog()->windowTitle(), "Vintoral 10.25");
    const QSize room = Dialog()->screen()->availableSize();
    EXPECT_EQ(Dialog()->size(), QSize(1040, 560).boundedTo(room).expandedTo(Dialog()->minimumSizeHint()));
    // In the middle of what it stands before, as far as half pixels go.
    const QPoint apart = Dialog()->geometry().center() - window_->geometry().center();
    EXPECT_LE(apart.manhattanLength(), 2);
  });
  EXPECT_TRUE(ran);
  EXPECT_EQ(&Front(), window_.get());
}

TEST_F(DialogsOfAGate, AModalDialogHoldsTheMainWindow) {
  InTariffs([&] {
    EXPECT_EQ(Dialog()->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(form_->Focus(), &form_->TxtCampo[0]);
    Click("TxtCampo(2)");
    EXPECT_EQ(form_->Focus(), &form_->TxtCampo[0]);
    EXPECT_FALSE(window_->close());
    Type("5");
    EXPECT_EQ(Shown("TxtCampo(0)"), "");
    EXPECT_FALSE(form_->Terminado());
  });
  Click("TxtCampo(2)");
  EXPECT_EQ(form_->Focus(), &form_->TxtCampo[2]);
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(DialogsOfAGate, AModelessDialogHoldsNobody) {
  Form6& form = Load();
  EXPECT_EQ(Dialog(), nullptr);
  form_->OpenForms.Show(form);
  Refresh();
  ASSERT_NE(Dialog(), nullptr);
  EXPECT_EQ(Dialog()->windowModality(), Qt::NonModal);
  EXPECT_EQ(&Front(), Dialog());
  Type("1");
  EXPECT_EQ(form.TxtTarifas[0].Text().Bytes().substr(0, 1), "1");
  Click("TxtCampo(1)");
  EXPECT_EQ(&Front(), window_.get());
  Type("a");
  EXPECT_EQ(Shown("TxtCampo(1)"), "A");
}

TEST_F(DialogsOfAGate, EscTakesItOffAndAway) {
  QPointer<DialogWindow> dialog;
  InTariffs([&] {
    dialog = Dialog();
    Key(Qt::Key_Escape);
    EXPECT_EQ(form_->Form6, nullptr);
    EXPECT_EQ(Dialog(), nullptr);
  });
  LetGo();
  EXPECT_TRUE(dialog.isNull());
  Type("5");
  EXPECT_EQ(Shown("TxtCampo(0)"), "5");
}

TEST_F(DialogsOfAGate, AWindowWhoseFormIsGoneIsOffTheScreenAtOnce) {
  Form6& form = Load();
  form_->OpenForms.Show(form);
  Refresh();
  const QPointer<DialogWindow> dialog = Dialog();
  ASSERT_TRUE(dialog->isVisible());
  form_->OpenForms.Unload(form);
  Refresh();
  EXPECT_EQ(Dialog(), nullptr);
  ASSERT_FALSE(dialog.isNull());  // it may be in the middle of an event
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_FALSE(dialog->isEnabled());
  QKeyEvent late(QEvent::KeyPress, Qt::Key_5, Qt::NoModifier, QStringLiteral("5"));
  QCoreApplication::sendEvent(dialog, &late);
  EXPECT_EQ(Shown("TxtCampo(0)"), "");
  LetGo();
  EXPECT_TRUE(dialog.isNull());
}

TEST_F(DialogsOfAGate, ItsCloseBoxAsksTheForm) {
  InTariffs([&] {
    EXPECT_FALSE(Dialog()->close());
    EXPECT_EQ(form_->Form6, nullptr);
    EXPECT_EQ(Dialog(), nullptr);
  });
}

class Staying : public Form6 {
 public:
  using Form6::Form6;
  bool Form_QueryUnload() override { return false; }
};

TEST_F(DialogsOfAGate, WithoutAFocusedControlTheKeyboardRests) {
  InTariffs([&] {
    EXPECT_EQ(Focused(), "TxtTarifas(0)");
    form_->Form6->SetFocus(nullptr);
    Refresh();
    EXPECT_EQ(Focused(), "Form6");
  });
}

TEST_F(DialogsOfAGate, WindowsGoWithWhoKeepsThem) {
  form_->OpenForms.Show(Load());
  Refresh();
  const QPointer<DialogWindow> dialog = Dialog();
  ASSERT_FALSE(dialog.isNull());
  screen_.Owner = nullptr;
  dialogs_.reset();
  EXPECT_TRUE(dialog.isNull());
  Refresh();
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(DialogsOfAGate, AFormThatRefusesKeepsItsWindow) {
  Form6& form = form_->OpenForms.Load(std::make_unique<Staying>(*form_));
  InModal(form, [&] {
    EXPECT_FALSE(Dialog()->close());
    EXPECT_TRUE(Dialog()->isVisible());
  });
}

TEST_F(DialogsOfAGate, AHiddenDialogKeepsItsWindow) {
  Form6& form = Load();
  DialogWindow* first = nullptr;
  InModal(form, [&] { first = Dialog(); });
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(Dialog(), first);
  EXPECT_FALSE(first->isVisible());
  EXPECT_EQ(&Front(), window_.get());
  form.TxtMoneda.SetText("EUR"_w);
  InModal(form, [&] {
    EXPECT_EQ(Dialog(), first);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(Shown("TxtMoneda"), "EUR");
  });
}

TEST_F(DialogsOfAGate, TheProgramsEndClosesAll) {
  QPointer<DialogWindow> dialog;
  InTariffs([&] {
    dialog = Dialog();
    form_->CerrarSinPreguntar();
    EXPECT_TRUE(form_->Terminado());
  });
  EXPECT_EQ(Dialog(), nullptr);
  LetGo();
  EXPECT_TRUE(dialog.isNull());
}

TEST_F(DialogsOfAGate, TicksGoOnBeneath) {
  EXPECT_EQ(Shown("LblFechaEnt"), "14:00  (20/11/2026)");
  InTariffs([&] {
    Advance(61'000);
    EXPECT_EQ(Shown("LblFechaEnt"), "14:01  (20/11/2026)");
    EXPECT_TRUE(Dialog()->isVisible());
  });
}

TEST_F(DialogsOfAGate, ABoxBelongsToTheWindowInFront) {
  std::vector<QWidget*> owners;
  screen_.OnShown = [&](QMessageBox& box, const Box&) {
    owners.push_back(box.parentWidget());
    box.reject();
  };
  const Box box{"Título"_w, "¿Sí?"_w, Icon::kQuestion, {Answer::kYes, Answer::kNo}, Answer::kYes};
  QWidget* dialog = nullptr;
  InTariffs([&] {
    dialog = Dialog();
    EXPECT_EQ(screen_.Show(box), Answer::kNo);
  });
  screen_.Show(box);
  EXPECT_EQ(owners, std::vector<QWidget*>({dialog, window_.get()}));
  EXPECT_TRUE(window_->findChildren<QMessageBox*>().isEmpty());
}

TEST_F(DialogsOfAGate, ABoxWhoseWindowGoesAnswersHarmlessly) {
  screen_.OnShown = [&](QMessageBox&, const Box&) {
    QPointer<DialogWindow> dialog(Dialog());
    form_->OpenForms.Unload(*form_->Form6);
    Refresh();
    QCoreApplication::sendPostedEvents(dialog, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());
  };
  bool ran = false;
  InTariffs([&] {
    const Box box{"Título"_w, "¿Sí?"_w, Icon::kQuestion, {Answer::kYes, Answer::kNo}, Answer::kYes};
    EXPECT_EQ(screen_.Show(box), Answer::kNo);
    ran = true;
  });
  EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace vintoral::test
