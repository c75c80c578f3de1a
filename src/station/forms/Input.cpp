#include "station/forms/Input.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "station/forms/TextCaret.h"

namespace vintoral {
namespace {

constexpr char kControlA = 1, kControlC = 3, kControlV = 22, kControlX = 24;
constexpr int kPageLines = 10;
constexpr std::string_view kLineEnd = "\r\n";

bool IsPrintable(char character) {
  return static_cast<unsigned char>(character) >= ' ';
}

/// The text that hands may edit in `control`; null where there is none. A locked one still has its caret.
EditableText* TextOf(Control* control) {
  if (auto* box = dynamic_cast<TextBox*>(control)) return box;
  auto* const list = dynamic_cast<ComboBox*>(control);
  return list != nullptr && list->Editable ? list : nullptr;
}

bool IsLocked(const Control& control) {
  const auto* const box = dynamic_cast<const TextBox*>(&control);
  return box != nullptr && box->Locked;
}

bool IsMultiLine(const Control& control) {
  const auto* const box = dynamic_cast<const TextBox*>(&control);
  return box != nullptr && box->MultiLine;
}

KeyVerdict VerdictOn(const EditableText& text, char character) {
  return text.KeyRule ? text.KeyRule(character) : KeyVerdict::kPass;
}

void TellCaret(Control& control) {
  const auto* const box = dynamic_cast<const TextBox*>(&control);
  if (box != nullptr && box->OnCaret) box->OnCaret();
}

template <class... Arguments, class... Values>
void Raise(const std::function<void(Arguments...)>& event, Values... values) {
  if (event) event(values...);
}

/// Lines end in CR LF, whatever ended them where the text was copied.
String WithLineEnds(const String& text) {
  std::string lines;
  const std::string& bytes = text.Bytes();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool ends = bytes[i] == '\n' || bytes[i] == '\r';
    if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
    if (ends) {
      lines += kLineEnd;
    } else {
      lines += bytes[i];
    }
  }
  return String(std::move(lines));
}

/// Whether a pasted character belongs into the text: what makes its lines counts in a text of many.
bool IsText(const Control& control, char character) {
  return IsPrintable(character) ||
         (IsMultiLine(control) && (character == '\r' || character == '\n' || character == '\t'));
}

/// Where a key leads the caret; nothing for a key that doesn't move it.
std::optional<std::size_t> CaretAfter(const EditableText& text, bool lines, int code, int mask) {
  const String& all = text.Text();
  const std::size_t caret = text.Caret();
  const bool extend = (mask & keys::kShift) != 0, far = (mask & keys::kControl) != 0 || !lines;
  const bool collapse = text.SelLength > 0 && !extend;
  switch (code) {
    case keys::kLeft:
      return collapse ? text.SelStart : CaretBefore(all, caret);
    case keys::kRight:
      return collapse ? text.SelStart + text.SelLength : CaretBehind(all, caret);
    case keys::kHome:
      return far ? 0 : LineStart(all, caret);
    case keys::kEnd:
      return far ? all.Size() : LineEnd(all, caret);
    default:
      break;
  }
  if (!lines) return std::nullopt;
  switch (code) {
    case keys::kUp:
      return CaretLines(all, caret, -1);
    case keys::kDown:
      return CaretLines(all, caret, 1);
    case keys::kPageUp:
      return CaretLines(all, caret, -kPageLines);
    case keys::kPageDown:
      return CaretLines(all, caret, kPageLines);
    default:
      return std::nullopt;
  }
}

}  // namespace

char CharacterOf(int code, int mask) {
  const bool letter = code >= 'A' && code <= 'Z';
  if ((mask & keys::kAlt) != 0) return 0;
  if ((mask & keys::kControl) != 0) return letter ? static_cast<char>(code - 'A' + 1) : '\0';
  if (letter) return static_cast<char>(mask == keys::kShift ? code : code - 'A' + 'a');
  if (code >= '0' && code <= '9' && mask == 0) return static_cast<char>(code);
  if (code >= keys::kNumpad0 && code <= keys::kNumpad0 + 9)
    return static_cast<char>(code - keys::kNumpad0 + '0');
  const bool plain =
      code == keys::kBackspace || code == keys::kEnter || code == keys::kEscape || code == keys::kSpace;
  return plain ? static_cast<char>(code) : '\0';
}

