// Photos are personal data: what is older than the site says is deleted, in slices, since nobody is to wait
// for it.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "common/Moment.h"
#include "common/String.h"
#include "platform/Disk.h"

namespace vintoral {

/// For how many days photos are kept; 0 for ever.
struct PlazosFotos {
  int salida = 0;       ///< those of the exit
  int adicionales = 0;  ///< the additional ones of fichas that have left
  int usuarios = 0;     ///< those of users who were not seen since

  bool Ninguno() const { return salida == 0 && adicionales == 0 && usuarios == 0; }
};

/// Of the text of Objetos\Retencion.INI. What is no number of days, or missing, is 0.
PlazosFotos PlazosDe(std::string_view text);
/// The station's; makes the file, with nothing to be deleted, where it is missing.
PlazosFotos LeerPlazos(Disk& disk);
/// When a folder of additional photos got its final name, "ABC123 P01 20-11-2026 140000"; nothing for one of
/// a ficha that is inside, and for any other.
std::optional<Moment> MomentoDeCarpeta(std::string_view nombre);

/// One day's cleaning of a data folder.
class Retencion {
 public:
  /// `ruta` gives the path of a file of the data folder; the disk outlives this.
  Retencion(Disk& disk, std::function<String(std::string_view)> ruta, const PlazosFotos& plazos,
            Moment ahora);
  /// Does the next slice of the work; false when nothing is left to do.
  bool Avanzar();
  int Fotos() const { return fotos_; }        ///< deleted
  int Carpetas() const { return carpetas_; }  ///< deleted

 private:
  enum class Fase { kSalidas, kCarpetas, kVistos, kAdentro, kUsuarios, kHecho };

  bool Pasado(const Moment& momento, int dias) const;
  void Siguiente();
  void BorrarSalidas();
  void BorrarCarpetas();
  void MirarVistos();
  void MirarAdentro();
  void BorrarUsuarios();
  /// Photos of these numbers in a folder; of users, only files that are as old as the limit themselves.
  void Borrar(std::string_view carpeta, std::span<const std::int64_t> numeros, int dias);

  Disk& disk_;
  std::function<String(std::string_view)> ruta_;
  PlazosFotos plazos_;
  Moment ahora_;
  Fase fase_ = Fase::kSalidas;
  std::int64_t numero_ = 1;  ///< the next record to look at
  std::vector<String> viejas_;
  bool listadas_ = false;
  std::unordered_set<std::string> vistos_;  ///< plates, in capitals
  int fotos_ = 0, carpetas_ = 0;
};

}  // namespace vintoral
