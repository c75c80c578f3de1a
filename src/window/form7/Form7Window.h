// The keypad of the lock: alone as the prompt, under the list of what can be locked as the panel.
#pragma once

#include <array>
#include <cstddef>

#include "window/controls/DialogWindow.h"

namespace vintoral {

class KeypadKey;
class PictureLoader;
struct Stage;

class Form7Window : public DialogWindow {
 public:
  Form7Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 private:
  static constexpr std::size_t kDigits = 10, kConfirm = 11, kKeys = 12, kLength = 5;

  QWidget* BuildPanel(Stage& stage);
  QWidget* BuildKeypad(Stage& stage);
  /// The panel comes and goes with its list, and with it the title.
  void ShowMode();
  void ShowMarks();

  const LabelState* title_;
  QWidget* panel_ = nullptr;
  std::array<KeypadKey*, kKeys> keys_{};
  std::array<const LabelState*, kLength + 1> marks_{};
  const ListState* list_ = nullptr;
};

}  // namespace vintoral
