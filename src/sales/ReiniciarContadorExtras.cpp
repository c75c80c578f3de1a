#include <array>
#include <memory>

#include "records/RegistroExtra.h"
#include "sales/Advertir.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/ListaVentas.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// The newest line becomes the one at which reports stop. A file in which nothing stands says so already.
Outcome CerrarLista(DiskFile& file) {
  std::array<char, RegistroExtra::kSize> newest{};
  const Result<std::size_t> read = file.ReadAt(0, newest);
  if (!read || *read == 0) return read.Why();
  const Outcome written = file.WriteAt(0, ConHoraVenta(newest, RegistroExtra::kSinHora));
  return written ? file.Sync() : written;
}

Outcome CerrarLista(Disk& disk) {
  AsentarListaVentas(disk).PassOver();
  disk.ClearReadOnly(archivo::kVentas).PassOver();
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(archivo::kVentas, OpenMode::kReadWrite);
  return file ? CerrarLista(**file) : file.Why();
}

}  // namespace

void Form1::ReiniciarContadorExtras() {
  if (!platform_.disk.Exists(archivo::kVentas)) return;
  const bool wanted = Preguntar("Vintoral - Reiniciar Extras"_w,
                                "¿Desea realmente reiniciar el contador de extras?"_w, Answer::kNo);
  if (!wanted || !Advertir(platform_.screen, "el contador de extras"_w)) return;
  CerrarLista(platform_.disk).PassOver();
  MidiWav(sonido::kExtrasReiniciados);
}

}  // namespace vintoral
