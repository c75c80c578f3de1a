#include "window/controls/SlipPaper.h"

#include <QCheckBox>

#include "window/controls/SlipPhoto.h"
#include "window/controls/SlipText.h"
#include "window/controls/TextField.h"

namespace vintoral {

namespace {

constexpr int kTickWidth = 134;                  // for the longest caption of a tick
constexpr int kLeastLines = 3, kUsualLines = 5;  // of header and footer
constexpr int kPhotoColumn = 2;                  // the blanks that stand left of a photo

}  // namespace

SlipPaper::SlipPaper(int lines, QWidget* parent)
    : QWidget(parent),
      header_(new SlipText(this)),
      preview_(new SlipText(this)),
      footer_(new SlipText(this)),
      previewHeight_(preview_->HeightFor(lines)) {
  preview_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  preview_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // Only looked at: the mouse marks nothing here.
  preview_->viewport()->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SlipPaper::PutBeside(QCheckBox& tick, int line) {
  beside_.push_back({&tick, line});
  preview_->ShowPale(line, !tick.isChecked());
  connect(&tick, &QCheckBox::toggled, preview_, [this, line](bool on) { preview_->ShowPale(line, !on); });
}

void SlipPaper::PutOver(TextField& field, int line, double column, double columns, int inset) {
  field.setFont(SlipText::SlipFont());
  field.SetInset(inset);
  over_.push_back({&field, preview_->Place(line, column, columns).adjusted(-inset, 0, inset, 0)});
}

void SlipPaper::PutPhoto(SlipPhoto& photo, QCheckBox& tick, int line, int lines) {
  const QRect room = preview_->Place(line, kPhotoColumn, 1);
  const int height = lines * room.height();
  over_.push_back({&photo, QRect(room.left(), room.top(), height * 4 / 3, height)});
  beside_.push_back({&tick, line});
  photo.ShowPale(!tick.isChecked());
  connect(&tick, &QCheckBox::toggled, &photo, [&photo](bool on) { photo.ShowPale(!on); });
}

QSize SlipPaper::SizeFor(int lines) const {
  return {kTickWidth + preview_->UsualWidth(), previewHeight_ + 2 * header_->HeightFor(lines)};
}

QSize SlipPaper::sizeHint() const {
  return SizeFor(kUsualLines);
}

QSize SlipPaper::minimumSizeHint() const {
  return SizeFor(kLeastLines);
}

void SlipPaper::resizeEvent(QResizeEvent* /*event*/) {
  PlaceTexts();
  PlaceRest();
}

/// Header and footer share what is left, in whole lines.
void SlipPaper::PlaceTexts() {
  const int lines = header_->LinesIn(height() - previewHeight_ - header_->HeightFor(0));
  const int above = header_->HeightFor(lines / 2), below = footer_->HeightFor(lines - lines / 2);
  const int wide = width() - kTickWidth;
  header_->setGeometry(kTickWidth, 0, wide, above);
  preview_->setGeometry(kTickWidth, above, wide, previewHeight_);
  footer_->setGeometry(kTickWidth, above + previewHeight_, wide, below);
}

void SlipPaper::PlaceRest() {
  for (const Beside& each : beside_) {
    const QRect line = preview_->Place(each.line, 0, 1).translated(preview_->pos());
    each.tick->setGeometry(0, line.top(), kTickWidth, line.height());
  }
  for (const Over& each : over_)
    each.face->setGeometry(each.place.translated(preview_->pos()));
}

}  // namespace vintoral
