// The operator's hands: what the window's widgets tell goes down to the station, in its order.
#pragma once

#include <functional>
#include <string>

#include "platform/Seam.h"
#include "window/controls/Snapshot.h"

class QKeyEvent;
class QObject;
class QString;

namespace vintoral {

class Control;
class Form;
class Forms;
class Input;
class InputQueue;

class Hands {
 public:
  /// All of them outlive this. `forms` is touched on the station's side alone.
  Hands(Forms& forms, Seam& seam, InputQueue& queue) : forms_(forms), seam_(seam), queue_(queue) {}

  void Key(const QKeyEvent& event);
  /// Characters that came without a key of their own: a dead key with its letter, an input method.
  void Type(const QString& text);
  void Paste(const QString& text);
  // What is done to a control whose form has gone meanwhile falls without a word.
  /// `then` runs in the window when the station has done it and that is shown.
  void Focus(const ControlId& id, std::function<void()> then = nullptr);
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
  /// The close box of the main window, which ends the program.
  void CloseMain(const std::string& form);

  /// Asked before the station is told of a close box: true when the window sees to it by itself.
  std::function<bool()> SeesToClosing;
  /// The widget that has the keyboard now; a key that was kept is for it.
  std::function<QObject*()> HasKeyboard;

 private:
  void Serve(const QKeyEvent& event, const QString& clipboard);
  Seam::Step With(std::function<void(Input&)> action);
  Seam::Step With(const ControlId& id, std::function<void(Input&, Control&)> action);
  Seam::Step With(const std::string& form, std::function<void(Input&, Form&)> action);
  Seam::Step Then(Seam::Step step, std::function<void()> then);

  Forms& forms_;
  Seam& seam_;
  InputQueue& queue_;
};

}  // namespace vintoral
