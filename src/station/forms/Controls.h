// The controls of a screen, as plain values: a window shows them, the driver reads and drives them, and the
// station reads its own state back from them. Nothing here knows a toolkit.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/Money.h"
#include "common/String.h"
#include "platform/Clock.h"
#include "platform/Picture.h"
#include "station/forms/KeyVerdict.h"
#include "station/forms/LineMark.h"

namespace vintoral {

/// Red in the low byte.
using Color = std::int32_t;
inline constexpr Color kLightOrange = 0x80C0FF;
inline constexpr Color kLightRed = 0x8080FF;
inline constexpr Color kLightGreen = 0xC0FFC0;
inline constexpr Color kLightYellow = 0xC0FFFF;
inline constexpr Color kYellow = 0x80FFFF;
inline constexpr Color kWhite = 0xFFFFFF;

class TextBox;
class Label;
class ComboBox;
class ListBox;
class CheckBox;
class PictureBox;
class Image;
class CommandButton;
class Frame;
class Shape;
class FileList;
class Timer;
class OptionButton;
class Chart;
class Form;

/// One function for each kind of control; what a face does with a control depends on its kind alone.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(TextBox&) = 0;
  virtual void Visit(Label&) = 0;
  virtual void Visit(ComboBox&) = 0;
  virtual void Visit(ListBox&) = 0;
  virtual void Visit(CheckBox&) = 0;
  virtual void Visit(PictureBox&) = 0;
  virtual void Visit(Image&) = 0;
  virtual void Visit(CommandButton&) = 0;
  virtual void Visit(Frame&) = 0;
  virtual void Visit(Shape&) = 0;
  virtual void Visit(FileList&) = 0;
  virtual void Visit(Timer&) = 0;
  virtual void Visit(OptionButton&) = 0;
  virtual void Visit(Chart&) = 0;
};

class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;
  virtual void Accept(ControlVisitor& visitor) = 0;

  /// The screen name, "TxtCampo(0)", and the form that it stands on; given when the form is built.
  std::string Name;
  Form* Owner = nullptr;
  bool Visible = true;
  bool Enabled = true;
  String Tag;
  String ToolTipText;
  /// Where the pointer sets ToolTipText: what it would set by now. A window that the station can't answer at
  /// the moment shows that.
  std::function<String()> ToolTipAhead;
  /// Can the keyboard focus stand here when it is shown and enabled?
  bool CanFocus = false;

  bool TakesFocus() const { return CanFocus && Visible && Enabled; }
  /// The tag read as a number.
  std::int64_t TagNumber() const;

  // What the form does when hands do something here; wired where the form is built. None of these follows
  // from what the program itself sets.
  std::function<void()> OnClick;
  std::function<void()> OnDoubleClick;
  std::function<void()> OnHover;  ///< the pointer is over it
  std::function<void()> OnGotFocus;
  std::function<void()> OnLostFocus;
};

/// A text that hands edit at a caret. Line ends are CR LF; no caret stands between the two.
class EditableText {
 public:
  virtual ~EditableText() = default;

  const String& Text() const { return text_; }
  /// Puts `text` in place of the selection, caret behind it: what typing and pasting do. Cut at MaxLength.
  void Insert(const String& text);
  /// Backspace and Delete: the selection, or the character before or behind the caret.
  void EraseBackward();
  void EraseForward();
  void SelectAll();
  /// Selects `length` characters from `start`, as far as the text goes; the caret stands at their end.
  void Select(std::size_t start, std::size_t length);
  /// Moves the caret; `extend` leaves the other end of the selection where it is.
  void MoveCaret(std::size_t position, bool extend);
  std::size_t Caret() const;

  std::size_t SelStart = 0;
  std::size_t SelLength = 0;
  std::size_t MaxLength = 0;  ///< 0: no limit
  /// How long a text may be, where that depends on the text: MaxLength follows it, and what a change leaves
  /// too long is cut.
  std::function<std::size_t(std::string_view)> LimitRule;
  /// What a character may do here; without a rule every one passes.
  std::function<KeyVerdict(char)> KeyRule;
  std::function<void()> OnEnter;
  std::function<void()> OnChange;

 protected:
  EditableText() = default;
  EditableText(const EditableText&) = delete;
  EditableText& operator=(const EditableText&) = delete;
  /// The text has become another.
  virtual void TextChanged() = 0;
  String text_;

 private:
  void Replace(std::size_t start, std::size_t length, const String& text);
  String Replaced(std::size_t start, std::size_t length, std::string_view text) const;
  std::size_t Start() const;
  std::size_t End() const;
  bool caretFirst_ = false;  ///< the caret stands at the start of the selection
};

