// The fields of the ficha with their labels, its category, and what belongs to them: the left column's head.
#pragma once

#include "window/controls/Card.h"

class QGridLayout;

namespace vintoral {

struct Stage;

class FieldsPanel : public Card {
 public:
  FieldsPanel(Stage& stage, QWidget* parent);

 private:
  void BuildLabel(Stage& stage, std::size_t index, QGridLayout& rows);
  void BuildField(Stage& stage, std::size_t index, QGridLayout& rows);
  void BuildNumberTools(Stage& stage, QGridLayout& rows);
  void BuildCategory(Stage& stage, QGridLayout& rows);
  void BuildOptions(Stage& stage, QGridLayout& rows);
};

}  // namespace vintoral