bool Input::Takes(const Control& control) const {
  return !forms_.Ended() && control.Owner != nullptr && forms_.Reaches(*control.Owner);
}

void Input::Key(int code, int mask) {
  const Forms::Handling handling(forms_);
  if (KeyDown(code, mask)) return;
  const Control* const focus = Focused();
  ControlKey(code, mask);
  const char character = CharacterOf(code, mask);
  // What the key has done in one control must not type into the next.
  if (character != 0 && Focused() == focus) Character(character);
}

bool Input::KeyDown(int code, int mask) {
  const Forms::Handling handling(forms_);
  return forms_.Ended() || forms_.Active().Form_KeyDown(code, mask) || forms_.Ended();
}

void Input::ControlKey(int code, int mask) {
  const Forms::Handling handling(forms_);
  if (forms_.Ended()) return;
  if (code == keys::kTab) {
    Form& form = forms_.Active();
    if (!form.Form_KeyPress(static_cast<char>(keys::kTab))) form.MoveFocus((mask & keys::kShift) != 0);
    return;
  }
  Control* const focus = Focused();
  if (focus == nullptr || !focus->Visible || !focus->Enabled) return;
  if (EditableText* text = TextOf(focus)) EditKey(*focus, *text, code, mask);
  if (auto* list = dynamic_cast<ComboBox*>(focus)) return ChoiceKey(*list, code);
  if (auto* rows = dynamic_cast<ListBox*>(focus)) return RowKey(*rows, code);
  if (code != keys::kSpace) return;
  if (auto* tick = dynamic_cast<CheckBox*>(focus)) Check(*tick, 1 - tick->Value);
  if (dynamic_cast<OptionButton*>(focus) != nullptr) Check(*focus, 1);
  if (dynamic_cast<CommandButton*>(focus) != nullptr) Click(*focus);
}

void Input::EditKey(Control& control, EditableText& text, int code, int mask) {
  if (code == keys::kDelete && !IsLocked(control)) text.EraseForward();
  const std::optional<std::size_t> caret = CaretAfter(text, IsMultiLine(control), code, mask);
  if (caret) text.MoveCaret(*caret, (mask & keys::kShift) != 0);
  if (caret || code == keys::kDelete) TellCaret(control);
}

void Input::ChoiceKey(ComboBox& list, int code) {
  const int last = static_cast<int>(list.List().size()) - 1;
  const int step = code == keys::kDown ? 1 : code == keys::kUp ? -1 : 0;
  if (step == 0 || last < 0) return;
  const int index = std::clamp(list.ListIndex() + step, 0, last);
  if (index != list.ListIndex()) static_cast<void>(Select(list, index));
}

void Input::RowKey(ListBox& list, int code) {
  const int last = static_cast<int>(list.List.size()) - 1;
  if (last < 0) return;
  if (code == keys::kSpace) {
    const auto row = static_cast<std::size_t>(list.ListIndex);
    if (row < list.Checked.size()) Tick(list, list.ListIndex, list.Checked[row] ? 0 : 1);
    return;
  }
  const int step = code == keys::kDown       ? 1
                   : code == keys::kUp       ? -1
                   : code == keys::kPageDown ? kPageLines
                   : code == keys::kPageUp   ? -kPageLines
                   : code == keys::kHome     ? -last - 1
                   : code == keys::kEnd      ? last + 1
                                             : 0;
  const int index = std::clamp(list.ListIndex + step, 0, last);
  if (step == 0 || index == list.ListIndex) return;
  list.ListIndex = index;
  Raise(list.OnChoose);
}

void Input::Character(char character) {
  const Forms::Handling handling(forms_);
  if (forms_.Ended() || forms_.Active().Form_KeyPress(character)) return;
  Control* const focus = Focused();
  if (focus == nullptr || !focus->Visible || !focus->Enabled) return;
  if (character == keys::kEnter) return Enter(*focus);
  if (EditableText* text = TextOf(focus)) return TypeInText(*focus, *text, character);
  if (auto* list = dynamic_cast<ComboBox*>(focus)) FindInList(*list, character);
}