/// An entry box with a caret, of one line or of many.
class TextBox : public Control, public EditableText {
 public:
  TextBox() { CanFocus = true; }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  /// Replaces the text as the program does: the caret goes to the start, nothing is selected. The change
  /// event follows once, and only when the text really changed.
  void SetText(const String& text);
  /// Capitals in place, caret and selection kept, no change event of its own.
  void RaiseToCapitals();

  bool Locked = false;
  bool MultiLine = false;  ///< Enter begins a line; the arrows move over lines
  Color BackColor = kWhite;
  std::vector<LineMark> Marks;
  std::function<void()> OnCaret;  ///< hands have moved the caret

 protected:
  void TextChanged() override;
};

class Label : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  String Caption;
  Color BackColor = kWhite;
};

/// A list box with a text: the text is an item of the list, or whatever the program or the operator put
/// there.
class ComboBox : public Control, public EditableText {
 public:
  ComboBox() { CanFocus = true; }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  /// The item that equals `text` (case ignored) is selected, none otherwise; the text stands as given, the
  /// caret behind it.
  void SetText(const String& text);
  const std::vector<String>& List() const { return list_; }
  int ListIndex() const { return index_; }
  /// Selects item `index` (0 the first) and takes its text; -1 selects none and empties the text.
  void Select(int index);
  /// Shows another text for the item that is selected.
  void ShowInstead(const String& text);
  void AddItem(const String& item) { list_.push_back(item); }
  /// Without items, text and selection.
  void Clear();

  bool Editable = false;  ///< does typing change the text, or jump to an item?
  Color BackColor = kWhite;
  std::function<void()> OnChoose;  ///< hands have chosen an item

 protected:
  void TextChanged() override;

 private:
  void ShowWhole();
  std::vector<String> list_;
  int index_ = -1;
};

class ListBox : public Control {
 public:
  ListBox() { CanFocus = true; }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  std::vector<String> List;
  std::vector<bool>
      Checked;  ///< empty, or for each row whether it is ticked; in a list of several choices, chosen
  bool SeveralChoices = false;  ///< a press on a row turns its choice over
  int ListIndex = -1;
  int TopIndex = 0;
  std::function<void()> OnChoose;           ///< another row has the focus of the list
  std::function<void()> OnPress;            ///< a row was pressed, by a click or by Enter
  std::function<void(std::size_t)> OnTick;  ///< the tick of a row was turned over
  std::function<void()> OnScroll;
};

class CheckBox : public Control {
 public:
  CheckBox() { CanFocus = true; }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  String Caption;
  int Value = 0;
};

/// One of the choices that stand on the same panel: choosing it ends the choice of the others.
class OptionButton : public Control {
 public:
  OptionButton() { CanFocus = true; }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  String Caption;
  const Control* Panel = nullptr;
  bool Value = false;
};

/// A panel: a button of the tool bar, a light, a picture frame.
class PictureBox : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  int BorderStyle = 0;  ///< 0 up, 1 pressed
  Color BackColor = kWhite;
  vintoral::Picture Picture;
};

class Image : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  vintoral::Picture Picture;
  String Caption;  ///< painted on the picture
};

class CommandButton : public Control {
 public:
  CommandButton() { CanFocus = true; }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  String Caption;
};

class Frame : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  String Caption;
};

/// The frame around a cell of the grid.
class Shape : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  int Cell = -1;  ///< the cell that it surrounds, -1 for its default place
};

/// The files of a folder.
class FileList : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  String Path;     ///< station path of the folder
  String Pattern;  ///< "*.jpg"
  std::vector<String> List;
  int ListIndex = -1;
};

/// A curve: one value for each of equal steps, drawn with its axes.
class Chart : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  String Caption;
  std::vector<Money> Values;
};

/// A timer of the event loop. Turning it on, and a new interval, start its wait afresh; setting what already
/// holds changes nothing.
class Timer : public Control {
 public:
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  /// Must be called once before use.
  void UseClock(const Clock& clock) { clock_ = &clock; }

  int Interval() const { return interval_; }
  void SetInterval(int milliseconds);
  bool Running() const { return Enabled && interval_ > 0; }
  void SetEnabled(bool enabled);
  /// Off and on: the wait starts afresh.
  void Restart();

  /// When the next tick is due, in Clock::Ticks; meaningful while Running.
  std::int64_t Due() const { return due_; }
  /// The tick that was due happens now: the next one is an interval later, and late ticks are not caught up
  /// with.
  void Advance();

  std::function<void()> OnTick;

 private:
  void Arm();
  const Clock* clock_ = nullptr;
  int interval_ = 0;
  std::int64_t due_ = 0;
};

}  // namespace vintoral
