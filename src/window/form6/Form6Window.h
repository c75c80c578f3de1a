// The window of the tariff dialog: the tables as text behind three tabs, what a stay costs beside them, and
// the currency symbol.
#pragma once

#include "window/controls/DialogWindow.h"

class QHBoxLayout;

namespace vintoral {

class CaptionLabel;
class CurveView;
class PictureLoader;
struct Stage;

class Form6Window : public DialogWindow {
 public:
  Form6Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 private:
  void BuildTabs(Stage& stage, QHBoxLayout& row);
  void BuildTexts(Stage& stage, QHBoxLayout& row);
  void BuildPlace(QHBoxLayout& row);
  void BuildFoot(Stage& stage, QHBoxLayout& row);
  void ShowPlace(std::size_t line, std::size_t column, const QString& remark);

  CurveView* curve_;
  CaptionLabel* place_;
  CaptionLabel* remark_;
};

}  // namespace vintoral
