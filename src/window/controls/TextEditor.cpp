#include "window/controls/TextEditor.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kOutline = 3;  // room for the ring of the keyboard and its corners

/// One character for each line end. Half a line end is a character of its line, and must not begin another.
QString ForDocument(QString text) {
  constexpr QChar kOdd(0x2424);
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\u2029"));
  return text.replace(u'\r', kOdd).replace(u'\n', kOdd).replace(u'\u2029', u'\n');
}

qsizetype CommonStart(QStringView left, QStringView right) {
  return std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first - left.begin();
}

qsizetype CommonEnd(QStringView left, QStringView right) {
  return std::mismatch(left.rbegin(), left.rend(), right.rbegin(), right.rend()).first - left.rbegin();
}

}  // namespace

TextEditor::TextEditor(QWidget* parent)
    : QPlainTextEdit(parent), margin_(new MarkMargin([this] { return Rows(); }, this)) {
  setFocusPolicy(Qt::NoFocus);  // the focus is the station's to give
  setAcceptDrops(false);
  setUndoRedoEnabled(false);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setFont(theme::FixedFont({QStringLiteral("Liberation Mono")}, theme::kTextPixels));
  setCursorWidth(2);
  document()->setDocumentMargin(theme::kTextInset - kOutline);
  setFrameShape(QFrame::Box);
  setLineWidth(kOutline);
  setViewportMargins(MarkMargin::kWidth, 0, 0, 0);
  theme::CoverGround(*this);
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { ShowStripe(); });
  connect(this, &QPlainTextEdit::updateRequest, margin_, [this] { margin_->update(); });
  ShowStripe();
}

void TextEditor::ShowText(const QString& text) {
  text_ = text;
  const QString now = ForDocument(text);
  const qsizetype start = CommonStart(shown_, now);
  const qsizetype end = CommonEnd(QStringView(shown_).mid(start), QStringView(now).mid(start));
  QTextCursor change(document());
  change.setPosition(static_cast<int>(start));
  change.setPosition(static_cast<int>(shown_.size() - end), QTextCursor::KeepAnchor);
  change.insertText(now.mid(start, now.size() - end - start));
  shown_ = now;
}

void TextEditor::ShowCaret(int start, int length, bool caretFirst) {
  const int from = ToDocument(start);
  const int to = ToDocument(start + length);
  const std::pair<int, int> before = std::exchange(place_, {from, to});
  QTextCursor cursor = textCursor();
  if (cursor.selectionStart() == from && cursor.selectionEnd() == to) {
    // Text that came before the caret has pushed it along.
    if (before != place_) ensureCursorVisible();
    return;
  }
  cursor.setPosition(caretFirst ? to : from);
  cursor.setPosition(caretFirst ? from : to, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void TextEditor::BePlain() {
  plain_ = true;
  setExtraSelections({});
  margin_->hide();
  setViewportMargins(0, 0, 0, 0);
}

void TextEditor::ShowLocked(bool locked) {
  setReadOnly(locked);
}

void TextEditor::ShowReasons(const QStringList& reasons) {
  margin_->ShowReasons(reasons);
}

int TextEditor::ToDocument(int offset) const {
  const QStringView before = QStringView(text_).left(offset);
  const bool inside = before.endsWith(u'\r') && QStringView(text_).mid(offset).startsWith(u'\n');
  return static_cast<int>(before.size() - before.count(u"\r\n")) - (inside ? 1 : 0);
}

int TextEditor::FromDocument(int position) const {
  return position + document()->findBlock(position).blockNumber();
}

std::vector<MarkMargin::Row> TextEditor::Rows() const {
  std::vector<MarkMargin::Row> rows;
  for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
    const QRect place = blockBoundingGeometry(block).translated(contentOffset()).toAlignedRect();
    if (place.top() > viewport()->height()) break;
    rows.push_back({block.blockNumber(), QRect(0, place.top(), MarkMargin::kWidth, place.height())});
  }
  return rows;
}

void TextEditor::ShowStripe() {
  if (plain_) return;
  QTextEdit::ExtraSelection stripe;
  stripe.cursor = textCursor();
  stripe.cursor.clearSelection();
  stripe.format.setBackground(QColor::fromRgb(theme::kAccentPale));
  stripe.format.setProperty(QTextFormat::FullWidthSelection, true);
  setExtraSelections({stripe});
  margin_->ShowCurrent(textCursor().blockNumber());
}

bool TextEditor::event(QEvent* event) {
  if (event->type() == QEvent::Paint) {
    PaintOutline();
    return true;
  }
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QPlainTextEdit::event(event);
}

void TextEditor::PaintOutline() {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(theme::kBorder));
  painter.setBrush(QColor::fromRgb(theme::kField));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  if (hasFocus()) theme::PaintFocusRing(painter, rect());
}

void TextEditor::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  const QRect text = viewport()->geometry();
  margin_->setGeometry(text.left() - MarkMargin::kWidth, text.top(), MarkMargin::kWidth, text.height());
}

void TextEditor::TellCaret() {
  const QTextCursor cursor = textCursor();
  const int start = FromDocument(cursor.selectionStart());
  if (onCaret) onCaret(start, FromDocument(cursor.selectionEnd()) - start);
}

void TextEditor::Copy() const {
  const QTextCursor cursor = textCursor();
  QGuiApplication::clipboard()->setText(
      shown_.mid(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()));
}

void TextEditor::PasteFrom(bool selection) {
  if (isReadOnly()) return;  // it would go where the keyboard is
  const QClipboard* const clipboard = QGuiApplication::clipboard();
  if (onPaste) onPaste(clipboard->text(selection ? QClipboard::Selection : QClipboard::Clipboard));
}

void TextEditor::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

void TextEditor::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  // The toolkit would begin to carry marked text away.
  if (!(event->modifiers() & Qt::ShiftModifier)) setTextCursor(cursorForPosition(event->pos()));
  QPlainTextEdit::mousePressEvent(event);
  TellCaret();
}

void TextEditor::mouseMoveEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseMoveEvent(event);
  if (event->buttons() & Qt::LeftButton) TellCaret();
}

void TextEditor::mouseReleaseEvent(QMouseEvent* event) {
  // The toolkit's own paste would go past the rules of typing.
  if (event->button() == Qt::MiddleButton)
    return PasteFrom(QGuiApplication::clipboard()->supportsSelection());
  if (event->button() == Qt::LeftButton) QPlainTextEdit::mouseReleaseEvent(event);
}

void TextEditor::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();  // what a double click marks is the station's to say
}

void TextEditor::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(QStringLiteral("Copiar"), this, [this] { Copy(); })->setEnabled(textCursor().hasSelection());
  menu.addAction(QStringLiteral("Pegar"), this, [this] { PasteFrom(false); })
      ->setEnabled(!isReadOnly() && !QGuiApplication::clipboard()->text().isEmpty());
  menu.addAction(QStringLiteral("Seleccionar todo"), this, [this] {
    selectAll();
    TellCaret();
  });
  menu.exec(event->globalPos());
}

}  // namespace vintoral
