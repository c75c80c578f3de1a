#include "safety/ArchivoBloqueo.h"

#include <array>

#include "records/RecordFile.h"
#include "station/form1/Archivos.h"
#include "station/form1/ListaVentas.h"

namespace vintoral {
namespace {

constexpr std::size_t kDigitos = 18;

using Lugar = std::array<char, RegistroBloqueo::kSize>;

/// Null where there is no such file, or one of no length.
Result<std::unique_ptr<DiskFile>> SiTiene(Result<std::unique_ptr<DiskFile>> file) {
  if (!file) return file.Why().Missing() ? Result<std::unique_ptr<DiskFile>>(nullptr) : file.Why();
  const Result<std::uint64_t> length = (*file)->Length();
  if (!length) return length.Why();
  return *length == 0 ? Result<std::unique_ptr<DiskFile>>(nullptr) : std::move(file);
}

Outcome Disponer(Disk& disk, const RegistroBloqueo& bloqueo) {
  Lugar place{};
  bloqueo.EncodeOver(place);
  return disk.Replace(archivo::kVentas,
                      ListaExtrasEnBlanco() + String(std::string_view(place.data(), place.size())));
}

/// What the file has of the record, zeros for what it lacks.
Result<Lugar> LeerLugar(DiskFile& file) {
  Lugar place{};
  const Result<std::size_t> got = file.ReadAt((RegistroBloqueo::kNumero - 1) * RegistroBloqueo::kSize, place);
  return got ? Result<Lugar>(place) : got.Why();
}

/// Over the record; a list that was cut is filled up with blank sales.
Outcome Sobrescribir(DiskFile& file, const RegistroBloqueo& bloqueo) {
  Result<Lugar> place = LeerLugar(file);
  if (!place) return place.Why();
  Lugar bytes = *place;
  bloqueo.EncodeOver(bytes);
  const std::array<char, RegistroExtra::kSize> blank = RegistroExtra{}.Encode();
  Outcome written = RecordFile(file, blank).Write(RegistroBloqueo::kNumero, bytes);
  return written ? file.Sync() : written;
}

}  // namespace

RegistroBloqueo SinBloqueo() {
  return {.Contraseña = {}, .Funciones = String(kDigitos, '0')};
}

Result<RegistroBloqueo> LeerBloqueo(Disk& disk) {
  const Result<std::unique_ptr<DiskFile>> file = SiTiene(disk.Open(archivo::kVentas, OpenMode::kRead));
  if (!file) return file.Why();
  if (*file == nullptr) {
    const Outcome made = Disponer(disk, SinBloqueo());
    return made ? Result<RegistroBloqueo>(SinBloqueo()) : made;
  }
  const Result<Lugar> place = LeerLugar(**file);
  return place ? Result<RegistroBloqueo>(RegistroBloqueo::Decode(*place)) : place.Why();
}

Outcome GuardarBloqueo(Disk& disk, const RegistroBloqueo& bloqueo) {
  const Result<std::unique_ptr<DiskFile>> file = SiTiene(AbrirListaVentas(disk));
  if (!file) return file.Why();
  (*file == nullptr ? Disponer(disk, bloqueo) : Sobrescribir(**file, bloqueo)).PassOver();
  return Outcome::Done();
}

}  // namespace vintoral
