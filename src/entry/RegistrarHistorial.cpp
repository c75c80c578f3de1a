#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::RegistrarHistorial() {
  const String path = RutaCompartida("Vintoral.HST");
  Register<RegistroFicha> hst(platform_.disk, path, OpenMode::kReadWrite);
  if (hst.Missing()) {
    TmrConexion.SetInterval(100);
    return true;
  }
  const auto row = [this](std::int64_t number) {
    FichaActual.EnUso = true;
    FichaActual.Posicion = static_cast<std::int32_t>(number);
    FichaActual.ValorCobrado = ValorEstadia;
    // The row holds the user's points, no longer the user's number.
    FichaActual.UsuarioPuntos = static_cast<std::int32_t>(LeerPuntosUsuario(FichaActual.UsuarioPuntos));
    return FichaActual;
  };
  const Outcome written = hst ? hst.Append(row) : hst.Opened();
  written.PassOver();
  return static_cast<bool>(written);
}

}  // namespace vintoral
