// What a key, a paste and the mouse do in the fields.
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include "gui/Gate.h"
#include "window/controls/ListField.h"
#include "window/controls/TextField.h"

namespace vintoral::test {
namespace {

class Fields : public Gate {
 protected:
  Fields() { Start(); }
  /// The form for a new ficha, the plate under the caret.
  void OpenNew() {
    Type("7");
    Key(Qt::Key_Return);
    ASSERT_EQ(Focused(), "TxtCampo(1)");
  }
  /// As an input method hands it over.
  void Compose(const QString& text) {
    QInputMethodEvent composed;
    composed.setCommitString(text);
    QCoreApplication::sendEvent(&Face("TxtCampo(1)"), &composed);
  }
};

TEST_F(Fields, NumberTakesDigitsAndBeepsAtTheRest) {
  Type("1a2-3ñ");
  EXPECT_EQ(Shown("TxtCampo(0)"), "123");
  EXPECT_EQ(screen_.Beeps, 3);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Shown("TxtCampo(0)"), "12");
  EXPECT_EQ(screen_.Beeps, 3);
}

TEST_F(Fields, KeypadTypesDigits) {
  Key(Qt::Key_4, Qt::KeypadModifier);
  Key(Qt::Key_2, Qt::KeypadModifier);
  EXPECT_EQ(Shown("TxtCampo(0)"), "42");
}

TEST_F(Fields, CapitalsAsTypedWithTheCaretKept) {
  OpenNew();
  Type("abñ9");
  auto& field = Face<QLineEdit>("TxtCampo(1)");
  EXPECT_EQ(field.text(), "ABÑ9");
  Key(Qt::Key_Left);
  Key(Qt::Key_Left);
  Type("x");
  EXPECT_EQ(field.text(), "ABXÑ9");
  EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(Fields, PunctuationIsNoCommandKey) {
  OpenNew();
  Type(".-'$#(!%&");
  EXPECT_EQ(Shown("TxtCampo(1)"), ".-'$#(!%&");
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(Fields, FieldHoldsWhatARegisterHolds) {
  OpenNew();
  Type("123456789012345678901234");
  EXPECT_EQ(Shown("TxtCampo(1)"), "12345678901234567890");
}

TEST_F(Fields, PasteGoesThroughTheRulesOfTyping) {
  OpenNew();
  QApplication::clipboard()->setText(QStringLiteral("kl\tm\x01 48ñ"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Shown("TxtCampo(1)"), "KLM 48Ñ");
}

TEST_F(Fields, PasteKeyBeepsWhereTheRulesKeepItOut) {
  QApplication::clipboard()->setText(QStringLiteral("12"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Shown("TxtCampo(0)"), "");
  EXPECT_EQ(screen_.Beeps, 1);
}

TEST_F(Fields, CommandKeysLeaveNoCharacter) {
  form_->ImgIndicador[indicador::kCamaraDesactivada].Visible = true;  // else they take photos
  OpenNew();
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Shown("TxtCampo(1)"), "");
  EXPECT_EQ(screen_.Beeps, 0);
}

TEST_F(Fields, ComposedCharactersAreTyped) {
  OpenNew();
  Compose(QStringLiteral("é世"));
  EXPECT_EQ(Shown("TxtCampo(1)"), "É?");
  EXPECT_EQ(form_->TxtCampo[1].Text(), "É?"_w);
}

TEST_F(Fields, ComposedCharactersAreKeptAsKeysAre) {
  constexpr std::int64_t kHand = 100;  // milliseconds between two
  int beeps = 0;
  queue_->Beep = [&] { ++beeps; };
  OpenNew();
  seam_.Hangs = true;
  const auto compose = [&](const char* text, std::size_t times) {
    for (std::size_t i = 0; i < times; ++i) {
      clock_.Advance(kHand);
      Compose(QString::fromUtf8(text));
    }
  };
  compose("é", 1);
  compose("a", InputQueue::kKeys - 1);
  EXPECT_EQ(beeps, 0);
  compose("b", 1);
  EXPECT_EQ(beeps, 1);
  EXPECT_EQ(form_->TxtCampo[1].Text(), ""_w);
  seam_.Hangs = false;
  queue_->Go();
  EXPECT_TRUE(Shown("TxtCampo(1)").startsWith("ÉAA")) << Shown("TxtCampo(1)").toStdString();
  EXPECT_FALSE(Shown("TxtCampo(1)").contains("B"));
}

TEST_F(Fields, MouseMovesTheCaretAndDoubleClickMarksAll) {
  OpenNew();
  Type("abcdef");
  auto& field = Face<QLineEdit>("TxtCampo(1)");
  const QPoint start = field.mapTo(window_.get(), QPoint(3, field.height() / 2));
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, Qt::NoModifier, start);
  Type("x");
  EXPECT_EQ(field.text(), "XABCDEF");
  QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, Qt::NoModifier, start);
  QCoreApplication::processEvents();
  EXPECT_EQ(field.selectedText(), "XABCDEF");
  Type("z");
  EXPECT_EQ(field.text(), "Z");
}

TEST_F(Fields, MarkedTextIsReplaced) {
  OpenNew();
  Type("abcdef");
  auto& field = Face<QLineEdit>("TxtCampo(1)");
  QWindow* const window = window_->windowHandle();
  const QPoint start = field.mapTo(window_.get(), QPoint(2, field.height() / 2));
  QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, start);
  QTest::mouseMove(window, start + QPoint(field.width() - 8, 0));
  QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, start + QPoint(field.width() - 8, 0));
  EXPECT_EQ(form_->TxtCampo[1].SelLength, 6U);
  Type("q");
  EXPECT_EQ(field.text(), "Q");
}

