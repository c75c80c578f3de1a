// The search for records: the test of one of them, and the ways through the history and the slots. Looks at
// the bytes of a record as they stand in the file and decodes only what is found.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

#include "common/Outcome.h"
#include "common/String.h"
#include "platform/Disk.h"
#include "records/FieldMatcher.h"
#include "records/RegistroFicha.h"

namespace vintoral {

/// What is looked for, as it stands in the boxes.
struct Criterios {
  String desdeHora, desdeFecha;  ///< "hh:mm", "dd/MM/yyyy"
  String hastaHora, hastaFecha;
  String ficha;                  ///< with fewer than four digits or with all of them; empty for any
  std::array<String, 5> campos;  ///< parts of plate, name, surname, telephone, remark; blank for any
  String categoria;              ///< as a whole; blank for any
};

/// The stamp that has to lie in the range.
enum class SelloBuscado { kEntrada, kSalida };

/// Reads the dates of very many stamps, of which those beside each other mostly have the same.
class LectorFechas {
 public:
  /// Of the 20 bytes of a stamp, as a number that sorts: 20261120. Nothing where there is no date.
  std::optional<std::int32_t> Leer(const char* sello);

 private:
  static constexpr std::size_t kAncho = 10;
  std::array<char, kAncho> texto_{};
  std::int32_t fecha_ = 0;  ///< of `texto_`; 0 where that is none
};

/// Whether a field of 20 characters holds a text somewhere, case ignored.
class ParteDeCampo {
 public:
  /// Without the blanks around it; one that is empty is in every field.
  explicit ParteDeCampo(std::string_view texto = {});
  bool Busca() const { return !mayusculas_.Empty(); }
  bool EstaEn(const char* campo) const;

 private:
  String mayusculas_;
  char primera_ = 0, primeraMinuscula_ = 0;
};

/// The test of one record.
class PruebaRegistro {
 public:
  using Bytes = std::span<const char, RegistroFicha::kSize>;

  explicit PruebaRegistro(const Criterios& criterios);

  /// A box that holds no date, or no time, makes the range unreadable: nothing is found.
  bool RangoLegible() const { return legible_; }
  /// The date of the stamp, as LectorFechas reads it; without one the record is no match.
  std::optional<std::int32_t> Fecha(Bytes registro, SelloBuscado sello);
  bool AntesDelRango(std::int32_t fecha) const { return fecha < desde_.fecha; }
  /// All criteria hold of a record with this date. Date and time are tested apart: from 22:00 to 06:00 there
  /// is no time of day.
  bool Cumple(Bytes registro, SelloBuscado sello, std::int32_t fecha) const;

 private:
  /// An end of the range; the time of day is 1405.
  struct Limite {
    std::int32_t fecha = 0, hora = 0;
  };
  static std::optional<Limite> LimiteDe(std::string_view fecha, std::string_view hora);
  bool EnHorario(const char* sello) const;
  bool CumpleTextos(const char* registro) const;

  bool legible_ = false;
  Limite desde_, hasta_;
  bool cualquierFicha_;
  FieldMatcher<decltype(RegistroFicha::NumeroFicha)::kWidth> ficha_;
  FieldMatcher<decltype(RegistroFicha::Categoria)::kWidth> categoria_;
  std::array<ParteDeCampo, 5> campos_;
  LectorFechas fechas_;
};

/// Is given each match, in the order in which they are found.
using AlEncontrar = std::function<void(const RegistroFicha& registro)>;
/// Is told, now and then, how many records have still to be looked at; false ends the search.
using AlAvanzar = std::function<bool(std::int64_t porMirar)>;

/// The history from its last whole record down to record 2, by the exit. It is in the order of the exits, so
/// the first record before the range ends it. Record 1 is the blank one of each history.
Outcome BuscarHistorial(Disk& disk, std::string_view ruta, PruebaRegistro& prueba,
                        const AlEncontrar& alEncontrar, const AlAvanzar& alAvanzar);
/// The slots 1 to `ultima` that are in use, upward, by the entry.
Outcome BuscarActivas(Disk& disk, std::string_view ruta, std::int64_t ultima, PruebaRegistro& prueba,
                      const AlEncontrar& alEncontrar);

}  // namespace vintoral
