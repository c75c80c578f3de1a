#include "entry/Puntos.h"
#include "records/Register.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

struct Saldo {
  std::int32_t usuario = 0;  ///< whose points they are, 0 for nobody's
  std::int32_t puntos = 0;   ///< with those of this stay
};

/// The user's points behind this stay; he becomes UsuarioActual. A number that no user has, of a register
/// that was put back or is scrambled, is nobody's.
Saldo SaldoDe(Form1& form, std::int32_t numero) {
  const Register<RegistroUsuario> usuarios(form.Devices().disk, form.RutaCompartida("Vintoral.USR"),
                                           OpenMode::kRead);
  if (numero < 1 || usuarios.Missing()) return {};
  if (usuarios.Count().PassOver().value_or(0) < numero) return {};
  const std::optional<RegistroUsuario> ahora = usuarios.Read(numero).PassOver();
  if (!ahora) return {};
  form.UsuarioActual = *ahora;
  return {numero, PuntosTrasEstaEstadia(form, ahora->Puntos)};
}

void SellarFotoSalida(Form1& form) {
  const RegistroFicha& fila = form.FichaActual;
  form.SellarFoto(kSelloSalida,
                  TextoSelloSalida("PS"_w, fila.PorteriaSalida.Trimmed(), fila.MarcaSalida.Trimmed()));
  // With face memory on, the entrance is stamped already.
  if (!form.ImgIndicador[indicador::kMemoriaRostros].Visible)
    form.SellarFoto(kSelloEntradaAlSalir,
                    TextoSelloSalida("PE"_w, fila.PorteriaEntrada.Trimmed(), fila.MarcaEntrada.Trimmed()));
}

/// The photo on the screen becomes that of the row just written, which without one has none: an earlier
/// history may have left another under its number.
void GuardarFotoSalida(Form1& form) {
  if (form.ImgIndicador[indicador::kCamaraDesactivada].Visible) return;
  if (form.TomarFotoFija()) SellarFotoSalida(form);
  form.GuardarFotoJPEG(RutaFoto(form, form.FichaActual));
}

}  // namespace

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
  const Saldo saldo = SaldoDe(*this, FichaActual.UsuarioPuntos);
  FichaActual.UsuarioPuntos = saldo.puntos;
  const auto row = [this](std::int64_t number) {
    FichaActual.Posicion = static_cast<std::int32_t>(number);
    return FichaActual;
  };
  const Outcome written = hst ? hst.Append(row) : hst.Opened();
  written.PassOver();
  if (!written) return false;
  AcumularPuntos(saldo.usuario);
  GuardarFotoSalida(*this);
  return true;
}

}  // namespace vintoral
