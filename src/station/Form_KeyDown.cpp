#include "station/form1/Commands.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

using namespace keys;

/// These are heard whether a command answers to them or not.
bool Clicks(int code, int mask) {
  if (code == kEscape || code == kF9) return true;
  if (code == 'W') return mask == kControl;
  return code == kF11 && (mask == (kControl | kShift) || mask == (kShift | kAlt));
}

}  // namespace

bool Form1::Form_KeyDown(int KeyCode, int Shift) {
  if (Terminado()) return false;
  if (Clicks(KeyCode, Shift)) MidiWav(sonido::kClic);
  const KeyCommand* const row = FindKeyCommand(*this, KeyCode, Shift);
  if (row == nullptr) return false;
  if (row->button) {
    PctBoton_Click(static_cast<int>(*row->button));
    return true;
  }
  if (!Permite(row->lock)) return true;
  if (row->log != nullptr) RegistrarHoraTrabajo(row->log);
  if (row->action != nullptr) row->action(*this, KeyCode);
  return row->action != nullptr;
}

}  // namespace vintoral
