// The operator's hands: what the window's widgets tell goes down to the station, and what came of it is
// shown.
#pragma once

#include <functional>

#include "station/forms/Input.h"

class QKeyEvent;
class QString;

namespace vintoral {

class Hands {
 public:
  /// `afterwards` runs after each piece of input.
  Hands(Forms& forms, std::function<void()> afterwards);

  void Key(const QKeyEvent& event);
  /// Characters that came without a key of their own: a dead key with its letter, an input method.
  void Type(const QString& text);
  void Paste(const QString& text);
  void Focus(Control& control);
  void Click(Control& control);
  void DoubleClick(Control& control);
  void Hover(Control& control);
  void Select(Control& control, int index);
  void MoveCaret(Control& control, int start, int length);
  void Leave(Form& form);
  void CloseBox(Form& form);

 private:
  template <class Action>
  void Do(Action action);
  /// Control with C, X or V, where the rules of the focused text let it through.
  bool ClipboardKey(char character);

  Forms& forms_;
  Input input_;
  std::function<void()> afterwards_;
};

}  // namespace vintoral