void Input::Enter(Control& control) {
  auto* const box = dynamic_cast<TextBox*>(&control);
  if (box != nullptr && box->MultiLine) {
    if (!box->Locked) box->Insert(String(kLineEnd));
    return TellCaret(control);
  }
  if (box != nullptr) return Raise(box->OnEnter);
  if (auto* list = dynamic_cast<ComboBox*>(&control)) return Raise(list->OnEnter);
  if (auto* rows = dynamic_cast<ListBox*>(&control)) return Raise(rows->OnPress);
  if (dynamic_cast<CommandButton*>(&control) != nullptr) Click(control);
}

void Input::TypeInText(Control& control, EditableText& text, char character) {
  const KeyVerdict verdict = VerdictOn(text, character);
  if (verdict == KeyVerdict::kBeep) Beep();
  if (verdict != KeyVerdict::kPass || IsLocked(control)) return;
  if (character == keys::kBackspace) {
    text.EraseBackward();
  } else if (character == kControlA) {
    text.SelectAll();
  } else if (IsPrintable(character)) {
    text.Insert(String(1, character));
  }
  TellCaret(control);
}

void Input::FindInList(ComboBox& list, char character) {
  const int count = static_cast<int>(list.List().size());
  if (!IsPrintable(character)) return;
  for (int i = 1; i <= count; ++i) {
    const int index = (list.ListIndex() + i + count) % count;
    const String& item = list.List()[static_cast<std::size_t>(index)];
    if (item.Empty() || UpperByte(item[0]) != UpperByte(character)) continue;
    static_cast<void>(Select(list, index));
    return;
  }
}

void Input::Paste(const String& text) {
  const Forms::Handling handling(forms_);
  Control* const focus = Focused();
  EditableText* const into = TextOf(focus);
  if (forms_.Ended() || into == nullptr || IsLocked(*focus) || !focus->Visible || !focus->Enabled) return;
  std::string kept;
  bool beep = false;
  for (const char character : text.Bytes()) {
    const KeyVerdict verdict = VerdictOn(*into, character);
    beep = beep || verdict == KeyVerdict::kBeep;
    if (verdict == KeyVerdict::kPass && IsText(*focus, character)) kept += character;
  }
  if (beep) Beep();
  into->Insert(WithLineEnds(String(std::move(kept))));
  TellCaret(*focus);
}

bool Input::PasteKey(const String& clipboard) {
  const EditableText* const text = TextOf(Focused());
  if (text == nullptr || VerdictOn(*text, kControlV) != KeyVerdict::kPass) return false;
  Paste(clipboard);
  return true;
}

std::optional<String> Input::CopyKey(bool cut) {
  const Forms::Handling handling(forms_);
  Control* const focus = Focused();
  EditableText* const text = TextOf(focus);
  if (text == nullptr || !focus->Visible || !focus->Enabled) return std::nullopt;
  if (VerdictOn(*text, cut ? kControlX : kControlC) != KeyVerdict::kPass) return std::nullopt;
  const String selected = Mid(text->Text(), text->SelStart + 1, text->SelLength);
  if (cut && !selected.Empty() && !IsLocked(*focus)) {
    text->EraseForward();
    TellCaret(*focus);
  }
  return selected;
}

void Input::ReplaceText(Control& control, const String& text) {
  const Forms::Handling handling(forms_);
  if (!Takes(control)) return;
  forms_.Activate(*control.Owner);
  if (auto* list = dynamic_cast<ComboBox*>(&control)) {
    const auto item = std::find_if(list->List().begin(), list->List().end(),
                                   [&](const String& i) { return EqualNoCase(Trim(i), Trim(text)); });
    if (item != list->List().end()) {
      static_cast<void>(Select(*list, static_cast<int>(item - list->List().begin())));
      return;
    }
  }
  EditableText* const into = TextOf(&control);
  if (into == nullptr || IsLocked(control)) return;
  Form& form = *control.Owner;
  Control* const focus = form.Focus();
  form.SetFocus(&control);
  into->SelectAll();
  if (form.Focus() != &control) return;
  Paste(text);
  if (form.Focus() == &control) form.SetFocus(focus);  // a change may have led it elsewhere
}

