#include "platform/desktop/ReaderGuard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <chrono>

namespace vintoral {

namespace {

/// Held down, they make a command of a letter.
constexpr Qt::KeyboardModifiers kCommand = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool IsCharacter(const QKeyEvent& key) {
  const QString text = key.text();
  return !(key.modifiers() & kCommand) && !text.isEmpty() && text.at(0).isPrint();
}

/// What a reader may be set up to send behind a code.
bool EndsCode(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Tab;
}

/// When it was pressed, however late it is seen, in milliseconds. A key that doesn't say is timed as it
/// comes: all of them would seem to come at once.
std::int64_t TimeOf(const QKeyEvent& key) {
  using namespace std::chrono;
  if (key.timestamp() != 0) return static_cast<std::int64_t>(key.timestamp());
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

bool BoxIsUp() {
  return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
}

}  // namespace

ReaderGuard::ReaderGuard() {
  qApp->installEventFilter(this);
}

bool ReaderGuard::eventFilter(QObject* watched, QEvent* event) {
  // A window sees each key once, before it hands it to one of its widgets.
  if (event->type() != QEvent::KeyPress || !watched->isWindowType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool kept = BoxIsUp() && IsReaders(key);
  if (IsCharacter(key)) burst_.Add(key.text().at(0).toLatin1(), TimeOf(key));
  return kept;
}

/// A lone space presses the button that has the keyboard; no other character answers a box.
bool ReaderGuard::IsReaders(const QKeyEvent& key) const {
  const bool pressesOrMoves = EndsCode(key) || key.key() == Qt::Key_Space;
  return pressesOrMoves ? burst_.Continues(TimeOf(key)) : IsCharacter(key);
}

}  // namespace vintoral
