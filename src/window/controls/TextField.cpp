#include "window/controls/TextField.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
  setFocusPolicy(Qt::NoFocus);  // the focus is the station's to give
  setDragEnabled(false);
  setAcceptDrops(false);
  theme::CoverGround(*this);
}

void TextField::BePlainWhenLocked() {
  plainWhenLocked_ = true;
}

void TextField::ShowLocked(bool locked) {
  setReadOnly(locked);
  if (!plainWhenLocked_) return;
  setFrame(!locked);
  setAttribute(Qt::WA_TransparentForMouseEvents, locked);
}

void TextField::ShowCaret(int start, int length) {
  start_ = start;
  length_ = length;
  Mark();
}

// The editor of a list is its list's to the keyboard.
bool TextField::HasKeyboard() const {
  const QWidget* const focus = window()->focusWidget();
  return focus != nullptr && (focus == this || focus == focusProxy());
}

// Marks where the keyboard is not would read as if typing went there.
void TextField::Mark() {
  if (length_ > 0 && HasKeyboard()) {
    if (selectionStart() != start_ || selectionLength() != length_) setSelection(start_, length_);
  } else if (hasSelectedText() || cursorPosition() != start_) {
    setCursorPosition(start_);
  }
}

void TextField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  Mark();
}

void TextField::SetInset(int pixels) {
  const int beside = pixels - theme::kTextInset;
  // The text takes the whole height, and stands on the line of the text around the box.
  setTextMargins(beside, -1, beside, 0);
}

void TextField::SetWidthFor(int characters) {
  constexpr int kPaddings = 20;
  setFixedWidth(font().pixelSize() * 3 / 4 * characters + kPaddings);
}

QSize TextField::sizeHint() const {
  constexpr int kUsualWidth = 140;
  return {kUsualWidth, std::max(theme::kRowHeight, font().pixelSize() * 3 / 2)};
}

QSize TextField::minimumSizeHint() const {
  return {40, theme::kRowMinimum};
}

void TextField::TellCaret() {
  if (!onCaret) return;
  onCaret(hasSelectedText() ? selectionStart() : cursorPosition(), selectionLength());
}

void TextField::PasteFrom(bool selection) {
  const QClipboard* const clipboard = QGuiApplication::clipboard();
  if (onPaste) onPaste(clipboard->text(selection ? QClipboard::Selection : QClipboard::Clipboard));
}

void TextField::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) return;
  pressed_ = event->button() == Qt::LeftButton;
  QLineEdit::mousePressEvent(event);
  TellCaret();
}

void TextField::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) && !pressed_) return;  // the press was not for the caret
  QLineEdit::mouseMoveEvent(event);
  if (pressed_) TellCaret();
}

void TextField::mouseReleaseEvent(QMouseEvent* event) {
  // The toolkit's own paste would go past the rules of typing.
  if (event->button() == Qt::MiddleButton)
    return PasteFrom(QGuiApplication::clipboard()->supportsSelection());
  if (event->button() == Qt::LeftButton) pressed_ = false;
  if (event->button() == Qt::LeftButton) QLineEdit::mouseReleaseEvent(event);
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();  // what a double click marks is the station's to say
}

void TextField::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(QStringLiteral("Copiar"), this, &QLineEdit::copy)->setEnabled(hasSelectedText());
  menu.addAction(QStringLiteral("Pegar"), this, [this] { PasteFrom(false); })
      ->setEnabled(!isReadOnly() && !QGuiApplication::clipboard()->text().isEmpty());
  menu.addAction(QStringLiteral("Seleccionar todo"), this, [this] {
    selectAll();
    TellCaret();
  });
  menu.exec(event->globalPos());
}

}  // namespace vintoral
