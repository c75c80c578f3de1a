#include "window/controls/CaretRest.h"

#include <QEvent>
#include <QGuiApplication>
#include <QStyleHints>

namespace vintoral {

CaretRest::CaretRest(QObject* parent, int untilRest)
    : QObject(parent), blinking_(QGuiApplication::styleHints()->cursorFlashTime()) {
  rest_.setSingleShot(true);
  rest_.setInterval(untilRest);
  connect(&rest_, &QTimer::timeout, this, [] { QGuiApplication::styleHints()->setCursorFlashTime(0); });
  rest_.start();
  parent->installEventFilter(this);
}

bool CaretRest::eventFilter(QObject* watched, QEvent* event) {
  const bool hands = event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress;
  // A window sees each once, before it hands it to one of its widgets.
  if (hands && watched->isWindowType()) {
    QGuiApplication::styleHints()->setCursorFlashTime(blinking_);
    rest_.start();
  }
  return false;
}

}  // namespace vintoral
