// The relay by which alerts go out and the mail box that they come from: Objetos\Correo.INI, for hands to
// edit. It holds a password, so it is made for its owner alone, and nothing of it is ever told.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/String.h"
#include "platform/Disk.h"

namespace vintoral {

struct AjustesCorreo {
  String servidor;
  std::int32_t puerto = 0;  ///< 0 where the file names no number
  String de;                ///< the address that alerts come from
  bool autenticacion = false;
  String usuario, clave;
  bool tls = false;
  bool starttls = false;  ///< with tls: begun in clear
};

/// What the text of the file says; a line that is missing has the value that it is made with.
AjustesCorreo AjustesCorreoDe(std::string_view text);
/// Makes the file where it is missing.
void CrearCorreo(Disk& disk);
/// What the file says now; it is made where it is missing.
AjustesCorreo LeerCorreo(Disk& disk);

}  // namespace vintoral
