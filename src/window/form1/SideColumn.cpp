#include "window/form1/SideColumn.h"

#include <algorithm>

#include "window/controls/Theme.h"
#include "window/form1/CameraPanel.h"
#include "window/form1/StatusPanel.h"
#include "window/form1/UserCard.h"

namespace vintoral {

namespace {

constexpr int kLeast = 264, kMost = 640;
constexpr int kLeastUser = 150;

}  // namespace

SideColumn::SideColumn(Stage& stage, Camera& camera, QWidget* parent)
    : QWidget(parent),
      camera_(new CameraPanel(stage, camera, this)),
      user_(new UserCard(stage, this)),
      status_(new StatusPanel(stage, this)) {
  setMinimumWidth(kLeast);
  setMaximumWidth(kMost);
}

QSize SideColumn::minimumSizeHint() const {
  return {kLeast,
          CameraPanel::HeightAt(kLeast) + kLeastUser + status_->sizeHint().height() + 2 * theme::kGap};
}

void SideColumn::resizeEvent(QResizeEvent* /*event*/) {
  const int foot = status_->sizeHint().height();
  const int room = height() - foot - 2 * theme::kGap;
  const int camera = std::min(CameraPanel::HeightAt(width()), room - kLeastUser);
  const int user = std::min(UserCard::HeightAt(width()), room - camera);
  camera_->setGeometry(0, 0, width(), camera);
  user_->setGeometry(0, camera + theme::kGap, width(), user);
  status_->setGeometry(0, height() - foot, width(), foot);
}

}  // namespace vintoral
