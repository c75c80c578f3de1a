#include "common/Numbers.h"
#include "records/BuscarPlaca.h"
#include "records/Register.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

/// Is a ficha with this plate inside? Then FichaActual is that ficha.
bool PlacaAdentro(Form1& form, const String& placa) {
  const Register<RegistroFicha> act(form.Devices().disk, form.RutaCompartida("Vintoral.ACT"),
                                    OpenMode::kRead);
  const std::int64_t slot = BuscarPlacaDentro(act, placa, form.TotalFichas).PassOver().value_or(0);
  if (slot == 0) return false;
  const std::optional<RegistroFicha> record = act.Read(slot).PassOver();
  form.FichaActual = record.value_or(RegistroFicha{});
  if (!record)
    form.FichaActual.NumeroFicha = Digits(slot, 4);  // out of reach since: its number is known all the same
  return true;
}

void NegarIngreso(Form1& form) {
  const String text = "La información digitada ya se encuentra en uso por la ficha "_w +
                      form.FichaActual.NumeroFicha.Trimmed() + "."_w;
  form.Devices().screen.Show(
      {"Vintoral - Ingreso Denegado"_w, text, Icon::kCritical, {Answer::kOk}, Answer::kOk});
  form.LimpiarCampos();
}

void TomarUsuario(Form1& form, std::int32_t numero, const RegistroUsuario& usuario) {
  form.UsuarioActual = usuario;
  form.NumeroUsuario = numero;
  form.PuntosAcumulados = usuario.Puntos;
  form.LblPuntos[3].Caption = Digits(form.PuntosAcumulados);
  form.LblPuntos[3].Visible = true;
}

/// A category that the tariff no longer has leaves the list as it is.
void ElegirCategoria(ComboBox& list, const String& category) {
  for (std::size_t i = 0; i < list.List().size(); ++i) {
    if (EqualNoCase(Trim(list.List()[i]), category)) list.Select(static_cast<int>(i));
  }
}

void LlenarFormulario(Form1& form) {
  const RegistroUsuario& usuario = form.UsuarioActual;
  form.TxtCampo[2].SetText(usuario.Nombre.Trimmed());
  form.TxtCampo[3].SetText(usuario.Apellido.Trimmed());
  form.TxtCampo[4].SetText(usuario.Telefono.Trimmed());
  form.TxtCampo[5].SetText(usuario.Observacion.Trimmed());
  ElegirCategoria(form.CboTarifa[1], usuario.Categoria.Trimmed());
  MostrarFotoUsuario(form, form.NumeroUsuario);
}

}  // namespace

bool Form1::BuscarUsuario(std::int32_t enFormulario) {
  NumeroUsuario = 0;
  UsuarioEnFormulario = 0;
  const String placa = Trim(TxtCampo[1].Text());
  if (placa.Empty()) return false;
  TxtCampo[1].SetText(placa);
  if (PlacaAdentro(*this, placa)) {
    NegarIngreso(*this);
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
  const std::optional<std::int64_t> found = BuscarPlaca(usuarios, placa, 1, *count).PassOver();
  const bool known = found.value_or(0) > 0;
  const std::optional<RegistroUsuario> usuario = known ? usuarios.Read(*found).PassOver() : std::nullopt;
  // Whoever could not be read may be registered: the next number would make a second user of him.
  if (!found || (known && !usuario)) NumeroUsuario = 0;
  // The card may be that of the plate that stood there before.
  if (!usuario || *found != enFormulario) QuitarUsuario(*this);
  if (usuario) TomarUsuario(*this, static_cast<std::int32_t>(*found), *usuario);
  if (usuario && *found != enFormulario) LlenarFormulario(*this);
  if (usuario) UsuarioEnFormulario = NumeroUsuario;
  platform_.screen.Busy(false);
  return usuario.has_value();
}

}  // namespace vintoral
