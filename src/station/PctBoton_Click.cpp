#include "station/form1/Commands.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// What a click on a monitor's button is about to do. A change from one monitor to another says nothing.
void Announce(Form1& form, const PictureBox& monitor) {
  if (IsPressed(monitor)) return form.MidiWav(voz::kMonitorDesactivado);
  if (!HayMonitor(form)) form.MidiWav(voz::kMonitorActivado);
}

/// Tickets that are switched off take barcode mode along.
bool MaySwitchOff(Form1& form, const ButtonCommand& row, const PictureBox& button) {
  const bool takesAlong =
      IsPressed(button) && button.TagNumber() != Form1::kSoloFormato && form.CmdBarCode.Visible;
  return !takesAlong || form.Permite(row.lockToSwitchOff);
}

}  // namespace

void Form1::PctBoton_Click(int Index) {
  const auto rows = ButtonCommands();
  const auto index = static_cast<std::size_t>(Index);
  if (Terminado() || index >= rows.size()) return;
  const ButtonCommand& row = rows[index];
  if (row.answering == Answering::kClick) MidiWav(sonido::kClic);
  if (row.answering == Answering::kVoice) Announce(*this, PctBoton[index]);
  if (!Permite(row.lock) || !MaySwitchOff(*this, row, PctBoton[index])) return;
  if (row.log != nullptr) RegistrarHoraTrabajo(row.log);
  if (row.action != nullptr) row.action(*this);
}

}  // namespace vintoral
