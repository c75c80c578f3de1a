#include "window/form1/CameraPanel.h"

#include <QHBoxLayout>
#include <QStackedLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/Mirror.h"
#include "window/controls/PictureView.h"
#include "window/controls/Text.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"
#include "window/form1/AppCameraButton.h"
#include "window/form1/LiveView.h"

namespace vintoral {

namespace {

constexpr int kArrowRow = 32;
constexpr int kArrowIcon = 20;
constexpr int kMessageInset = 6;

}  // namespace

CameraPanel::CameraPanel(Stage& stage, Camera& camera, QWidget* parent)
    : QWidget(parent), pictures_(new QWidget(this)), arrows_(new QWidget(this)) {
  BuildPictures(stage, camera);
  BuildArrows(stage);
}

void CameraPanel::BuildPictures(Stage& stage, Camera& camera) {
  auto* const stack = new QStackedLayout(pictures_);
  stack->setStackingMode(QStackedLayout::StackAll);
  auto* const live = new LiveView(camera, pictures_);
  stack->addWidget(live);
  BindPlain(stage, "Picture1", *live);
  auto& cameras = stage.mirror.StateOf<ListState>("CboDriver");
  stage.mirror.AfterViews([live, &cameras] {
    if (cameras.text.News()) live->ShowName(ToQString(*cameras.text));
  });
  auto* const outside = new AppCameraButton(pictures_);
  stack->addWidget(outside);
  BindPlain(stage, "PctAppCamera", *outside);
  auto* const still = new PictureView({}, pictures_);
  stack->addWidget(still);
  stack->setCurrentWidget(still);  // in front of the others
  Bind(stage, "Picture2", *still);

  CaptionLabel::Look look;
  look.weight = QFont::Bold;
  look.alignment = Qt::AlignCenter;
  look.outlined = true;  // to be read over any picture
  message_ = new CaptionLabel(look, this);
  Bind(stage, "LblWebCamMsg", *message_);
}

void CameraPanel::BuildArrows(Stage& stage) {
  auto* const row = new QHBoxLayout(arrows_);
  row->setContentsMargins(0, 0, 0, 0);
  const auto arrow = [&](const QString& icon) {
    auto* const button = new IconButton(icon, kArrowRow, kArrowIcon, IconButton::Kind::kPlain, arrows_);
    row->addWidget(button);
    return button;
  };
  CaptionLabel::Look look;
  look.alignment = Qt::AlignCenter;
  look.sample = QStringLiteral("999 / 999");
  place_ = new CaptionLabel(look, arrows_);
  Bind(stage, "LblFotoDetalle", *place_);
  BindPlain(stage, {"ImgFotoDetalle", 0}, *arrow(QStringLiteral("arrow-left")));
  row->addStretch(1);
  Bind(stage, {"PctFotoDetalle", 0}, *arrow(QStringLiteral("camera")));
  Bind(stage, {"PctFotoDetalle", 1}, *arrow(QStringLiteral("cameras")));
  row->addStretch(1);
  BindPlain(stage, {"ImgFotoDetalle", 1}, *arrow(QStringLiteral("arrow-right")));
}

int CameraPanel::HeightAt(int width) {
  return width * 3 / 4 + kArrowRow;
}

void CameraPanel::resizeEvent(QResizeEvent* /*event*/) {
  const int height = this->height() - kArrowRow;
  pictures_->setGeometry(0, 0, width(), height);
  message_->setGeometry(kMessageInset, height - kArrowRow - kMessageInset, width() - 2 * kMessageInset,
                        kArrowRow);
  arrows_->setGeometry(0, height, width(), kArrowRow);
  // In the middle, where the buttons stand that take photos: of a ficha on display there are none to take.
  place_->setGeometry(kArrowRow, 0, width() - 2 * kArrowRow, kArrowRow);
}

}  // namespace vintoral
