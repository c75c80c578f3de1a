#include "station/form1/Input.h"

#include <algorithm>

#include "common/Numbers.h"

#include "station/form1/ReglasTeclas.h"

namespace vintoral {
namespace {

/// The character that a key makes on a plain keyboard, 0 for none: Control and a letter make the characters 1
/// to 26.
char CharacterOf(int code, int mask) {
  const bool letter = code >= 'A' && code <= 'Z';
  if (letter && mask == keys::kControl) return static_cast<char>(code - 'A' + 1);
  if (mask != 0 && mask != keys::kShift) return 0;
  if (letter) return static_cast<char>(mask == keys::kShift ? code : code - 'A' + 'a');
  if (code >= '0' && code <= '9' && mask == 0) return static_cast<char>(code);
  if (code >= keys::kNumpad0 && code <= keys::kNumpad0 + 9)
    return static_cast<char>(code - keys::kNumpad0 + '0');
  const bool plain =
      code == keys::kBackspace || code == keys::kEnter || code == keys::kEscape || code == keys::kSpace;
  return plain ? static_cast<char>(code) : '\0';
}

/// Index of `control` in a family, or N when it is no member.
template <class C, std::size_t N>
std::size_t IndexIn(const std::array<C, N>& family, const Control& control) {
  for (std::size_t i = 0; i < N; ++i) {
    if (static_cast<const Control*>(&family[i]) == &control) return i;
  }
  return N;
}

bool IsPrintable(char character) {
  return static_cast<unsigned char>(character) >= 32;
}

}  // namespace

void Input::Key(int code, int mask) {
  if (KeyDown(code, mask)) return;
  ControlKey(code, mask);
  if (const char character = CharacterOf(code, mask); character != 0) Character(character);
}

bool Input::KeyDown(int code, int mask) {
  return form_.Form_KeyDown(code, mask) || form_.Terminado();
}

void Input::ControlKey(int code, int mask) {
  Control* const focus = form_.Focus();
  if (code == keys::kTab) return NextControl((mask & keys::kShift) != 0);
  if (focus == nullptr) return;
  if (auto* box = dynamic_cast<TextBox*>(focus)) MoveInText(*box, code, mask);
  if (auto* list = dynamic_cast<ComboBox*>(focus)) MoveInList(*list, code);
  if (auto* tick = dynamic_cast<CheckBox*>(focus); tick != nullptr && code == keys::kSpace)
    Check(*tick, 1 - tick->Value);
}

void Input::MoveInText(TextBox& box, int code, int mask) {
  const std::size_t size = box.Text().Size();
  const std::size_t caret = std::min(box.SelStart, size);
  if (code == keys::kDelete && !box.Locked) return box.EraseForward();
  if (code == keys::kHome || code == keys::kEnd) {
    const bool extend = (mask & keys::kShift) != 0;
    const bool home = code == keys::kHome;
    const std::size_t target = home ? 0 : size;
    if (!extend) return MoveCaret(box, target, 0);
    return home ? MoveCaret(box, 0, caret + box.SelLength) : MoveCaret(box, caret, size - caret);
  }
  if (code == keys::kLeft) return MoveCaret(box, box.SelLength > 0 || caret == 0 ? caret : caret - 1, 0);
  if (code == keys::kRight) MoveCaret(box, box.SelLength > 0 ? caret + box.SelLength : caret + 1, 0);
}

void Input::MoveInList(ComboBox& list, int code) {
  const int last = static_cast<int>(list.List().size()) - 1;
  const int step = code == keys::kDown ? 1 : code == keys::kUp ? -1 : 0;
  if (step == 0 || last < 0) return;
  const int index = std::clamp(list.ListIndex() + step, 0, last);
  if (index != list.ListIndex()) Select(list, index);
}

void Input::MoveCaret(TextBox& box, std::size_t start, std::size_t length) {
  box.SelStart = std::min(start, box.Text().Size());
  box.SelLength = std::min(length, box.Text().Size() - box.SelStart);
}

void Input::NextControl(bool back) {
  const auto& all = form_.Controls();
  const auto count = all.size();
  const auto found = std::find(all.begin(), all.end(), form_.Focus());
  std::size_t at =
      found == all.end() ? (back ? 0 : count - 1) : static_cast<std::size_t>(found - all.begin());
  for (std::size_t i = 0; i < count; ++i) {
    at = (at + (back ? count - 1 : 1)) % count;
    if (!all[at]->TakesFocus()) continue;
    form_.SetFocus(all[at]);
    if (auto* box = dynamic_cast<TextBox*>(all[at])) box->SelectAll();
    return;
  }
}

void Input::Character(char character) {
  Control* const focus = form_.Focus();
  if (focus == nullptr || !focus->Visible || !focus->Enabled) return;
  if (character == keys::kEnter) return EnterKey(*focus);
  if (focus == &form_.CboMinutos) return TypeInMinutes(character);
  if (auto* box = dynamic_cast<TextBox*>(focus)) return TypeInText(*box, character);
  if (auto* list = dynamic_cast<ComboBox*>(focus)) TypeInList(*list, character);
}

void Input::TypeInText(TextBox& box, char character) {
  const KeyVerdict verdict = KeyRule(form_, box, character);
  if (verdict == KeyVerdict::kBeep) form_.Devices().screen.Beep();
  if (verdict != KeyVerdict::kPass || box.Locked) return;
  if (character == keys::kBackspace) return box.EraseBackward();
  if (IsPrintable(character)) box.Insert(String(1, character));
}

void Input::TypeInList(ComboBox& list, char character) {
  const int count = static_cast<int>(list.List().size());
  if (!IsPrintable(character)) return;
  for (int i = 1; i <= count; ++i) {
    const int index = (list.ListIndex() + i + count) % count;
    const String& item = list.List()[static_cast<std::size_t>(index)];
    if (!item.Empty() && UpperByte(item[0]) == UpperByte(character)) return list.Select(index);
  }
}

void Input::TypeInMinutes(char character) {
  ComboBox& minutes = form_.CboMinutos;
  if (MinutesKey(character) == KeyVerdict::kBeep) return form_.Devices().screen.Beep();
  if (character == keys::kBackspace)
    return minutes.SetText(Left(minutes.Text(), std::max<std::size_t>(minutes.Text().Size(), 1) - 1));
  // A digit over "15 Min. ATRAS" starts a new number.
  if (ContainsNoCase(minutes.Text(), "Min")) minutes.SetText({});
  minutes.SetText(minutes.Text() + String(1, character));
}

void Input::Paste(const String& text) {
  auto* const box = dynamic_cast<TextBox*>(form_.Focus());
  if (box == nullptr || box->Locked || !box->Visible || !box->Enabled) return;
  std::string kept;
  bool beep = false;
  for (const char character : text.Bytes()) {
    const KeyVerdict verdict = KeyRule(form_, *box, character);
    beep = beep || verdict == KeyVerdict::kBeep;
    if (verdict == KeyVerdict::kPass && IsPrintable(character)) kept += character;
  }
  if (beep) form_.Devices().screen.Beep();
  box->Insert(String(std::move(kept)));
}

void Input::ReplaceText(Control& control, const String& text) {
  if (auto* list = dynamic_cast<ComboBox*>(&control)) {
    const auto item = std::find_if(list->List().begin(), list->List().end(),
                                   [&](const String& i) { return EqualNoCase(Trim(i), Trim(text)); });
    if (item != list->List().end()) {
      Select(*list, static_cast<int>(item - list->List().begin()));
    } else if (list->Editable) {
      list->SetText(text);
    }
    return;
  }
  auto* const box = dynamic_cast<TextBox*>(&control);
  if (box == nullptr || box->Locked) return;
  Control* const focus = form_.Focus();
  form_.SetFocus(box);
  box->SelectAll();
  if (form_.Focus() == box) Paste(text);
  form_.SetFocus(focus);
}

void Input::EnterKey(Control& control) {
  if (const std::size_t i = IndexIn(form_.TxtCampo, control); i < form_.TxtCampo.size()) return FieldEnter(i);
  if (const std::size_t i = IndexIn(form_.TxtEtiqueta, control); i < form_.TxtEtiqueta.size()) {
    return form_.CerrarEtiqueta(i);
  }
  if (&control == &form_.CboTarifa[1]) return form_.GuardarFicha();
  if (&control == &form_.TxtEfectivo) return form_.RetirarFicha();
  if (&control == &form_.CboMinutos) form_.TmrMonitor_Timer();
}

void Input::FieldEnter(std::size_t index) {
  auto& field = form_.TxtCampo;
  std::size_t next = index + 1;
  if (index == 0) {
    const std::int64_t number = LeadingInteger(Trim(field[0].Text()));
    const bool inRange = number >= 1 && number <= form_.TotalFichas;
    if (!inRange) return field[0].SetText({});
    form_.MostrarFicha();
    if (!field[0].Locked) return;  // the slot could not be read: the number stands to be tried again
  }
  if (index == 1) {
    const bool typed = !Trim(field[1].Text()).Empty();
    if (form_.BuscarUsuario()) return form_.SetFocus(&form_.CboTarifa[1]);
    if (typed && field[1].Text().Empty()) return;  // refused: the screen is idle again
    if (!typed && form_.PctUsuario[1].Visible) form_.PctUsuario[0].Visible = true;
  }
  if (next == field.size()) return form_.SetFocus(&form_.CboTarifa[1]);
  form_.SetFocus(&field[next]);
}

void Input::Focus(Control& control) {
  form_.SetFocus(&control);
}

void Input::Click(Control& control) {
  if (!control.Enabled || form_.Terminado()) return;
  Focus(control);
  if (const std::size_t i = IndexIn(form_.PctBoton, control); i < form_.PctBoton.size()) {
    return ClickButton(static_cast<int>(i));
  }
  if (const std::size_t i = IndexIn(form_.PctEtiqueta, control); i < form_.PctEtiqueta.size()) {
    return form_.AbrirEtiqueta(i);
  }
  if (const std::size_t i = IndexIn(form_.TxtEtiqueta, control); i < form_.TxtEtiqueta.size()) {
    return form_.AbrirEtiqueta(i);
  }
  if (&control == &form_.TxtCampo[2] && !form_.TxtCampo[1].Locked) return FieldEnter(1);
  if (&control == &form_.CmdBarCode || &control == &form_.CmdNumeroFicha) return form_.GeneradorClick();
  if (&control == &form_.ImgCambiarFondo) return form_.ImgCambiarFondo_Click();
  if (&control == &form_.ImgPuntos) form_.Form_KeyDown('R', keys::kShift | keys::kControl);
  if (&control == &form_.ChkFactura) Check(control, 1 - form_.ChkFactura.Value);
}

void Input::ClickButton(int index) {
  // The fields keep the focus when a button is clicked, but a label that was being renamed is left.
  const Control* const focus = form_.Focus();
  const bool renaming = focus != nullptr && IndexIn(form_.TxtEtiqueta, *focus) < form_.TxtEtiqueta.size();
  if (renaming) form_.SetFocus(nullptr);
  form_.PctBoton_Click(index);
  if (renaming && form_.Focus() == nullptr) form_.FocoDondeSeEscribe();
}

void Input::DoubleClick(Control& control) {
  Focus(control);
  if (auto* box = dynamic_cast<TextBox*>(&control)) box->SelectAll();
}

void Input::Hover(Control& control) {
  if (const std::size_t i = IndexIn(form_.PctBoton, control); i < form_.PctBoton.size()) {
    form_.PctBoton_MouseMove(static_cast<int>(i));
  }
}

bool Input::Select(Control& control, int index) {
  if (auto* list = dynamic_cast<ComboBox*>(&control)) {
    if (index < 0 || static_cast<std::size_t>(index) >= list->List().size()) return false;
    list->Select(index);
    if (list == &form_.CboMinutos) form_.TmrMonitor_Timer();
    return true;
  }
  auto* const rows = dynamic_cast<ListBox*>(&control);
  if (rows == nullptr || index < 0 || static_cast<std::size_t>(index) >= rows->List.size()) return false;
  rows->ListIndex = index;
  return true;
}

bool Input::Check(Control& control, int value) {
  auto* const tick = dynamic_cast<CheckBox*>(&control);
  if (tick == nullptr || (value != 0 && value != 1)) return false;
  tick->Value = value;
  return true;
}

}  // namespace vintoral
