// When the ficha came and went, and how long it stayed; while idle the clock.
#pragma once

#include "window/controls/Card.h"

class QGridLayout;

namespace vintoral {

class CaptionLabel;
struct Stage;

class StayPanel : public Card {
 public:
  StayPanel(Stage& stage, QWidget* parent);

 private:
  void BuildStamp(Stage& stage, std::size_t sign, std::size_t row, QGridLayout& rows);
  void BuildStay(Stage& stage, QGridLayout& rows);
};

}  // namespace vintoral
