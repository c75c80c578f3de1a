// The box of several lines: its caret in a text with CR LF, the mouse, the marks beside it.
#include "window/controls/TextEditor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QCursor>
#include <QHelpEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <stdexcept>
#include <utility>

#include "gui/Gate.h"
#include "window/controls/Theme.h"

namespace vintoral::test {
namespace {

using Caret = std::pair<int, int>;

/// The part of a grabbed picture that shows `place` of the widget, whatever the scale.
QImage Part(const QPixmap& picture, QRect place) {
  const qreal ratio = picture.devicePixelRatio();
  return picture.toImage().copy(QRect(place.topLeft() * ratio, place.size() * ratio));
}

QColor ColorAt(const QPixmap& picture, QPoint at) {
  return Part(picture, {at, QSize(1, 1)}).pixelColor(0, 0);
}

class Editor : public testing::Test {
 protected:
  Editor() {
    editor_.resize(400, 300);
    editor_.onCaret = [this](int start, int length) { told_.emplace_back(start, length); };
    editor_.onPaste = [this](const QString& text) { pasted_ << text; };
    editor_.ShowText(QStringLiteral("AUTO\r\n1M = 5\r\n1H = 600\r\n\r\nMOTO"));
    editor_.show();
    QApplication::setActiveWindow(&editor_);
    QCoreApplication::processEvents();
  }
  void ShowManyLines() {
    QStringList lines;
    for (int i = 0; i < 200; ++i)
      lines << QStringLiteral("linea");
    editor_.ShowText(lines.join(QStringLiteral("\r\n")));
  }
  /// Where the character at this place of the text stands.
  QPoint PointOf(int offset) {
    editor_.ShowCaret(offset, 0);
    return editor_.cursorRect().center();
  }
  Caret Shown() const {
    const QTextCursor cursor = editor_.textCursor();
    return {cursor.blockNumber(), cursor.positionInBlock()};
  }
  MarkMargin& Margin() {
    for (QWidget* child : editor_.findChildren<QWidget*>())
      if (auto* margin = dynamic_cast<MarkMargin*>(child)) return *margin;
    throw std::logic_error("no margin");
  }
  QString ReasonAt(int y) { return Margin().ReasonAt({5, y}); }
  void AskForToolTip(int y) {
    const QPoint at(5, y);
    QHelpEvent asked(QEvent::ToolTip, at, Margin().mapToGlobal(at));
    QCoreApplication::sendEvent(&Margin(), &asked);
  }
  void ChooseFromMenu(const QString& name) {
    QTimer::singleShot(0, [name] {
      auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
      for (QAction* action : menu.actions())
        if (action->text() == name) action->trigger();
      menu.close();
    });
    const QPoint at(5, 5);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, at, editor_.viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(editor_.viewport(), &asked);
  }

