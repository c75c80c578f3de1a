// Bar codes at the window: what a reader types, wherever the keyboard is, and the band of the code.
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "gui/Gate.h"
#include "gui/Reader.h"
#include "records/Register.h"
#include "records/RegistroPase.h"
#include "window/controls/ListField.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"

namespace vintoral::test {
namespace {

class Scans : public Gate {
 protected:
  Scans() {
    Start();
    reader_.OnTime = [this](int milliseconds) { AdvanceTime(clock_, form_->OpenForms, milliseconds); };
    form_->ActivarTiquetes();
    SwitchMode();
  }
  /// Barcode mode on, or off.
  void SwitchMode() {
    const bool on = !form_->CmdBarCode.Visible;
    if (on) WillAnswer(Answer::kOk);  // about the font
    Key(Qt::Key_B, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(form_->CmdBarCode.Visible, on);
  }
  /// A vehicle that is inside with a ticket of its own; its code.
  QString Enter(const QString& plate) {
    Key(Qt::Key_Home);
    Type(plate);
    QString code = Shown("TxtBarCode");
    WillAnswer(Answer::kYes);
    Key(Qt::Key_Insert);
    EXPECT_EQ(Shown("TxtBarCode"), "") << "it was not saved";
    Advance(2'000);
    return code;
  }
  void Scan(const QString& code, bool withEnter) {
    reader_.Read(*window_, code);
    if (withEnter) reader_.End(*window_);
    Refresh();
    QCoreApplication::processEvents();
  }
  void Cancel() {
    Key(Qt::Key_Escape);
    Advance(2'000);
  }
  RegistroPase Pass(std::int64_t number) {
    const Register<RegistroPase> passes(form_->Devices().disk, form_->RutaCompartida("Vintoral.CFR"),
                                        OpenMode::kRead);
    return passes.Read(number).PassOver().value_or(RegistroPase{});
  }

  Reader reader_;
};

TEST_F(Scans, ACodeShowsWhoIsInsideWhateverHasTheKeyboard) {
  const QString code = Enter("abc123");
  ASSERT_EQ(code.size(), 12);
  const std::vector<std::pair<const char*, std::function<void()>>> places = {
      {"code", [] {}},
      {"tool bar", [this] { form_->SetFocus(nullptr); }},
      {"plate", [this] { Click("TxtCampo(1)"); }},
      {"category", [this] { form_->SetFocus(&form_->CboTarifa[1]); }},
      {"grid", [this] { form_->SetFocus(&form_->FraFicha); }},
      {"generator", [this] { form_->SetFocus(&form_->CmdBarCode); }},
      {"pointer over a cell", [this] { form_->ImgFicha_MouseMove(0); }},
      {"monitor", [this] {
         if (!form_->CboMinutos.Enabled) Key(Qt::Key_F1);
         form_->SetFocus(&form_->CboMinutos);
         ASSERT_EQ(form_->Focus(), &form_->CboMinutos);
       }}};
  for (const auto& [name, go] : places) {
    for (const bool withEnter : {false, true}) {
      SCOPED_TRACE(testing::Message() << name << (withEnter ? " with Enter" : ""));
      go();
      Refresh();
      ASSERT_FALSE(form_->FichaEnCurso());
      const String minutes = form_->CboMinutos.Text();
      Scan(withEnter ? code.toLower() : code, withEnter);
      EXPECT_EQ(Shown("LblCampo(1)"), "ABC123");
      EXPECT_TRUE(Face("PctBoton(6)").isVisible());
      EXPECT_TRUE(Face("TxtBarCodeOK").isVisible());
      EXPECT_EQ(form_->TxtCampo[1].Text(), ""_w);
      EXPECT_EQ(form_->CboTarifa[1].ListIndex(), 0);
      EXPECT_EQ(form_->CboMinutos.Text(), minutes);
      EXPECT_EQ(boxes_.size(), 2U) << "a box came up after the first ones";
      Cancel();
    }
  }
}

TEST_F(Scans, TheEnterBehindACodeAsksNothingHoweverSlowTheShare) {
  const QString code = Enter("abc123");
  form_->TxtCampo[0].OnChange = [this] {
    clock_.Advance(700);
  };  // the cash line opens before the Enter is seen
  Scan(code, true);
  EXPECT_EQ(Shown("LblCampo(1)"), "ABC123");
  EXPECT_EQ(boxes_.size(), 2U) << "somebody asked whether it leaves";
}

TEST_F(Scans, ACodeThatNobodyKnowsGoesAfterASecond) {
  Scan("ZZZZZZZZZZZZ", true);
  EXPECT_EQ(Shown("TxtBarCode"), "ZZZZZZZZZZZZ");
  EXPECT_FALSE(Face("TxtBarCodeOK").isVisible());
  EXPECT_FALSE(form_->FichaEnCurso());
  Advance(1'000);
  EXPECT_EQ(Shown("TxtBarCode"), "");
}

TEST_F(Scans, NoCodeAnswersABoxNorReachesTheFieldBehindIt) {
  Key(Qt::Key_Home);
  Type("abc123");
  const QString code = Shown("TxtBarCode");
  bool asked = false;
  screen_.OnShown = [&](QMessageBox& box, const Box&) {
    asked = true;
    for (const char* const scanned : {"S1N2A3C4S5N6", "sinoacancela", "0123456789SN"}) {
      reader_.Read(box, QString::fromLatin1(scanned));
      reader_.End(box);
      QTest::qWait(150);  // a button that is pressed by a key goes down for a tenth of a second
      EXPECT_TRUE(box.isVisible()) << scanned;
    }
    reader_.Read(box, "A1 B2 C3 D4");  // of another house, with blanks
    EXPECT_TRUE(box.isVisible());
    box.reject();
  };
  Key(Qt::Key_Insert);
  EXPECT_TRUE(asked);
  EXPECT_EQ(Shown("TxtCampo(1)"), "ABC123");
  EXPECT_EQ(Shown("TxtBarCode"), code);
  EXPECT_TRUE(form_->PctBoton[5].Visible);
}

TEST_F(Scans, AHandsEnterAnswersAfterACode) {
  Key(Qt::Key_Home);
  Type("abc123");
  screen_.OnShown = [&](QMessageBox& box, const Box&) {
    reader_.Read(box, "S1N2A3C4S5N6");
    reader_.Let(KeyBurst::kGap - 1);
    reader_.Press(box, Qt::Key_Return, "\r");
    EXPECT_TRUE(box.isVisible());
    reader_.Let(1);
    reader_.Press(box, Qt::Key_Return, "\r");
    EXPECT_FALSE(box.isVisible());
  };
  Key(Qt::Key_Insert);
  EXPECT_FALSE(form_->FichaEnCurso());  // it is saved
  EXPECT_EQ(form_->TotalVista(), 1);
}

TEST_F(Scans, TheEnterOfACodeThatBringsUpABoxDoesNotAnswerIt) {
  Key(Qt::Key_Home);
  Type("abc123");
  form_->TxtMaxEntrada.SetText("3"_w);
  const QString code = Shown("TxtBarCode");
  WillAnswer(Answer::kYes);
  Key(Qt::Key_Insert);
  Scan(code, false);
  WillAnswer(Answer::kYes);
  Key(Qt::Key_Delete);
  ASSERT_EQ(form_->TotalVista(), 0);
  Advance(2'000);
  form_->PrimerNumero = form_->TotalFichas + 1;  // this gate has no number left
  bool stood = false;
  screen_.OnShown = [&](QMessageBox& box, const Box&) {
    reader_.End(box);
    stood = box.isVisible();
    box.reject();
  };
  Scan(code, false);
  EXPECT_TRUE(stood);
}

TEST_F(Scans, TheGeneratorByItsKeyAndByItsButton) {
  for (const bool byKey : {true, false}) {
    SCOPED_TRACE(byKey);
    ASSERT_EQ(Shown("TxtBarCode"), "");
    if (byKey) {
      Key(Qt::Key_Home);
    } else {
      Click("CmdBarCode");
    }
    EXPECT_EQ(Shown("TxtBarCode").size(), 12);
    EXPECT_TRUE(Face("TxtBarCodeOK").isVisible());
    EXPECT_EQ(Shown("TxtCampo(0)"), "1");
    EXPECT_EQ(Shown("TxtMaxEntrada"), "1");
    EXPECT_EQ(Shown("LstModEntrada"), "ENT(S)");
    EXPECT_EQ(Focused(), "TxtCampo(1)");
    Cancel();
  }
}

TEST_F(Scans, APassEntersByItselfAfterASecond) {
  Key(Qt::Key_Home);
  Type("abc123");
  const QString code = Shown("TxtBarCode");
  Click("TxtMaxEntrada");
  Type("3");  // over the 1, which is marked
  WillAnswer(Answer::kYes);
  Key(Qt::Key_Insert);
  ASSERT_EQ(Pass(1).RestantesPase, 2);
  Advance(2'000);
  Scan(code, true);
  WillAnswer(Answer::kYes);
  Key(Qt::Key_Delete);
  ASSERT_EQ(form_->TotalVista(), 0);
  Advance(2'000);

  QElapsedTimer watch;
  qint64 asked = 0;
  QString plate, left;
  bool open = true;
  screen_.OnShown = [&](QMessageBox& box, const Box&) {
    asked = watch.elapsed();
    plate = Shown("TxtCampo(1)");
    left = Shown("TxtMaxEntrada") + Shown("LstModEntrada");
    open = Face("TxtMaxEntrada").isEnabled() || Face("LstModEntrada").isEnabled();
    QTest::mouseClick(box.buttons().at(0), Qt::LeftButton);
  };
  watch.start();
  Scan(code, false);
  EXPECT_GE(asked, 1'000);
  EXPECT_EQ(plate, "ABC123");
  EXPECT_EQ(left, "2ENT(S)");
  EXPECT_FALSE(open);
  EXPECT_EQ(form_->TotalVista(), 1);
  EXPECT_EQ(Pass(1).RestantesPase, 1);
}

TEST_F(Scans, TheKeyboardGoesFromTheCodeOverTheFieldsToTheValidity) {
  Key(Qt::Key_Home);
  form_->SetFocus(&form_->TxtBarCode);
  Refresh();
  QStringList way;
  for (int i = 0; i < 8; ++i) {
    Key(Qt::Key_Tab);
    way << Focused();
  }
  EXPECT_EQ(way, QStringList({"TxtCampo(1)", "TxtCampo(2)", "TxtCampo(3)", "TxtCampo(4)", "TxtCampo(5)",
                              "CboTarifa(1)", "TxtMaxEntrada", "LstModEntrada"}));
  Key(Qt::Key_Down);
  EXPECT_EQ(Shown("LstModEntrada"), "DIA(S)");
  Key(Qt::Key_Up);
  EXPECT_EQ(Shown("LstModEntrada"), "ENT(S)");
}

TEST_F(Scans, TheSignIsNotTypedInto) {
  Key(Qt::Key_Home);
  Click("TxtBarCodeOK");
  EXPECT_EQ(Focused(), "TxtCampo(1)");
}

TEST_F(Scans, TheUnitIsChosenByTheMouse) {
  Key(Qt::Key_Home);
  Click("LstModEntrada");
  QWidget* const popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr);
  QTest::keyClick(popup->focusWidget(), Qt::Key_Down);
  QTest::keyClick(popup->focusWidget(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(form_->LstModEntrada.ListIndex, 1);
  EXPECT_EQ(Shown("LstModEntrada"), "DIA(S)");
}

// ---- The band
// ---------------------------------------------------------------------------------------------------------

TEST_F(Scans, AWholeCodeCanBeRead) {
  window_->resize(1093, 590);  // the smallest screen
  QCoreApplication::processEvents();
  auto& field = Face<QLineEdit>("TxtBarCode");
  const QFontMetrics metrics(field.font());
  EXPECT_EQ(metrics.horizontalAdvance("iiiiiiiiiiii"), metrics.horizontalAdvance("WWWWWWWWWWWW"));
  EXPECT_GE(field.width() - 2 * theme::kTextInset, metrics.horizontalAdvance("WWWWWWWWWWWW"));
  EXPECT_GT(field.font().pixelSize(), Face("TxtCampo(1)").font().pixelSize());
  const auto& unit = Face("LstModEntrada");
  EXPECT_GE(unit.width() - 2 * theme::kTextInset - 28, unit.fontMetrics().horizontalAdvance("DIA(S)"));
  for (const char* const name : {"TxtMaxEntrada", "LstModEntrada", "CmdBarCode"})
    EXPECT_GE(std::min(Face(name).width(), Face(name).height()), theme::kRowMinimum) << name;
}

TEST_F(Scans, TheValidityAndTheSignStandBesideTheCode) {
  Key(Qt::Key_Home);
  const auto placeOf = [this](const char* name) {
    const QWidget& face = Face(name);
    return QRect(face.mapTo(window_.get(), QPoint()), face.size());
  };
  const QRect code = placeOf("TxtBarCode");
  int right = code.right();
  for (const char* const name : {"TxtBarCodeOK", "TxtMaxEntrada", "LstModEntrada"}) {
    const QRect place = placeOf(name);
    EXPECT_EQ(place.center().y(), code.center().y()) << name;
    EXPECT_GT(place.left(), right + 3) << name;
    right = place.right();
  }
}

TEST_F(Scans, TheInvoiceTakesThePlaceOfTheValidity) {
  form_->ChkFactura.Visible = true;
  Refresh();
  QCoreApplication::processEvents();
  EXPECT_FALSE(Face("ChkFactura").geometry().intersects(Face("TxtBarCode").geometry()));
  EXPECT_FALSE(Face("ChkFactura").geometry().intersects(Face("TxtBarCodeOK").geometry()));
  EXPECT_GE(Face("ChkFactura").width(), Face("ChkFactura").sizeHint().width());
}

TEST_F(Scans, NumbersComeBackAsTheyWere) {
  SwitchMode();
  Advance(1);
  const QImage before = Picture(*window_);
  SwitchMode();
  EXPECT_NE(Picture(*window_), before);
  SwitchMode();
  EXPECT_EQ(Picture(*window_), before);
}

}  // namespace
}  // namespace vintoral::test
