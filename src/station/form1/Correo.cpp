#include "station/form1/Correo.h"

#include <algorithm>
#include <charconv>

#include "platform/FileRights.h"
#include "records/TextoAjustes.h"
#include "station/form1/Archivos.h"

namespace vintoral {
namespace {

static_assert(archivo::kCorreo.ends_with(kHoldsPassword));

constexpr std::string_view kDefault =
    "; El servidor por el que sale el correo del botón del pánico. Se lee en cada alerta. Este archivo "
    "guarda "
    "una\r\n"
    "; contraseña: sólo su dueño debe poder leerlo.\r\n"
    "Servidor = correo.vintoral.example\r\n"
    "Puerto = 26\r\n"
    "; La dirección de la que salen las alertas.\r\n"
    "De = alertas@vintoral.example\r\n"
    "; ¿Pide el servidor usuario y contraseña? si o no\r\n"
    "Autenticacion = si\r\n"
    "Usuario = alertas@vintoral.example\r\n"
    "; La contraseña va en dos partes, que se unen con un guión. La que no lleva guión va entera en "
    "Clave1.\r\n"
    "Clave1 =\r\n"
    "Clave2 =\r\n"
    "; Conexión segura: no, starttls (casi siempre con el puerto 587) o si (casi siempre con el 465). Sólo "
    "con\r\n"
    "; autenticación. El certificado del servidor se comprueba; uno propio se copia como "
    "Objetos\\Correo.PEM.\r\n"
    "TLS = no\r\n";

String Valor(std::string_view text, std::string_view name) {
  return Ajuste(text, name).value_or(Ajuste(kDefault, name).value_or(String()));
}

/// The whole text as a number, 0 where it is none.
std::int32_t Numero(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

/// No part of it stands alone for the password, unless there is only one.
String Unir(const String& first, const String& second) {
  return first.Empty() || second.Empty() ? first + second : first + "-"_w + second;
}

}  // namespace

AjustesCorreo AjustesCorreoDe(std::string_view text) {
  AjustesCorreo settings;
  settings.servidor = Valor(text, "Servidor");
  settings.puerto = Numero(Valor(text, "Puerto"));
  settings.de = Valor(text, "De");
  settings.autenticacion = !EqualNoCase(Valor(text, "Autenticacion"), "no");
  settings.usuario = Valor(text, "Usuario");
  settings.clave = Unir(Valor(text, "Clave1"), Valor(text, "Clave2"));
  // Whoever wrote anything else than "no" there does not want the password to go in clear.
  const String tls = Valor(text, "TLS");
  settings.tls = !EqualNoCase(tls, "no");
  settings.starttls = EqualNoCase(tls, "starttls");
  return settings;
}

void CrearCorreo(Disk& disk) {
  if (!disk.Exists(archivo::kCorreo)) disk.CreateNew(archivo::kCorreo, kDefault).PassOver();
}

AjustesCorreo LeerCorreo(Disk& disk) {
  CrearCorreo(disk);
  return AjustesCorreoDe(disk.ReadAll(archivo::kCorreo).PassOver().value_or(String()));
}

}  // namespace vintoral
