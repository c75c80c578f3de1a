#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::RegistrarHistorial() {
  Register<RegistroFicha> hst(platform_.disk, RutaCompartida("Vintoral.HST"), OpenMode::kReadWrite);
  if (hst.Missing()) {
    BuscarEnlaceYa();
    return true;
  }
  FichaActual.EnUso = true;
  FichaActual.ValorCobrado = ValorEstadia;
  // The row holds the user's points, no longer the user's number. They are read before the append lock is
  // taken: over a slow share the other gates would wait for it.
  FichaActual.UsuarioPuntos = static_cast<std::int32_t>(LeerPuntosUsuario(FichaActual.UsuarioPuntos));
  const auto row = [this](std::int64_t number) {
    FichaActual.Posicion = static_cast<std::int32_t>(number);
    return FichaActual;
  };
  const Outcome written = hst ? hst.Append(row) : hst.Opened();
  written.PassOver();
  return static_cast<bool>(written);
}

}  // namespace vintoral
