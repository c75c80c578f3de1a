// What a pass allows, and what its record holds afterwards: the rules, without screen or file.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/Moment.h"
#include "common/String.h"
#include "records/RegistroPase.h"
#include "station/form1/Impresos.h"

namespace vintoral {

/// What a pass that is shown today is worth.
struct Vigencia {
  bool vale = false;
  bool vencida = false;     ///< its days are over, so its record can be freed
  std::int64_t quedan = 0;  ///< where it is good: the entries left, or the days left, today included
  int unidad = Validez::kEntradas;
};

/// Days are counted by their distance, so a clock that went back doesn't shut anybody out. A pass without
/// entries, or whose date can't be read, is worth nothing.
Vigencia VigenciaDe(const RegistroPase& pase, Moment ahora);

/// The validity as typed: a whole number, none where there is none or less.
std::int64_t ValidezEscrita(std::string_view texto);

/// What the boxes of a ticket say when its ficha is saved.
struct ValidezPedida {
  std::int64_t numero = 0;
  int unidad = Validez::kEntradas;
  bool esPase = false;  ///< the ticket is a pass that has come back
};

class Form1;
/// As the boxes stand.
ValidezPedida ValidezEnPantalla(const Form1& form);

/// Whether a pass is to be made or an entry of it taken. A ticket for one entry is none, and days run by
/// themselves.
bool TocaPase(const ValidezPedida& pedida);

/// The pass of a ficha that comes in with it for the first time, `marca` being its entry stamp.
RegistroPase PaseNuevo(std::string_view codigo, std::string_view placa, const ValidezPedida& pedida,
                       std::string_view marca);
/// The pass behind one more entry: one less, or the record free. Days stay as they are.
RegistroPase PaseUsado(const RegistroPase& pase);

}  // namespace vintoral
