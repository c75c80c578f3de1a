#include "window/controls/SlipText.h"

#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kLeftRoom = 6;  // of the paper before its first column
constexpr int kColumnsBeyond = 5;

}  // namespace

QFont SlipText::SlipFont() {
  return theme::FixedFont({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono")},
                          theme::kStrongPixels);
}

SlipText::SlipText(QWidget* parent) : TextEditor(parent) {
  BePlain();
  setFont(SlipFont());
  setViewportMargins(kLeftRoom, 0, 0, 0);
  viewport()->setAutoFillBackground(false);
  // Beside the text the edge moves along with it.
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
  connect(this, &QPlainTextEdit::textChanged, this, [this] { ShowPaleLines(); });
}

int SlipText::HeightFor(int lines) const {
  const auto margins = static_cast<int>(document()->documentMargin()) + kOutline;
  return lines * fontMetrics().lineSpacing() + 2 * margins;
}

int SlipText::LinesIn(int height) const {
  return std::max(0, height - HeightFor(0)) / fontMetrics().lineSpacing();
}

int SlipText::UsualWidth() const {
  return Place(0, 0, kColumns + kColumnsBeyond).right();
}

QRect SlipText::Place(int line, double column, double columns) const {
  const double advance = QFontMetricsF(font()).horizontalAdvance(QString(kColumns, u'0')) / kColumns;
  const double left = kOutline + kLeftRoom + document()->documentMargin() + column * advance;
  const int height = fontMetrics().lineSpacing();
  const int top = kOutline + static_cast<int>(document()->documentMargin()) + line * height;
  const int from = qRound(left);
  return {from, top, qRound(left + columns * advance) - from, height};
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

double SlipText::EdgeInView() const {
  const int scrolled = horizontalScrollBar()->value();
  return Place(0, 0, kColumns).right() + 2 - viewport()->x() - scrolled;
}

void SlipText::PaintPaper(QPainter& painter, const QRect& area, double edge) const {
  QRectF paper(area), beside(area);
  paper.setRight(std::clamp(edge, paper.left(), paper.right()));
  beside.setLeft(paper.right());
  painter.fillRect(paper, QColor::fromRgb(theme::kField));
  painter.fillRect(beside, QColor::fromRgb(theme::kWindow));
  painter.fillRect(QRectF(edge, area.top(), 1, area.height()), QColor::fromRgb(theme::kBorder));
}

void SlipText::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  PaintPaper(painter, viewport()->rect(), EdgeInView());
  painter.end();
  TextEditor::paintEvent(event);
}

/// What is only looked at is paper and no box.
void SlipText::PaintSides(QPainter& painter, double edge) const {
  PaintPaper(painter, rect(), edge);
  for (const int side : {0, width() - 1})
    painter.fillRect(side, 0, 1, height(), QColor::fromRgb(theme::kLine));
}

void SlipText::PaintOutline() {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double edge = EdgeInView() + viewport()->x();
  if (isReadOnly()) return PaintSides(painter, edge);
  QPainterPath outline;
  outline.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  painter.setClipPath(outline);
  PaintPaper(painter, rect(), edge);
  painter.setClipping(false);
  painter.setPen(QColor::fromRgb(theme::kBorder));
  painter.drawPath(outline);
  if (hasFocus()) theme::PaintFocusRing(painter, rect());
}

}  // namespace vintoral
