#include "reports/ArchivoInforme.h"

namespace vintoral {
namespace {

Outcome Quitar(Disk& disk, std::string_view ruta) {
  Outcome cleared = disk.ClearReadOnly(ruta);
  if (!cleared) return cleared;
  Outcome removed = disk.Remove(ruta);
  return removed.Missing() ? Outcome::Done() : removed;
}

}  // namespace

ArchivoInforme::ArchivoInforme(Disk& disk, std::string_view ruta) : abierto_(Quitar(disk, ruta)) {
  if (!abierto_) return;
  Result<std::unique_ptr<DiskFile>> file = disk.Open(ruta, OpenMode::kCreate);
  abierto_ = file.Why();
  if (file) archivo_ = file.Take();
}

Outcome ArchivoInforme::Escribir(std::string_view pieza) {
  if (!archivo_) return abierto_;
  Outcome written = archivo_->WriteAt(largo_, {pieza.data(), pieza.size()});
  if (written) largo_ += pieza.size();
  return written;
}

}  // namespace vintoral
