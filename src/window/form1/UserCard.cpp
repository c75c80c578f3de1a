#include "window/form1/UserCard.h"

#include <QGridLayout>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/PictureView.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 10, kPointsRow = 40;

CaptionLabel* NewLabel(int pixels, QRgb color, const QString& sample, QWidget* parent) {
  CaptionLabel::Look look;
  look.pixels = pixels;
  look.weight = QFont::Bold;
  look.color = color;
  look.padding = 4;
  look.sample = sample;
  return new CaptionLabel(look, parent);
}

}  // namespace

UserCard::UserCard(Stage& stage, QWidget* parent) : Card(theme::kCard, theme::kLine, parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin / 2);
  column->setSpacing(kMargin / 2);
  column->addWidget(BuildPhoto(stage), 1);
  column->addWidget(BuildPoints(stage));
}

int UserCard::HeightAt(int width) {
  return (width - 2 * kMargin) * 3 / 4 + kPointsRow + 2 * kMargin;
}

QWidget* UserCard::BuildPhoto(Stage& stage) {
  auto* const place = new QWidget(this);
  auto* const stack = new QStackedLayout(place);
  stack->setStackingMode(QStackedLayout::StackAll);
  const PictureView::Look look{QStringLiteral("person"), true, false};
  stack->addWidget(new PictureView(look, place));  // the calm sign while no user is known
  for (const std::size_t box : {0U, 1U}) {
    auto* const view = new PictureView(look, place);
    stack->addWidget(view);
    Bind(stage, {"PctUsuario", box}, *view);
  }
  auto* const photo = new PictureView(look, place);
  stack->addWidget(photo);
  Bind(stage, "ImgUsuario", *photo);
  return place;
}

QWidget* UserCard::BuildPoints(Stage& stage) {
  constexpr int kStarEdge = 36, kStarIcon = 26;
  auto* const place = new QWidget(this);
  place->setFixedHeight(kPointsRow);
  auto* const row = new QGridLayout(place);
  row->setContentsMargins(0, 0, 0, 0);
  row->setHorizontalSpacing(4);
  row->setColumnStretch(2, 1);
  auto* const caption = NewLabel(theme::kCaptionPixels, theme::kMuted, QStringLiteral("PUNTOS"), place);
  caption->ShowCaption(QStringLiteral("PUNTOS"));
  row->addWidget(caption, 0, 0);
  auto* const star =
      new IconButton(QStringLiteral("ImgPuntos"), kStarEdge, kStarIcon, IconButton::Kind::kPlain, place);
  row->addWidget(star, 0, 4);
  BindPlain(stage, "ImgPuntos", *star);
  const auto label = [&](std::size_t index, int pixels, const QString& sample, int at) {
    auto* const face = NewLabel(pixels, theme::kText, sample, place);
    row->addWidget(face, 0, at);
    Bind(stage, {"LblPuntos", index}, *face);
  };
  label(0, theme::kCaptionPixels, QString(), 1);
  label(2, theme::kCaptionPixels, QString(), 3);
  // What the user brings shows while a ficha is typed, the sum when it leaves: never both.
  label(1, theme::kAmountPixels, QStringLiteral("999999"), 5);
  label(3, theme::kAmountPixels, QStringLiteral("999999"), 5);
  return place;
}

}  // namespace vintoral
