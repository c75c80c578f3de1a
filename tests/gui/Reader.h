// A bar code reader: a keyboard whose keys carry the moment at which they were pressed, so that no busy
// machine makes a slow hand of it.
#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <functional>

namespace vintoral::test {

class Reader {
 public:
  static constexpr int kPace = 5;  ///< milliseconds between two characters

  /// Runs for each millisecond count that passes between two keys.
  std::function<void(int)> OnTime;

  /// One key to the window.
  void Press(QWidget& window, Qt::Key key, const QString& text = {},
             Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QWindow* const target = window.windowHandle();
      if (target == nullptr) return;  // it went with the press
      QKeyEvent event(type, key, modifiers, text);
      event.setTimestamp(now_);
      QCoreApplication::sendEvent(target, &event);
    }
  }
  void Let(int milliseconds) {
    now_ += static_cast<quint64>(milliseconds);
    if (OnTime) OnTime(milliseconds);
  }
  /// A code, each character `kPace` behind the one before.
  void Read(QWidget& window, const QString& code) {
    for (const QChar letter : code) {
      Let(kPace);
      Press(window, static_cast<Qt::Key>(letter.toUpper().unicode()), letter);
    }
  }
  /// The Enter that some readers send behind it.
  void End(QWidget& window) {
    Let(kPace);
    Press(window, Qt::Key_Return, QStringLiteral("\r"));
  }

 private:
  quint64 now_ = 100'000;  // as if the screen had been on for a while
};

}  // namespace vintoral::test
