#include "window/form1/UserCard.h"

#include <QGridLayout>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <array>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/Mirror.h"
#include "window/controls/PictureView.h"
#include "window/controls/Text.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 10, kNameRow = 24, kPointsRow = 40;
constexpr std::size_t kFirstName = 2, kSurname = 3;  // of the fields
constexpr std::size_t kSum = 1, kBrought = 3;        // of LblPuntos

CaptionLabel* NewLabel(int pixels, QRgb color, const QString& sample, QWidget* parent) {
  CaptionLabel::Look look;
  look.pixels = pixels;
  look.weight = QFont::Bold;
  look.color = color;
  look.padding = 4;
  look.sample = sample;
  return new CaptionLabel(look, parent);
}

/// Whose card it is, as the fields of the ficha have it.
class WhoseCard {
 public:
  explicit WhoseCard(Mirror& mirror)
      : sum_(mirror.StateOf<LabelState>(ControlName("LblPuntos", kSum).text)),
        brought_(mirror.StateOf<LabelState>(ControlName("LblPuntos", kBrought).text)),
        row_{Row(mirror, kFirstName), Row(mirror, kSurname)},
        box_{Box(mirror, kFirstName), Box(mirror, kSurname)} {}

  /// Empty while no user is known.
  QString Name() const {
    if (*sum_.visible) return Joined(*row_[0]->caption, *row_[1]->caption);
    return *brought_.visible ? Joined(*box_[0]->text, *box_[1]->text) : QString();
  }

 private:
  static const LabelState* Row(Mirror& mirror, std::size_t field) {
    return &mirror.StateOf<LabelState>(ControlName("LblCampo", field).text);
  }
  static const TextBoxState* Box(Mirror& mirror, std::size_t field) {
    return &mirror.StateOf<TextBoxState>(ControlName("TxtCampo", field).text);
  }
  static QString Joined(const String& first, const String& surname) {
    return (ToQString(TrimBlanks(first)) + u' ' + ToQString(TrimBlanks(surname))).trimmed();
  }

  const LabelState& sum_;      ///< while a ficha leaves
  const LabelState& brought_;  ///< while the ficha of a known user is typed
  std::array<const LabelState*, 2> row_;
  std::array<const TextBoxState*, 2> box_;
};

}  // namespace

UserCard::UserCard(Stage& stage, QWidget* parent) : Card(theme::kCard, theme::kLine, parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin / 2);
  column->setSpacing(kMargin / 2);
  column->addWidget(BuildPhoto(stage), 1);
  column->addWidget(BuildName(stage));
  column->addWidget(BuildPoints(stage));
}

int UserCard::HeightAt(int width) {
  return (width - 2 * kMargin) * 3 / 4 + kNameRow + kPointsRow + 5 * kMargin / 2;
}

QWidget* UserCard::BuildPhoto(Stage& stage) {
  auto* const place = new QWidget(this);
  auto* const stack = new QStackedLayout(place);
  stack->setStackingMode(QStackedLayout::StackAll);
  const PictureView::Look look{QStringLiteral("person"), true, false};
  // The first lies above.
  auto* const photo = new PictureView(look, place);
  stack->addWidget(photo);
  Bind(stage, "ImgUsuario", *photo);
  for (const std::size_t box : {0U, 1U}) {
    auto* const view = new PictureView(look, place);
    stack->addWidget(view);
    Bind(stage, {"PctUsuario", box}, *view);
  }
  stack->addWidget(new PictureView(look, place));  // the calm sign while no user is known
  return place;
}

QWidget* UserCard::BuildName(Stage& stage) {
  auto* const name = NewLabel(theme::kTextPixels, theme::kText, QString(), this);
  name->setObjectName(QStringLiteral("UserName"));
  name->setFixedHeight(kNameRow);
  stage.mirror.AfterViews([name, whose = WhoseCard(stage.mirror)] {
    const QString shown = whose.Name();
    if (shown != name->Caption()) name->ShowCaption(shown);
  });
  return name;
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
      new IconButton(QStringLiteral("ImgPuntos"), kStarEdge, kStarIcon, IconButton::Kind::kTool, place);
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
  label(kSum, theme::kAmountPixels, QStringLiteral("999999"), 5);
  label(kBrought, theme::kAmountPixels, QStringLiteral("999999"), 5);
  return place;
}

}  // namespace vintoral