TEST_F(Fields, TabWalksAndTheFocusIsMirrored) {
  OpenNew();
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focused(), "TxtCampo(2)");
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Focused(), "TxtCampo(1)");
  EXPECT_EQ(form_->Focus(), &form_->TxtCampo[1]);
}

TEST_F(Fields, TheFocusCanBeSeen) {
  OpenNew();
  const QImage with = Picture(Face("TxtCampo(2)"));
  Key(Qt::Key_Tab);
  EXPECT_NE(Picture(Face("TxtCampo(2)")), with);
}

TEST_F(Fields, CategoryByControlAndDigitByListAndByArrow) {
  OpenNew();
  const auto& categories = form_->CboTarifa[1].List();
  ASSERT_GE(categories.size(), 3U);
  Key(Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(form_->CboTarifa[1].ListIndex(), 1);
  EXPECT_EQ(Shown("CboTarifa(1)"), QString::fromStdString(categories[1].ToUtf8()));
  Click("CboTarifa(1)");  // opens
  QWidget* const popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr);
  QTest::keyClick(popup->focusWidget(), Qt::Key_Down);
  QTest::keyClick(popup->focusWidget(), Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(form_->CboTarifa[1].ListIndex(), 2);
  EXPECT_EQ(Focused(), "CboTarifa(1)");
  Key(Qt::Key_Up);
  EXPECT_EQ(Shown("CboTarifa(1)"), QString::fromStdString(categories[1].ToUtf8()));
}

TEST_F(Fields, LabelIsEditedInPlaceAndKept) {
  Click("PctEtiqueta(2)");
  EXPECT_EQ(Focused(), "TxtEtiqueta(2)");
  Type("dueño");
  EXPECT_EQ(Shown("TxtEtiqueta(2)").trimmed(), "DUEÑO");
  Key(Qt::Key_Return);
  EXPECT_NE(Focused(), "TxtEtiqueta(2)");
  Restart();
  EXPECT_EQ(Shown("TxtEtiqueta(2)").trimmed(), "DUEÑO");
}

TEST_F(Fields, TheMinutesShowTheirCaretAndTakeTheMousesToo) {
  ComboBox& minutes = form_->CboMinutos;
  minutes.Enabled = true;
  minutes.SetText("45"_w);
  form_->SetFocus(&minutes);
  Refresh();
  TextField& editor = *Face<ListField>("CboMinutos").Editor();
  EXPECT_EQ(editor.cursorPosition(), 2);
  Key(Qt::Key_Left);
  EXPECT_EQ(editor.cursorPosition(), 1);
  Type("7");
  EXPECT_EQ(Shown("CboMinutos"), "475");
  editor.onCaret(0, 1);  // as a drag over the first digit tells
  Type("1");
  EXPECT_EQ(minutes.Text(), "175"_w);
  editor.onPaste("a9");
  EXPECT_EQ(minutes.Text(), "1975"_w);
}

TEST_F(Fields, TheCaretOfTheMinutesStandsInTheTextAsItIsShown) {
  ComboBox& minutes = form_->CboMinutos;
  minutes.Enabled = true;
  ASSERT_EQ(minutes.Text(), "           P01 MONITOR"_w);
  form_->SetFocus(&minutes);
  Refresh();
  TextField& editor = *Face<ListField>("CboMinutos").Editor();
  EXPECT_EQ(editor.text(), "P01 MONITOR");
  EXPECT_EQ(editor.cursorPosition(), 11);
  editor.onCaret(3, 0);
  EXPECT_EQ(minutes.SelStart, 14u);
  EXPECT_EQ(editor.cursorPosition(), 3);
}

TEST_F(Fields, TheTitleBarTellsTheProgram) {
  EXPECT_EQ(window_->windowTitle(), "Vintoral 10.25");
}

}  // namespace
}  // namespace vintoral::test
