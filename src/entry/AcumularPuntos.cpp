#include "entry/Puntos.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::AcumularPuntos(std::int32_t numero) {
  if (numero < 1) return;
  Register<RegistroUsuario> usuarios(platform_.disk, RutaCompartida("Vintoral.USR"), OpenMode::kReadWrite);
  // Under the lock: another gate that retires a ficha of the same user just now adds to the same points.
  const auto sumar = [&]() -> Outcome {
    const Result<RegistroUsuario> ahora = usuarios.Read(numero);
    if (!ahora) return ahora.Why();
    FichaActual.UsuarioPuntos = PuntosTrasEstaEstadia(*this, ahora->Puntos);
    UsuarioActual = *ahora;
    UsuarioActual.Puntos = FichaActual.UsuarioPuntos;
    return usuarios.Write(numero, UsuarioActual, false);
  };
  usuarios.UnderLock(sumar).PassOver();
  Register<RegistroFicha> movimientos(platform_.disk, RutaCompartida("Vintoral.CRD"), OpenMode::kCreate);
  movimientos.Append([this](std::int64_t) { return FichaActual; }).PassOver();
}

}  // namespace vintoral