void Input::Focus(Control& control) {
  const Forms::Handling handling(forms_);
  if (!Takes(control)) return;
  forms_.Activate(*control.Owner);
  control.Owner->SetFocus(&control);
}

void Input::Click(Control& control) {
  const Forms::Handling handling(forms_);
  if (!control.Enabled || !control.Visible || !Takes(control)) return;
  Focus(control);
  if (auto* tick = dynamic_cast<CheckBox*>(&control)) {
    static_cast<void>(Check(control, 1 - tick->Value));
  } else if (dynamic_cast<OptionButton*>(&control) != nullptr) {
    static_cast<void>(Check(control, 1));
  } else {
    Raise(control.OnClick);
  }
}

void Input::DoubleClick(Control& control) {
  const Forms::Handling handling(forms_);
  if (!control.Enabled || !control.Visible || !Takes(control)) return;
  Focus(control);
  if (EditableText* text = TextOf(&control)) text->SelectAll();
  Raise(control.OnDoubleClick);
}

void Input::Hover(Control& control) {
  const Forms::Handling handling(forms_);
  if (Takes(control)) Raise(control.OnHover);
}

void Input::Leave(Form& form) {
  const Forms::Handling handling(forms_);
  if (!forms_.Ended()) form.Form_MouseMove();  // the pointer may leave a form that a dialog holds
}

bool Input::Select(Control& control, int index) {
  const Forms::Handling handling(forms_);
  if (!Takes(control) || index < 0) return false;
  forms_.Activate(*control.Owner);
  const auto row = static_cast<std::size_t>(index);
  if (auto* list = dynamic_cast<ComboBox*>(&control)) {
    if (row >= list->List().size()) return false;
    list->Select(index);
    Raise(list->OnChoose);
    return true;
  }
  auto* const rows = dynamic_cast<ListBox*>(&control);
  if (rows == nullptr || row >= rows->List.size()) return false;
  rows->ListIndex = index;
  if (rows->SeveralChoices && row < rows->Checked.size()) Tick(control, index, rows->Checked[row] ? 0 : 1);
  Raise(rows->OnChoose);
  Raise(rows->OnPress);
  return true;
}

bool Input::Check(Control& control, int value) {
  const Forms::Handling handling(forms_);
  if (!Takes(control)) return false;
  forms_.Activate(*control.Owner);
  if (auto* tick = dynamic_cast<CheckBox*>(&control); tick != nullptr && (value == 0 || value == 1)) {
    tick->Value = value;
    Raise(control.OnClick);
    return true;
  }
  auto* const option = dynamic_cast<OptionButton*>(&control);
  if (option == nullptr || value != 1) return false;
  for (Control* each : control.Owner->Controls()) {
    auto* const other = dynamic_cast<OptionButton*>(each);
    if (other != nullptr && other->Panel == option->Panel) other->Value = other == option;
  }
  Raise(control.OnClick);
  return true;
}

bool Input::Tick(Control& control, int row, int value) {
  const Forms::Handling handling(forms_);
  auto* const list = dynamic_cast<ListBox*>(&control);
  const auto at = static_cast<std::size_t>(row);
  if (list == nullptr || !Takes(control) || row < 0 || at >= list->Checked.size()) return false;
  if (value != 0 && value != 1) return false;
  forms_.Activate(*control.Owner);
  list->Checked[at] = value == 1;
  Raise(list->OnTick, at);
  return true;
}

bool Input::Scroll(Control& control, int top) {
  const Forms::Handling handling(forms_);
  auto* const list = dynamic_cast<ListBox*>(&control);
  if (list == nullptr || !Takes(control) || top < 0) return false;
  if (static_cast<std::size_t>(top) >= list->List.size()) return false;
  forms_.Activate(*control.Owner);
  list->TopIndex = top;
  Raise(list->OnScroll);
  return true;
}

void Input::MoveCaret(Control& control, std::size_t start, std::size_t length) {
  const Forms::Handling handling(forms_);
  EditableText* const text = TextOf(&control);
  if (text == nullptr || !Takes(control)) return;
  text->Select(start, length);
  TellCaret(control);
}

void Input::CloseBox(Form& form) {
  const Forms::Handling handling(forms_);
  if (!forms_.Ended() && forms_.Reaches(form)) form.CloseBox(forms_);
}

}  // namespace vintoral
