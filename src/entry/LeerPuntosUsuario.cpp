#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

std::int64_t Form1::LeerPuntosUsuario(std::int32_t numero) {
  if (numero <= 0) return 0;
  const Register<RegistroUsuario> usuarios(platform_.disk, RutaCompartida("Vintoral.USR"), OpenMode::kRead);
  if (usuarios.Missing()) return 0;
  const std::optional<RegistroUsuario> record = usuarios.Read(numero).PassOver();
  if (!record) return 0;
  UsuarioActual = *record;
  return UsuarioActual.Puntos;
}

}  // namespace vintoral