  TextEditor editor_{nullptr};
  std::vector<Caret> told_;
  QStringList pasted_;
};

TEST_F(Editor, ALineEndCountsTwo) {
  EXPECT_EQ(editor_.blockCount(), 5);
  editor_.ShowCaret(1, 0);
  EXPECT_EQ(Shown(), Caret(0, 1));
  editor_.ShowCaret(0, 0);
  EXPECT_EQ(Shown(), Caret(0, 0));
  editor_.ShowCaret(4, 0);
  EXPECT_EQ(Shown(), Caret(0, 4));
  editor_.ShowCaret(6, 0);
  EXPECT_EQ(Shown(), Caret(1, 0));
  editor_.ShowCaret(14, 0);  // 4 + 2 + 6 + 2
  EXPECT_EQ(Shown(), Caret(2, 0));
  editor_.ShowCaret(30, 0);  // the end
  EXPECT_EQ(Shown(), Caret(4, 4));
}

TEST_F(Editor, ACaretNeverStandsInsideALineEnd) {
  editor_.ShowCaret(5, 0);
  EXPECT_EQ(Shown(), Caret(0, 4));
}

TEST_F(Editor, MarksCharactersAcrossLines) {
  editor_.ShowCaret(2, 6);
  EXPECT_EQ(editor_.textCursor().selectedText(), QStringLiteral("TO\u20291M"));
  editor_.ShowCaret(2, 0);
  EXPECT_FALSE(editor_.textCursor().hasSelection());
}

TEST_F(Editor, TheCaretStandsAtEitherEndOfWhatIsMarked) {
  editor_.ShowCaret(2, 6, true);
  EXPECT_EQ(editor_.textCursor().selectedText(), QStringLiteral("TO\u20291M"));
  EXPECT_EQ(Shown(), Caret(0, 2));
  editor_.ShowCaret(2, 7);
  EXPECT_EQ(Shown(), Caret(1, 3));
}

TEST_F(Editor, HalfALineEndBeginsNoLine) {
  editor_.ShowText(QStringLiteral("A\rB\r\nC\nD"));
  EXPECT_EQ(editor_.blockCount(), 2);
  editor_.ShowCaret(5, 0);
  EXPECT_EQ(Shown(), Caret(1, 0));
  editor_.ShowCaret(7, 0);
  EXPECT_EQ(Shown(), Caret(1, 2));
}

TEST_F(Editor, ShowsWhatItIsTold) {
  for (const char* text :
       {"AUTO\r\n1M = 50\r\n1H = 600\r\n\r\nMOTO", "", "\r\n", "aa\r\naa", "aaa\r\naa", "x"}) {
    editor_.ShowText(QString::fromLatin1(text));
    EXPECT_EQ(editor_.toPlainText(), QString::fromLatin1(text).remove(u'\r'));
  }
  EXPECT_TRUE(told_.empty());
}

TEST_F(Editor, ClickTellsThePlaceInTheText) {
  const QPoint third = PointOf(17);
  editor_.ShowCaret(0, 0);
  QTest::mouseClick(editor_.viewport(), Qt::LeftButton, Qt::NoModifier, third);
  ASSERT_FALSE(told_.empty());
  EXPECT_EQ(told_.back(), Caret(17, 0));
  QTest::mouseClick(editor_.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 290));
  EXPECT_EQ(told_.back(), Caret(30, 0));
}

TEST_F(Editor, DraggingMarks) {
  const QPoint start = PointOf(6);
  const QPoint end = PointOf(17);
  QTest::mousePress(editor_.viewport(), Qt::LeftButton, Qt::NoModifier, start);
  EXPECT_EQ(told_.back(), Caret(6, 0));
  QTest::mouseMove(editor_.viewport(), end);
  QTest::mouseRelease(editor_.viewport(), Qt::LeftButton, Qt::NoModifier, end);
  EXPECT_EQ(told_.back(), Caret(6, 11));
  const std::size_t before = told_.size();
  QTest::mouseMove(editor_.viewport(), start);
  EXPECT_EQ(told_.size(), before);
}

TEST_F(Editor, AClickIntoMarkedTextUnmarksIt) {
  const QPoint inside = PointOf(8);
  editor_.ShowCaret(0, 30);
  QTest::mousePress(editor_.viewport(), Qt::LeftButton, Qt::NoModifier, inside);
  EXPECT_EQ(told_.back(), Caret(8, 0));
}

TEST_F(Editor, ShiftAndClickExtends) {
  const QPoint end = PointOf(17);
  editor_.ShowCaret(2, 0);
  QTest::mouseClick(editor_.viewport(), Qt::LeftButton, Qt::ShiftModifier, end);
  EXPECT_EQ(told_.back(), Caret(2, 15));
}

TEST_F(Editor, MarkingGoesOnWhileThePointerIsHeldOutside) {
  ShowManyLines();
  const QPoint start = PointOf(0);
  const QPoint below(start.x(), editor_.viewport()->height() + 40);
  QTest::mousePress(editor_.viewport(), Qt::LeftButton, Qt::NoModifier, start);
  QCursor::setPos(editor_.viewport()->mapToGlobal(below));
  QMouseEvent moved(QEvent::MouseMove, below, QCursor::pos(), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(editor_.viewport(), &moved);
  const int first = told_.back().second;
  EXPECT_TRUE(QTest::qWaitFor([&] { return told_.back().second > first + 7; }));
  QTest::mouseRelease(editor_.viewport(), Qt::LeftButton, Qt::NoModifier, below);
}

TEST_F(Editor, OtherButtonsAndDoubleClicksLeaveTheCaret) {
  const QPoint at = PointOf(8);
  editor_.ShowCaret(2, 0);
  QTest::mouseClick(editor_.viewport(), Qt::RightButton, Qt::NoModifier, at);
  EXPECT_EQ(Shown(), Caret(0, 2));
  QMouseEvent doubled(QEvent::MouseButtonDblClick, at, editor_.viewport()->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(editor_.viewport(), &doubled);
  EXPECT_FALSE(editor_.textCursor().hasSelection());
  EXPECT_TRUE(told_.empty());
}

TEST_F(Editor, KeysLeaveTheText) {
  editor_.setFocus();
  editor_.ShowCaret(0, 0);
  const QString before = editor_.toPlainText();
  QTest::keyClicks(&editor_, QStringLiteral("x"));
  QTest::keyClick(&editor_, Qt::Key_Delete);
  QTest::keyClick(&editor_, Qt::Key_Down);
  EXPECT_EQ(editor_.toPlainText(), before);
  EXPECT_EQ(Shown(), Caret(0, 0));
}

TEST_F(Editor, ClicksLeaveTheFocusToTheStation) {
  QWidget window;
  QWidget other(&window);
  TextEditor editor(&window);
  window.show();
  QApplication::setActiveWindow(&window);
  other.setFocus();
  ASSERT_TRUE(other.hasFocus());
  QTest::mouseClick(editor.viewport(), Qt::LeftButton);
  EXPECT_TRUE(other.hasFocus());
}

TEST_F(Editor, LongLinesStandInOneRow) {
  EXPECT_EQ(editor_.horizontalScrollBar()->maximum(), 0);
  const int below = PointOf(6).y();
  editor_.ShowText(QStringLiteral("A").repeated(200) + QStringLiteral("\r\nB"));
  QCoreApplication::processEvents();
  EXPECT_GT(editor_.horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(PointOf(202).y(), below);
}

TEST_F(Editor, PastingIsTold) {
  const QString before = editor_.toPlainText();
  QApplication::clipboard()->setText(QStringLiteral("BICI\n1M = 5"));
  QTest::mouseClick(editor_.viewport(), Qt::MiddleButton);
  EXPECT_EQ(pasted_, QStringList{QStringLiteral("BICI\n1M = 5")});
  ChooseFromMenu(QStringLiteral("Pegar"));
  EXPECT_EQ(pasted_.size(), 2);
  EXPECT_EQ(editor_.toPlainText(), before);
}

TEST_F(Editor, WhatIsLockedIsMarkedAndNotPastedInto) {
  editor_.ShowLocked(true);
  QGuiApplication::clipboard()->setText("otra");
  QTest::mouseClick(editor_.viewport(), Qt::MiddleButton);
  ChooseFromMenu(QStringLiteral("Pegar"));
  EXPECT_TRUE(pasted_.isEmpty());
  ChooseFromMenu(QStringLiteral("Seleccionar todo"));
  ChooseFromMenu(QStringLiteral("Copiar"));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), editor_.toPlainText());
  editor_.ShowLocked(false);
  ChooseFromMenu(QStringLiteral("Pegar"));
  EXPECT_EQ(pasted_.size(), 1);
}

TEST_F(Editor, ACaretThatTextHasPushedAlongStaysInView) {
  QString line;
  for (int i = 0; i < 100; ++i) {
    line += u'x';
    editor_.ShowText(line);
    editor_.ShowCaret(i + 1, 0);
  }
  EXPECT_TRUE(editor_.viewport()->rect().contains(editor_.cursorRect().center()));
  // Shown again where it was, it leaves alone what the wheel has scrolled.
  editor_.horizontalScrollBar()->setValue(0);
  editor_.ShowCaret(100, 0);
  EXPECT_EQ(editor_.horizontalScrollBar()->value(), 0);
}

TEST_F(Editor, MenuCopiesAndMarksAll) {
  editor_.ShowCaret(2, 6);
  ChooseFromMenu(QStringLiteral("Copiar"));
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("TO\n1M"));
  ChooseFromMenu(QStringLiteral("Seleccionar todo"));
  ASSERT_FALSE(told_.empty());
  EXPECT_EQ(told_.back(), Caret(0, 30));
}

TEST_F(Editor, FollowsTheCaretAndStaysWhereTheWheelPutIt) {
  ShowManyLines();
  QScrollBar& bar = *editor_.verticalScrollBar();
  editor_.ShowCaret(0, 0);
  ASSERT_EQ(bar.value(), 0);
  editor_.ShowCaret(7 * 150, 0);
  const int followed = bar.value();
  EXPECT_GT(followed, 100);
  QWheelEvent wheel({50, 50}, editor_.viewport()->mapToGlobal(QPointF(50, 50)), {}, {0, 1200}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(editor_.viewport(), &wheel);
  const int wheeled = bar.value();
  EXPECT_LT(wheeled, followed);
  editor_.ShowCaret(7 * 150, 0);
  EXPECT_EQ(bar.value(), wheeled);
  editor_.ShowText(QStringLiteral("x") + QStringLiteral("linea\r\n").repeated(199) + QStringLiteral("linea"));
  EXPECT_EQ(bar.value(), wheeled);
}

TEST_F(Editor, TheLineOfTheCaretIsStriped) {
  const auto ground = [this](int offset) {
    const int y = PointOf(offset).y();
    editor_.ShowCaret(8, 0);
    QCoreApplication::processEvents();
    return ColorAt(editor_.viewport()->grab(), {300, y});
  };
  EXPECT_EQ(ground(8), QColor::fromRgb(theme::kAccentPale));
  EXPECT_EQ(ground(0), QColor::fromRgb(theme::kField));
}

TEST_F(Editor, TheKeyboardCanBeSeen) {
  editor_.clearFocus();
  EXPECT_NE(ColorAt(editor_.grab(), {200, 1}), QColor::fromRgb(theme::kAccent));
  editor_.setFocus();
  EXPECT_EQ(ColorAt(editor_.grab(), {200, 1}), QColor::fromRgb(theme::kAccent));
}

TEST_F(Editor, AMarkedLineSaysWhy) {
  const int first = PointOf(0).y();
  const int second = PointOf(6).y();
  EXPECT_EQ(ReasonAt(second), "");
  const QPixmap before = Margin().grab();
  editor_.ShowReasons({QString(), QStringLiteral("Se lee 5: el signo menos no cuenta.")});
  const QPixmap after = Margin().grab();
  EXPECT_EQ(ReasonAt(second), "Se lee 5: el signo menos no cuenta.");
  EXPECT_EQ(ReasonAt(first), "");
  EXPECT_EQ(ReasonAt(280), "");  // below the last line
  const auto row = [](const QPixmap& picture, int y) {
    return Part(picture, {0, y - 6, MarkMargin::kWidth, 12});
  };
  EXPECT_NE(row(after, second), row(before, second));
  EXPECT_EQ(row(after, first), row(before, first));
  editor_.ShowReasons({});
  EXPECT_EQ(ReasonAt(second), "");
  EXPECT_EQ(Margin().grab().toImage(), before.toImage());
}

TEST_F(Editor, ThePointerBringsUpTheReason) {
  editor_.ShowReasons({QStringLiteral("porque"), QString()});
  const int first = PointOf(0).y();
  const int second = PointOf(6).y();
  ASSERT_FALSE(QToolTip::isVisible());
  AskForToolTip(first);
  EXPECT_TRUE(QToolTip::isVisible());
  EXPECT_EQ(QToolTip::text(), "porque");
  AskForToolTip(second);
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(Editor, MarksScrollWithTheirLines) {
  ShowManyLines();
  QStringList reasons(200);
  reasons[150] = QStringLiteral("aqui");
  editor_.ShowReasons(reasons);
  EXPECT_EQ(ReasonAt(PointOf(0).y()), "");
  EXPECT_EQ(ReasonAt(PointOf(7 * 150).y()), "aqui");
  EXPECT_EQ(ReasonAt(PointOf(7 * 151).y()), "");
}

}  // namespace
}  // namespace vintoral::test
