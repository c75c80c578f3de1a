// The two dispatchers of the main screen. What a key or a button does stands in the tables of Commands.h.
#include <string_view>

#include "station/form1/Commands.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

constexpr std::string_view kClickSound = "Sonidos\\Vintoral-5.wav";

bool Clicks(int code, int mask) {
  constexpr int kEscape = 27, kF9 = 120, kF11 = 122;
  constexpr int kControl = 2, kControlShift = 3, kShiftAlt = 5;
  return code == kEscape || code == kF9 || (code == 'W' && mask == kControl) ||
         (code == kF11 && (mask == kControlShift || mask == kShiftAlt));
}

}  // namespace

bool Form1::Form_KeyDown(int KeyCode, int Shift) {
  if (Terminado()) return false;
  if (Clicks(KeyCode, Shift)) MidiWav(kClickSound);
  const KeyCommand* const row = FindKeyCommand(*this, KeyCode, Shift);
  if (row == nullptr || row->action == nullptr) return false;
  row->action(*this, KeyCode);
  return true;
}

void Form1::PctBoton_Click(int Index) {
  const auto rows = ButtonCommands();
  if (Terminado() || Index < 0 || static_cast<std::size_t>(Index) >= rows.size()) return;
  const ButtonCommand& row = rows[static_cast<std::size_t>(Index)];
  if (row.action == nullptr) return;
  if (row.answering == Answering::kClick) MidiWav(kClickSound);
  row.action(*this);
}

void Form1::PctBoton_MouseMove(int Index) {
  const auto i = static_cast<std::size_t>(Index);
  const ButtonCommand& row = ButtonCommands()[i];
  PctBoton[i].ToolTipText = String::FromUtf8(PctBoton[i].BorderStyle == 1 ? row.tooltipPressed : row.tooltip);
}

void Form1::GeneradorClick() {
  if (TxtCampo[0].Enabled) {
    Form_KeyDown(36, 0);
  } else {
    platform_.screen.Beep();
  }
  SetFocus(nullptr);
}

}  // namespace vintoral
