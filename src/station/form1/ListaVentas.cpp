#include "station/form1/ListaVentas.h"

#include <cerrno>
#include <memory>
#include <string>

#include "common/Digest.h"
#include "records/DiarioVentas.h"
#include "records/RegistroExtra.h"
#include "station/form1/Archivos.h"

namespace vintoral {
namespace {

/// Empty where there is no file yet.
Result<String> LeerEntero(Disk& disk, std::string_view path) {
  Result<String> bytes = disk.ReadAll(path);
  return bytes.Why().Missing() ? Result<String>(String()) : std::move(bytes);
}

/// The journal with room for its entries, which is on the disk with the first of them.
Outcome Empezar(DiskFile& file, std::string_view entry) {
  std::string journal(entry);
  journal.resize(kLugarDiario);
  const Outcome written = file.WriteAt(0, journal);
  return written ? file.Sync() : written;
}

Outcome Continuar(DiskFile& file, std::uint64_t at, std::string_view entry) {
  const Outcome written = file.WriteAt(at, entry);
  return written ? file.Sync() : written;
}

/// A sale that is about to come into the list, noted in the journal.
class Anotada {
 public:
  Anotada(Disk& disk, const AnotacionVenta& sale) : disk_(disk), entry_(EnDiario(sale)), noted_(Anotar()) {}
  /// It is on its way to the disk.
  const Outcome& Escrita() const { return noted_; }
  /// It has not come into the list after all.
  void Borrar() {
    const Result<std::unique_ptr<DiskFile>> file = disk_.Open(archivo::kDiarioVentas, OpenMode::kReadWrite);
    if (!file) return file.Why().PassOver();
    Continuar(**file, at_, std::string(entry_.Size(), '\0')).PassOver();
  }

 private:
  Outcome Anotar() {
    Result<String> journal = LeerEntero(disk_, archivo::kDiarioVentas);
    if (!journal) return journal.Why();
    at_ = LeerDiario(*journal).fin;
    if (at_ + entry_.Size() > kLugarDiario) {
      if (Outcome emptied = Vaciar(); !emptied) return emptied;
    }
    const Result<std::unique_ptr<DiskFile>> file = disk_.Open(archivo::kDiarioVentas, OpenMode::kCreate);
    if (!file) return file.Why();
    return at_ == 0 ? Empezar(**file, entry_) : Continuar(**file, at_, entry_);
  }

  Outcome Vaciar() {
    if (entry_.Size() > kLugarDiario) return Outcome::Failed("note a sale in", "its journal", EFBIG);
    at_ = 0;
    return AsentarListaVentas(disk_);
  }

  Disk& disk_;
  String entry_;
  std::uint64_t at_ = 0;
  Outcome noted_;
};

}  // namespace

Outcome PonerEnListaVentas(Disk& disk, std::string_view lineas) {
  disk.ClearReadOnly(archivo::kVentas).PassOver();
  const Result<String> list = LeerEntero(disk, archivo::kVentas);
  if (!list) return list.Why();
  const String sold = ListaConLineas(*list, lineas);
  if (!disk.LeavesOldOrNew(archivo::kVentas)) return disk.Replace(archivo::kVentas, sold);
  SyncTogether together(disk);
  Anotada sale(disk, {.antes = Digest(*list), .arranque = disk.BootId(), .lineas = String(lineas)});
  // The list is replaced while the disk takes the entry: whichever is on it first, nobody was told yet.
  Outcome replaced = sale.Escrita() ? disk.ReplaceUnsynced(archivo::kVentas, sold) : sale.Escrita();
  if (!together.Finish() || !sale.Escrita()) return disk.Replace(archivo::kVentas, sold);
  if (!replaced) sale.Borrar();
  return replaced;
}

Outcome AsentarListaVentas(Disk& disk) {
  const Result<String> journal = disk.ReadAll(archivo::kDiarioVentas);
  if (!journal) return journal.Why().Missing() ? Outcome::Done() : journal.Why();
  const Result<String> list = LeerEntero(disk, archivo::kVentas);
  if (!list) return list.Why();
  const DiarioVentas sales = LeerDiario(*journal);
  if (!sales.anotaciones.empty()) {
    disk.ClearReadOnly(archivo::kVentas).PassOver();
    Outcome settled = disk.Replace(archivo::kVentas, ListaAlDia(*list, sales.anotaciones, disk.BootId()));
    if (!settled) return settled;
  }
  return disk.Remove(archivo::kDiarioVentas);
}

}  // namespace vintoral
