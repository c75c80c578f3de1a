#include <string>

#include "records/Register.h"
#include "safety/form9/Form9.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// What is typed in the dialog, as the file will hold it.
RegistrosDePiezas Piezas(const Form9& form) {
  std::array<String, kValoresEnPiezas> values;
  for (std::size_t i = 0; i < values.size(); ++i)
    values[i] = form.TxtCall[i].Text();
  return CortarPiezas(values);
}

bool HayEstado(Disk& disk) {
  const Register<RegistroMixto> file(disk, archivo::kEstado, OpenMode::kRead);
  return file && file.Count().PassOver().value_or(0) > 0;
}

/// All of them in one piece: a full disk or a kill leaves the old values or the new ones, and no mail to half
/// an address.
Outcome Escribir(Disk& disk, const RegistrosDePiezas& records) {
  disk.ClearReadOnly(archivo::kEstado).PassOver();
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(archivo::kEstado, OpenMode::kCreate);
  if (!file) return file.Why();
  std::string bytes;
  for (const RegistroMixto& record : records) {
    const auto encoded = record.Encode();
    bytes.append(encoded.data(), encoded.size());
  }
  Outcome written = (*file)->WriteAt((kPrimerRegistroDePiezas - 1) * RegistroMixto::kSize, bytes);
  return written ? (*file)->Sync() : written;
}

}  // namespace

void Form1::GuardarDatosCall() {
  if (Form9 == nullptr) return;
  const RegistrosDePiezas records = Piezas(*Form9);
  // A file that begins here would say of the screen that all is off.
  if (!HayEstado(platform_.disk)) GuardarEstadoPantalla();
  Escribir(platform_.disk, records).PassOver();
  // As a reading gives them; and where nothing could be kept, the alert goes where it is wanted all the same.
  DatosCall = UnirPiezas(records);
  MidiWav(voz::kAlertaActivada);
  ImgPanico.Visible = true;
  GuardarMarcas();  // whoever armed it counts on it after a power cut
}

}  // namespace vintoral
