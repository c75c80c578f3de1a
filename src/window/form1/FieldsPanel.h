// The fields of the ficha with their labels, its category, and what belongs to them: the left column's head.
//
// Below the category stands a row of options. While tickets carry bar codes it stands below the number
// instead, as a band that begins with the code: there a reader types, and there the eye goes first. Only the
// switch between the two moves anything.
#pragma once

#include <QList>

#include "window/controls/Card.h"

class QGridLayout;

namespace vintoral {

class TextField;
class TickBox;
struct Stage;

class FieldsPanel : public Card {
 public:
  FieldsPanel(Stage& stage, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void BuildLabel(Stage& stage, std::size_t index);
  void BuildField(Stage& stage, std::size_t index);
  void BuildNumberTools(Stage& stage);
  void BuildCategory(Stage& stage);
  void BuildOptions(Stage& stage);
  void BuildCode(Stage& stage);
  void BuildValidity(Stage& stage);
  void FollowMode(Stage& stage);
  void ShowCodes(bool codes);

  QGridLayout* rows_;
  QWidget* options_;
  QGridLayout* inOptions_;
  TickBox* invoice_ = nullptr;
  TextField* code_ = nullptr;
  QList<QWidget*> onBand_;  ///< what the options' ground shows behind
  bool codes_ = false;
};

}  // namespace vintoral
