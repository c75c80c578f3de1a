#include "window/form1/CameraPanel.h"

#include <QHBoxLayout>
#include <QStackedLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/PictureView.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kArrowRow = 32;
constexpr int kArrowIcon = 20;
constexpr int kMessageInset = 6;

}  // namespace

CameraPanel::CameraPanel(Stage& stage, QWidget* parent)
    : QWidget(parent), pictures_(new QWidget(this)), arrows_(new QWidget(this)) {
  BuildPictures(stage);
  BuildArrows(stage);
}

void CameraPanel::BuildPictures(Stage& stage) {
  auto* const stack = new QStackedLayout(pictures_);
  stack->setStackingMode(QStackedLayout::StackAll);
  const PictureView::Look live{QStringLiteral("camera-none"), true, false};
  const auto picture = [&](const char* name, const PictureView::Look& look) {
    auto* const view = new PictureView(look, pictures_);
    stack->addWidget(view);
    Bind(stage, name, *view);
  };
  picture("Picture1", live);
  picture("dspPreview", live);
  picture("PctAppCamera", live);
  picture("Picture2", PictureView::Look{});

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
  BindPlain(stage, {"ImgFotoDetalle", 0}, *arrow(QStringLiteral("arrow-left")));
  row->addStretch(1);
  Bind(stage, {"PctFotoDetalle", 0}, *arrow(QStringLiteral("PctBoton-0")));
  Bind(stage, {"PctFotoDetalle", 1}, *arrow(QStringLiteral("PctBoton-0")));
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
}

}  // namespace vintoral
