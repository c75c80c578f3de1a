// The window of the articles: the list with a tick for each, how many and what they cost beside its rows, and
// the total, large enough to be read by both sides of the window.
#pragma once

#include "window/controls/DialogWindow.h"

class QBoxLayout;
class QGridLayout;

namespace vintoral {

class PictureLoader;
struct Stage;

class Form4Window : public DialogWindow {
 public:
  Form4Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 private:
  /// As many rows as there are articles, as far as they are in view.
  int Rows();
  void BuildList(Stage& stage, QGridLayout& grid);
  void BuildRow(Stage& stage, int row, QGridLayout& grid);
  void BuildTotal(Stage& stage, QBoxLayout& column);
  void BuildInvoice(Stage& stage, QBoxLayout& column);
};

}  // namespace vintoral
