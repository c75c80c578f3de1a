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

constexpr int kPhotoEdge = 96;

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
  const PictureView::Look look{QStringLiteral("person"), true, true};
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
  constexpr int kStarEdge = 36, kStarIcon = 26;
  auto* const place = new QWidget(this);
  auto* const grid = new QGridLayout(place);
  grid->setContentsMargins(0, 0, 0, 0);
  auto* const star =
      new IconButton(QStringLiteral("ImgPuntos"), kStarEdge, kStarIcon, IconButton::Kind::kPlain, place);
  grid->addWidget(star, 0, 0, 2, 1);
  BindPlain(stage, stage.form.ImgPuntos, *star);
  for (std::size_t i = 0; i < stage.form.LblPuntos.size(); ++i) {
    CaptionLabel::Look look;
    look.pixels = i % 2 == 1 ? 20 : 13;  // numbers are the odd ones
    look.weight = i % 2 == 1 ? QFont::Bold : QFont::Normal;
    look.padding = 4;
    look.sample = QStringLiteral("000000");
    auto* const label = new CaptionLabel(look, place);
    grid->addWidget(label, static_cast<int>(i / 2), static_cast<int>(1 + i % 2));
    Bind(stage, stage.form.LblPuntos[i], *label);
  }
  grid->setColumnStretch(2, 1);
  return place;
}

}  // namespace vintoral
