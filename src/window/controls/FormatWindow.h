// What the windows have in common in which the formats of slips are edited: the slip as it will come out, the
// printer beside it, a sample on paper, and the button that saves.
#pragma once

#include "window/controls/DialogWindow.h"

class QBoxLayout;

namespace vintoral {

class PictureLoader;
class SlipPaper;
class TextField;
class TickBox;
struct ControlName;
struct Stage;

class FormatWindow : public DialogWindow {
 public:
  FormatWindow(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 protected:
  /// The slip, with room for `lines` in its preview; the fields 1 to 5 stand in it from `fields` on.
  SlipPaper& BuildSlip(Stage& stage, int lines, int fields);
  /// The printer and, below it, what the form adds there.
  QBoxLayout& BuildPrinter(Stage& stage);
  /// As high as the screen has room, with header and footer of no more lines than usual.
  void TakeUsualSize();
  TickBox& NewTick(Stage& stage, const ControlName& name, QWidget& parent);
  TextField& NewField(Stage& stage, const ControlName& name, SlipPaper& paper);

  void resizeEvent(QResizeEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void BuildSize(Stage& stage, QWidget& card, QBoxLayout& column);
  void BuildButtons(Stage& stage, QBoxLayout& column);
  Hands& hands_;
  QWidget* ground_;
};

}  // namespace vintoral
