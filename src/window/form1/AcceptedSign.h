// The sign beside a code: it is there while the code is accepted, on the ground that the station gives it.
#pragma once

#include "window/controls/TextField.h"

namespace vintoral {

class AcceptedSign : public TextField {
 public:
  explicit AcceptedSign(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vintoral
