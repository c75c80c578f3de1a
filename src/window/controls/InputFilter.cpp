#include "window/controls/InputFilter.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <memory>

#include "window/controls/Hands.h"
#include "window/controls/Mirror.h"

namespace vintoral {

namespace {

/// Has the station a say in what is marked of the text that was pressed?
bool MarksOnFocus(const ControlState& state, const QObject* watched) {
  const auto* const text = dynamic_cast<const TextBoxState*>(&state);
  if (text != nullptr) return text->marksOnFocus;
  const auto* const list = dynamic_cast<const ListState*>(&state);
  // Beside its text, the press opens a list.
  const bool onText = dynamic_cast<const QLineEdit*>(watched) != nullptr;
  return list != nullptr && onText && list->marksOnFocus;
}

/// Has it marked some of it?
bool IsMarked(const ControlState& state) {
  const auto* const text = dynamic_cast<const TextBoxState*>(&state);
  if (text != nullptr) return text->selectionLength > 0;
  const auto* const list = dynamic_cast<const ListState*>(&state);
  return list != nullptr && list->selectionLength > 0;
}

}  // namespace

InputFilter::InputFilter(QWidget& window, Mirror& mirror, Hands& hands)
    : QObject(&window), window_(window), mirror_(mirror), hands_(hands) {
  qApp->installEventFilter(this);
}

void InputFilter::Close() {
  qApp->removeEventFilter(this);
}

bool InputFilter::InWindow(const QObject* watched) const {
  if (!watched->isWidgetType()) return false;
  const auto* const widget = static_cast<const QWidget*>(watched);
  return widget->window() == &window_ && QApplication::activePopupWidget() == nullptr;
}

bool InputFilter::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      if (!InWindow(watched)) return false;
      hands_.Key(*static_cast<QKeyEvent*>(event));
      return true;
    case QEvent::ShortcutOverride:
      if (!InWindow(watched)) return false;
      event->accept();  // no widget has a key of its own
      return true;
    case QEvent::InputMethod:
      return InWindow(watched) && InputMethod(watched, *static_cast<QInputMethodEvent*>(event));
    case QEvent::MouseButtonPress:
      return InWindow(watched) && Press(watched, *static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      if (InWindow(watched)) Release(watched, *static_cast<QMouseEvent*>(event));
      return false;
    case QEvent::MouseButtonDblClick:
      if (const View* view = InWindow(watched) ? mirror_.Of(watched) : nullptr)
        hands_.DoubleClick(view->State().id);
      return false;
    case QEvent::WindowActivate:
      if (watched == &window_) hands_.Use(mirror_.Snapshot().name);
      return false;
    case QEvent::Enter:
      if (InWindow(watched)) Hover(watched);
      return false;
    default:
      return false;
  }
}

void InputFilter::Hover(const QObject* watched) {
  if (const View* const view = mirror_.Of(watched)) hands_.Hover(view->State().id);
}

bool InputFilter::InputMethod(QObject* watched, QInputMethodEvent& event) {
  if (replaying_) return false;
  if (!event.commitString().isEmpty()) hands_.Type(event.commitString());
  // What is still being composed is the widget's to show; it must not take the committed characters too.
  QInputMethodEvent composing(event.preeditString(), event.attributes());
  Replay(*watched, composing);
  return true;
}

/// True when the widget must not see it yet: a press that brings the keyboard to a text leaves marked what
/// the station marks then, as Tab does. Where it marks nothing, the caret goes to where the press was.
bool InputFilter::Press(QObject* watched, const QMouseEvent& event) {
  if (replaying_) return false;
  const View* const view = mirror_.Of(watched);
  pressed_ = event.button() == Qt::LeftButton ? watched : nullptr;
  if (view == nullptr || !view->State().takesFocus) return false;
  const ControlState& state = view->State();
  if (mirror_.Snapshot().focus == &state || !MarksOnFocus(state, watched)) {
    hands_.Focus(state.id);
    return false;
  }
  const std::shared_ptr<QMouseEvent> press(event.clone());
  hands_.Focus(state.id, [this, &state, filter = QPointer(this), watched = QPointer(watched), press] {
    if (filter && watched && !IsMarked(state)) Replay(*watched, *press);
  });
  return true;
}

void InputFilter::Replay(QObject& watched, QEvent& event) {
  replaying_ = true;
  QCoreApplication::sendEvent(&watched, &event);
  replaying_ = false;
}

void InputFilter::Release(const QObject* watched, const QMouseEvent& event) {
  const View* const view = mirror_.Of(watched);
  if (view == nullptr || watched != pressed_ || event.button() != Qt::LeftButton) return;
  pressed_ = nullptr;
  if (!view->Widget().rect().contains(event.position().toPoint())) return;
  hands_.Click(view->State().id);
}

}  // namespace vintoral
