// The amount to pay, large; the cash handed over and the change.
#pragma once

#include "window/controls/Card.h"

class QGridLayout;

namespace vintoral {

struct Stage;

class ValuePanel : public Card {
 public:
  ValuePanel(Stage& stage, QWidget* parent);

 private:
  void BuildValue(Stage& stage, QGridLayout& rows);
  void BuildCash(Stage& stage, QGridLayout& rows);
  void BuildChange(Stage& stage, QGridLayout& rows);
};

}  // namespace vintoral
