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

/// A new journal has room for its entries on the disk, together with the first of them.
String EnDisco(std::uint64_t at, std::string_view entry) {
  std::string bytes(entry);
  if (at == 0) bytes.resize(kLugarDiario);
  return String(std::move(bytes));
}

Outcome Escribir(DiskFile& file, std::uint64_t at, std::string_view bytes) {
  const Outcome written = file.WriteAt(at, bytes);
  return written ? file.Sync() : written;
}

/// Where an entry of that length goes. A journal that is full is emptied first.
Result<std::uint64_t> Lugar(Disk& disk, std::size_t length) {
  if (length > kLugarDiario) return Outcome::Failed("note a sale in", "its journal", EFBIG);
  const Result<String> journal = LeerEntero(disk, archivo::kDiarioVentas);
  if (!journal) return journal.Why();
  const std::size_t end = LeerDiario(*journal).fin;
  if (end + length <= kLugarDiario) return end;
  Outcome emptied = AsentarListaVentas(disk);
  return emptied ? Result<std::uint64_t>(0) : emptied;
}

/// Where the entry stands in the journal, on its way to the disk.
Result<std::uint64_t> Anotar(Disk& disk, std::string_view entry) {
  Result<std::uint64_t> at = Lugar(disk, entry.size());
  if (!at) return at;
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(archivo::kDiarioVentas, OpenMode::kCreate);
  if (!file) return file.Why();
  const Outcome written = Escribir(**file, *at, EnDisco(*at, entry));
  return written ? at : written;
}

/// What was noted has not come into the list after all.
void Borrar(Disk& disk, std::uint64_t at, std::size_t length) {
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(archivo::kDiarioVentas, OpenMode::kReadWrite);
  if (!file) return file.Why().PassOver();
  Escribir(**file, at, std::string(length, '\0')).PassOver();
}

}  // namespace

Outcome PonerEnListaVentas(Disk& disk, std::string_view lineas) {
  disk.ClearReadOnly(archivo::kVentas).PassOver();
  const Result<String> list = LeerEntero(disk, archivo::kVentas);
  if (!list) return list.Why();
  const String sold = ListaConLineas(*list, lineas);
  const String boot = disk.BootId();
  // Where starts of the machine can't be told apart, no power cut is told from a kill.
  if (boot.Empty() || !disk.LeavesOldOrNew(archivo::kVentas)) return disk.Replace(archivo::kVentas, sold);
  SyncTogether together(disk);
  const String entry = EnDiario({.antes = Digest(*list), .arranque = boot, .lineas = String(lineas)});
  const Result<std::uint64_t> noted = Anotar(disk, entry);
  if (!noted) return disk.Replace(archivo::kVentas, sold);
  // The list is replaced while the disk takes the entry: whichever is on it first, nobody was told yet.
  Outcome replaced = disk.ReplaceUnsynced(archivo::kVentas, sold);
  if (!together.Finish()) return disk.Replace(archivo::kVentas, sold);
  if (!replaced) Borrar(disk, *noted, entry.Size());
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

Result<std::unique_ptr<DiskFile>> AbrirListaVentas(Disk& disk) {
  AsentarListaVentas(disk).PassOver();
  disk.ClearReadOnly(archivo::kVentas).PassOver();
  return disk.Open(archivo::kVentas, OpenMode::kReadWrite);
}

Outcome CambiarUltimaVenta(Disk& disk, const std::function<BytesExtra(const BytesExtra&)>& cambio) {
  const Result<std::unique_ptr<DiskFile>> file = AbrirListaVentas(disk);
  if (!file) return file.Why();
  BytesExtra newest{};
  const Result<std::size_t> read = (*file)->ReadAt(0, newest);
  if (!read || *read == 0) return read.Why();
  const BytesExtra changed = cambio(newest);
  return Escribir(**file, 0, std::string_view(changed.data(), changed.size()));
}

}  // namespace vintoral
