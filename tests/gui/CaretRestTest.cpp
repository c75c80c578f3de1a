// The caret blinks while somebody types, and stands still when nobody has for a while.
#include "window/controls/CaretRest.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QStyleHints>
#include <QTest>
#include <QWindow>

namespace vintoral::test {
namespace {

TEST(CaretRests, UntilAKeyIsPressed) {
  QStyleHints& hints = *QGuiApplication::styleHints();
  const int before = hints.cursorFlashTime();
  hints.setCursorFlashTime(1000);
  QLineEdit edit;
  edit.show();
  {
    constexpr int kSoon = 20;  // milliseconds
    const CaretRest rest(qApp, kSoon);
    EXPECT_EQ(hints.cursorFlashTime(), 1000);
    ASSERT_TRUE(QTest::qWaitFor([&] { return hints.cursorFlashTime() == 0; }));
    QTest::keyClick(edit.windowHandle(), Qt::Key_A);
    EXPECT_EQ(hints.cursorFlashTime(), 1000);
  }
  hints.setCursorFlashTime(before);
}

}  // namespace
}  // namespace vintoral::test
