// A check box whose tick is the station's: a press turns nothing over before the station has done so.
#pragma once

#include <QCheckBox>

namespace vintoral {

class TickBox : public QCheckBox {
 public:
  explicit TickBox(QWidget* parent) : QCheckBox(parent) {
    setFocusPolicy(Qt::NoFocus);  // the focus is the station's to give
  }

 protected:
  void nextCheckState() override {}
};

}  // namespace vintoral
