// What the operator's hands do, for every face of the station: the driver and the windows call this and
// nothing else.
//
// Keys reach the active form first, then its focused control. What a key may do in a control, and what a
// click, an Enter or a choice does there, was wired when its form was built; no form is known here by name.
#pragma once

#include <optional>

#include "station/forms/Forms.h"
#include "station/forms/Keys.h"

namespace vintoral {

/// The character that a key makes on a plain keyboard, 0 for none: Control and a letter, with Shift or
/// without, make the characters 1 to 26.
char CharacterOf(int code, int mask);

/// What is done in a form that a modal one holds, and after the program's end, counts for nothing.
class Input {
 public:
  explicit Input(Forms& forms) : forms_(forms) {}

  /// One physical key: the form, then the focused control (with the character that the key makes there).
  void Key(int code, int mask);
  /// The form's half of Key, for a face whose system tells keys and characters apart (dead keys, input
  /// methods). True when the key was a command: then neither ControlKey nor Character may follow. Otherwise
  /// call ControlKey, and Character for each character that came of the key.
  bool KeyDown(int code, int mask);
  /// What a key does in the focused control besides typing: arrows, Home, End, Delete, Tab, the space bar.
  void ControlKey(int code, int mask);
  /// A character typed into the focused control, through that control's key rules. Enter is 13, Backspace 8.
  void Character(char character);
  /// Characters pasted at the caret of the focused control, each through the rules of typing.
  void Paste(const String& text);
  /// Control and V: pastes where the rules of the focused text let that character through; false where they
  /// don't.
  bool PasteKey(const String& clipboard);
  /// Control and C, or with `cut` Control and X: the selected text of the focused control, which cutting
  /// takes out of it; nothing where its rules don't let that character through.
  std::optional<String> CopyKey(bool cut);
  /// The whole text of a control replaced, as a paste over everything would.
  void ReplaceText(Control& control, const String& text);

  void Focus(Control& control);
  void Click(Control& control);
  void DoubleClick(Control& control);
  void Hover(Control& control);
  /// The pointer has left the controls of a form.
  void Leave(Form& form);
  /// An item of a list was pressed; false when there is no such item or the control is no list.
  bool Select(Control& control, int index);
  /// A tick box or an option set, as by a click; false when the control takes no such value.
  bool Check(Control& control, int value);
  /// The tick of a list's row; false when there is no such tick.
  bool Tick(Control& control, int row, int value);
  /// The first visible row of a list; false when there is no such row.
  bool Scroll(Control& control, int top);
  /// The caret or selection of a text moved by the mouse.
  void MoveCaret(Control& control, std::size_t start, std::size_t length);
  /// The close box of a form: the main one asks and ends the program, a dialog goes.
  void CloseBox(Form& form);

 private:
  bool Takes(const Control& control) const;
  Control* Focused() const { return forms_.Active().Focus(); }
  void Enter(Control& control);
  void TypeInText(Control& control, EditableText& text, char character);
  void FindInList(ComboBox& list, char character);
  void EditKey(Control& control, EditableText& text, int code, int mask);
  void ChoiceKey(ComboBox& list, int code);
  void RowKey(ListBox& list, int code);
  void Beep() { forms_.OnScreen().Beep(); }

  Forms& forms_;
};

}  // namespace vintoral
