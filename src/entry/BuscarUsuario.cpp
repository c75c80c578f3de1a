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
  if (!usuarios && !usuarios.Missing()) {
    usuarios.Opened().PassOver();
    return false;
  }
  const std::int64_t count = usuarios.Count();
  NumeroUsuario = static_cast<std::int32_t>(count + 1);
  PuntosAcumulados = 0;
  if (count == 0) return false;

  platform_.screen.Busy(true);
  const std::int64_t found = BuscarPlaca(usuarios, placa);
  const std::optional<RegistroUsuario> usuario = usuarios.Read(found);
  if (usuario) TomarUsuario(static_cast<std::int32_t>(found), *usuario);
  if (usuario && found != enPantalla) LlenarUsuario();
  if (usuario) usuarioEnPantalla_ = NumeroUsuario;
  platform_.screen.Busy(false);
  return usuario.has_value();
}

bool Form1::PlacaAdentro(const String& placa) {
  const Register<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kRead);
  act.Opened().PassOver();
  const std::int64_t slot = act ? BuscarPlacaDentro(act, placa, TotalFichas) : 0;
  if (slot == 0) return false;
  if (const std::optional<RegistroFicha> record = act.Read(slot)) FichaActual = *record;
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
  if (!usuarios.Missing()) usuarios.Opened().PassOver();
  const std::optional<RegistroUsuario> record = usuarios.Read(numero);
  if (!record) return 0;
  UsuarioActual = *record;
  return UsuarioActual.Puntos;
}

}  // namespace vintoral
