// What the operator's hands do, for every face of the station: the driver and the windows call this and
// nothing else.
//
// Keys reach the form first, then the focused control. What a key may do in a field is decided here, once.
#pragma once

#include <string_view>

#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {

class Input {
 public:
  explicit Input(Form1& form) : form_(form) {}

  /// One physical key: the form, then the focused control (with the character that the key makes there).
  void Key(int code, int mask);
  /// The form's half of Key, for a face whose system tells keys and characters apart (dead keys, input
  /// methods). True when the key was a command: then neither ControlKey nor Character may follow. Otherwise
  /// call ControlKey, and Character for each character that came of the key.
  bool KeyDown(int code, int mask);
  /// Caret and list movement in the focused control: arrows, Home, End, Delete, Tab, space on a tick box.
  void ControlKey(int code, int mask);
  /// A character typed into the focused control, through that control's key rules. Enter is 13, Backspace 8.
  void Character(char character);
  /// Characters pasted at the caret of the focused control, each through the rules of typing.
  void Paste(const String& text);
  /// The whole text of a control replaced, as a paste over everything would.
  void ReplaceText(Control& control, const String& text);

  void Focus(Control& control);
  void Click(Control& control);
  void DoubleClick(Control& control);
  void Hover(Control& control);
  /// The operator chose an item of a list; false when there is no such item or the control is no list.
  bool Select(Control& control, int index);
  /// A tick box set, as by a click.
  bool Check(Control& control, int value);
  /// The caret or selection of a text box moved by the mouse.
  void MoveCaret(TextBox& box, std::size_t start, std::size_t length);

 private:
  void EnterKey(Control& control);
  void FieldEnter(std::size_t index);
  void ClickButton(int index);
  void TypeInText(TextBox& box, char character);
  void TypeInList(ComboBox& list, char character);
  void TypeInMinutes(char character);
  void MoveInText(TextBox& box, int code, int mask);
  void MoveInList(ComboBox& list, int code);
  void NextControl(bool back);

  Form1& form_;
};

}  // namespace vintoral
