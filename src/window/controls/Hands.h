// The operator's hands: what the window's widgets tell goes down to the station, and what came of it is
// shown.
#pragma once

#include <functional>
#include <string>

#include "window/controls/Snapshot.h"

class QKeyEvent;
class QString;

namespace vintoral {

class Forms;
class Input;

class Hands {
 public:
  /// `afterwards` runs after each piece of input.
  Hands(Forms& forms, std::function<void()> afterwards);

  void Key(const QKeyEvent& event);
  /// Characters that came without a key of their own: a dead key with its letter, an input method.
  void Type(const QString& text);
  void Paste(const QString& text);
  // What is done to a control whose form has gone meanwhile falls without a word.
  void Focus(const ControlId& id);
  void Click(const ControlId& id);
  void DoubleClick(const ControlId& id);
  void Hover(const ControlId& id);
  void Select(const ControlId& id, int index);
  /// Turns the tick of a list's row over.
  void Tick(const ControlId& id, int row);
  void Scroll(const ControlId& id, int top);
  void MoveCaret(const ControlId& id, int start, int length);
  void Leave(const std::string& form);
  /// The window of this form has come to the front: keys are its own from here on.
  void Use(const std::string& form);
  void CloseBox(const std::string& form);

 private:
  template <class Action>
  void Do(Action action);
  template <class Action>
  void DoWith(const ControlId& id, Action action);
  template <class Action>
  void DoWith(const std::string& form, Action action);

  Forms& forms_;
  std::function<void()> afterwards_;
};

}  // namespace vintoral
