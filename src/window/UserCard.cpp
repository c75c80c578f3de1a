#include "window/UserCard.h"

#include <QGridLayout>
#include <QStackedLayout>

#include "window/CaptionLabel.h"
#include "window/IconButton.h"
#include "window/PictureView.h"
#include "window/Theme.h"
#include "window/Views.h"

namespace vintoral {

namespace {

constexpr int kPhotoEdge = 112;

CaptionLabel* NewLabel(int pixels, QRgb color, QWidget* parent) {
  CaptionLabel::Look look;
  look.pixels = pixels;
  look.weight = QFont::Bold;
  look.color = color;
  look.padding = 4;
  look.sample = QStringLiteral("000000");
  return new CaptionLabel(look, parent);
}

}  // namespace

UserCard::UserCard(Stage& stage, QWidget* parent) : Card(theme::kCard, theme::kLine, parent) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(10, 10, 10, 10);
  row->setSpacing(10);
  row->addWidget(BuildPhoto(stage), 0, Qt::AlignTop);
  row->addWidget(BuildPoints(stage), 1, Qt::AlignTop);
}

QWidget* UserCard::BuildPhoto(Stage& stage) {
  auto* const place = new QWidget(this);
  place->setFixedSize(kPhotoEdge, kPhotoEdge);
  auto* const stack = new QStackedLayout(place);
  stack->setStackingMode(QStackedLayout::StackAll);
  const PictureView::Look look{QStringLiteral("person"), true, false};
  stack->addWidget(new PictureView(look, place));  // the calm sign while no user is known
  for (PictureBox& box : stage.form.PctUsuario) {
    auto* const view = new PictureView(look, place);
    stack->addWidget(view);
    Bind(stage, box, *view);
  }
  auto* const photo = new PictureView(look, place);
  stack->addWidget(photo);
  Bind(stage, stage.form.ImgUsuario, *photo);
  return place;
}

QWidget* UserCard::BuildPoints(Stage& stage) {
  constexpr int kStarEdge = 36, kStarIcon = 28;
  auto* const place = new QWidget(this);
  auto* const grid = new QGridLayout(place);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setColumnStretch(2, 1);
  auto* const caption = NewLabel(theme::kCaptionPixels, theme::kMuted, place);
  caption->ShowCaption(QStringLiteral("PUNTOS"));
  grid->addWidget(caption, 0, 0, 1, 2);
  auto* const star =
      new IconButton(QStringLiteral("ImgPuntos"), kStarEdge, kStarIcon, IconButton::Kind::kPlain, place);
  grid->addWidget(star, 1, 0);
  BindPlain(stage, stage.form.ImgPuntos, *star);
  // The sum stands beside the star; the others around it.
  const auto label = [&](std::size_t index, int pixels, QRgb color, int row, int column, int columns) {
    auto* const face = NewLabel(pixels, color, place);
    grid->addWidget(face, row, column, 1, columns);
    Bind(stage, stage.form.LblPuntos[index], *face);
  };
  label(0, theme::kCaptionPixels, theme::kMuted, 0, 2, 1);
  label(1, theme::kAmountPixels, theme::kText, 1, 1, 2);
  label(2, theme::kCaptionPixels, theme::kMuted, 2, 0, 1);
  label(3, theme::kTextPixels, theme::kMuted, 2, 1, 2);
  return place;
}

}  // namespace vintoral
