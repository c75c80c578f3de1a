#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::AcumularPuntos(std::int32_t numero) {
  if (numero < 1) return;
  Register<RegistroUsuario> usuarios(platform_.disk, RutaCompartida("Vintoral.USR"), OpenMode::kReadWrite);
  UsuarioActual.Puntos = FichaActual.UsuarioPuntos;
  usuarios.Write(numero, UsuarioActual, true).PassOver();
  Register<RegistroFicha> movimientos(platform_.disk, RutaCompartida("Vintoral.CRD"), OpenMode::kCreate);
  movimientos.Append([this](std::int64_t) { return FichaActual; }).PassOver();
}

}  // namespace vintoral
