#include "common/Numbers.h"
#include "records/BuscarPlaca.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::BuscarUsuario(std::int32_t enPantalla) {
  NumeroUsuario = 0;
  usuarioEnPantalla_ = 0;
  const String placa = Trim(TxtCampo[1].Text());
  if (placa.Empty()) return false;
  TxtCampo[1].SetText(placa);
  if (PlacaAdentro(placa)) {
    const String text = "La información digitada ya se encuentra en uso por la ficha "_w +
                        FichaActual.NumeroFicha.Trimmed() + "."_w;
    platform_.screen.Show(
        {"Vintoral - Ingreso Denegado"_w, text, Icon::kCritical, {Answer::kOk}, Answer::kOk});
    LimpiarCampos();
    return false;
  }
  const Register<RegistroUsuario> usuarios(platform_.disk, RutaCompartida("Vintoral.USR"), OpenMode::kRead);
  // With the users out of reach the next free number is unknown: a guess would be somebody else's.
  const std::optional<std::int64_t> count = usuarios.Missing() ? 0 : usuarios.Count().PassOver();
  if (!count) return false;
  NumeroUsuario = static_cast<std::int32_t>(*count + 1);
  PuntosAcumulados = 0;
  if (*count == 0) return false;

  platform_.screen.Busy(true);
  const std::int64_t found = BuscarPlaca(usuarios, placa).PassOver().value_or(0);
  const std::optional<RegistroUsuario> usuario = found > 0 ? usuarios.Read(found).PassOver() : std::nullopt;
  if (usuario) TomarUsuario(static_cast<std::int32_t>(found), *usuario);
  if (usuario && found != enPantalla) LlenarUsuario();
  if (usuario) usuarioEnPantalla_ = NumeroUsuario;
  platform_.screen.Busy(false);
  return usuario.has_value();
}

bool Form1::PlacaAdentro(const String& placa) {
  const Register<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kRead);
  const std::int64_t slot = BuscarPlacaDentro(act, placa, TotalFichas).PassOver().value_or(0);
  if (slot == 0) return false;
  if (const std::optional<RegistroFicha> record = act.Read(slot).PassOver()) FichaActual = *record;
  return true;
}

void Form1::TomarUsuario(std::int32_t numero, const RegistroUsuario& usuario) {
  UsuarioActual = usuario;
  NumeroUsuario = numero;
  PuntosAcumulados = usuario.Puntos;
  LblPuntos[3].Caption = Digits(PuntosAcumulados);
  LblPuntos[3].Visible = true;
}

void Form1::LlenarUsuario() {
  TxtCampo[2].SetText(UsuarioActual.Nombre.Trimmed());
  TxtCampo[3].SetText(UsuarioActual.Apellido.Trimmed());
  TxtCampo[4].SetText(UsuarioActual.Telefono.Trimmed());
  TxtCampo[5].SetText(UsuarioActual.Observacion.Trimmed());
  const auto& items = CboTarifa[1].List();
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (EqualNoCase(Trim(items[i]), UsuarioActual.Categoria.Trimmed()))
      CboTarifa[1].Select(static_cast<int>(i));
  }
  MostrarFotoUsuario(NumeroUsuario);
}

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
