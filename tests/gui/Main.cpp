#include <gtest/gtest.h>

#include <QApplication>

#include "support/OnePainter.h"
#include "window/controls/Theme.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");  // for whoever starts it by hand: no test opens a real window
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  vintoral::theme::Apply(application);
  vintoral::test::PaintWithOneThread();
  return RUN_ALL_TESTS();
}
