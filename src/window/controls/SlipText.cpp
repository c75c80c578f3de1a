#include "window/controls/SlipText.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kLeftRoom = 8;  // of the paper before its first column
constexpr int kMargin = 4;
constexpr int kRightRoom = 4;  // behind its last one
constexpr int kColumnsBeyond = 7;

/// How far the lines of a text in this font are apart.
int PitchOf(const QFont& font) {
  QTextLayout layout(QStringLiteral("X"), font);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  return qRound(line.height());
}

double AdvanceOf(const QFont& font) {
  return QFontMetricsF(font).horizontalAdvance(QString(SlipText::kColumns, u'0')) / SlipText::kColumns;
}

}  // namespace

QFont SlipText::SlipFont() {
  return theme::FixedFont({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono")},
                          theme::kStrongPixels);
}

SlipText::SlipText(QWidget* parent)
    : TextEditor(parent), pitch_(PitchOf(SlipFont())), advance_(AdvanceOf(SlipFont())) {
  BePlain();
  setFont(SlipFont());
  setViewportMargins(kLeftRoom, 0, 0, 0);
  document()->setDocumentMargin(kMargin);
  viewport()->setAutoFillBackground(false);
  // Beside the text the edge moves along with it.
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
  connect(this, &QPlainTextEdit::textChanged, this, [this] { ShowPaleLines(); });
}

int SlipText::HeightFor(int lines) const {
  constexpr int kScrollless = 1;  // with less the toolkit begins to scroll
  return lines * pitch_ + 2 * (frameWidth() + kMargin) + kScrollless;
}

int SlipText::LinesIn(int height) const {
  return std::max(0, height - HeightFor(0)) / pitch_;
}

int SlipText::UsualWidth() const {
  return Place(0, 0, kColumns + kColumnsBeyond).right();
}

QRect SlipText::Place(int line, double column, double columns) const {
  const double left = frameWidth() + kLeftRoom + kMargin + column * advance_;
  const int from = qRound(left);
  return {from, frameWidth() + kMargin + line * pitch_, qRound(left + columns * advance_) - from, pitch_};
}

void SlipText::ShowPale(int line, bool pale) {
  const auto found = std::find(pale_.begin(), pale_.end(), line);
  if ((found != pale_.end()) == pale) return;
  if (pale) {
    pale_.push_back(line);
  } else {
    pale_.erase(found);
  }
  ShowPaleLines();
}

void SlipText::ShowPaleLines() {
  QList<QTextEdit::ExtraSelection> lines;
  for (const int line : pale_) {
    const QTextBlock block = document()->findBlockByNumber(line);
    if (!block.isValid()) continue;
    QTextEdit::ExtraSelection pale;
    pale.cursor = QTextCursor(block);
    pale.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    pale.format.setForeground(QColor::fromRgb(theme::kOff));
    lines << pale;
  }
  setExtraSelections(lines);
}

int SlipText::Edge() const {
  return Place(0, 0, kColumns).right() + kRightRoom - horizontalScrollBar()->value();
}

void SlipText::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  QRect paper = viewport()->rect();
  paper.setRight(Edge() - viewport()->x() - 1);
  painter.fillRect(paper, QColor::fromRgb(theme::kField));
  painter.fillRect(paper.right() + 1, 0, 1, paper.height(), SideColor());
  // The side of the ring that the text's own ground would cover.
  if (hasFocus()) painter.fillRect(paper.right(), 0, 2, paper.height(), QColor::fromRgb(theme::kAccent));
  painter.end();
  TextEditor::paintEvent(event);
}

void SlipText::focusInEvent(QFocusEvent* event) {
  TextEditor::focusInEvent(event);
  viewport()->update();
}

// A long line scrolls while it is written, and is seen from its start afterwards.
void SlipText::focusOutEvent(QFocusEvent* event) {
  TextEditor::focusOutEvent(event);
  viewport()->update();
  if (event->reason() != Qt::PopupFocusReason) horizontalScrollBar()->setValue(0);
}

/// What is only looked at is paper and no box.
QColor SlipText::SideColor() const {
  return QColor::fromRgb(isReadOnly() ? theme::kLine : theme::kBorder);
}

void SlipText::PaintOutline() {
  QPainter painter(this);
  QRect paper = rect();
  paper.setRight(std::min(Edge(), paper.right()));
  painter.setPen(SideColor());
  painter.setBrush(QColor::fromRgb(theme::kField));
  if (isReadOnly()) {
    painter.fillRect(paper, painter.brush());
    painter.drawLine(paper.topLeft(), paper.bottomLeft());
    return painter.drawLine(paper.topRight(), paper.bottomRight());
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawRoundedRect(QRectF(paper).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  if (hasFocus()) theme::PaintFocusRing(painter, paper);
}

}  // namespace vintoral
