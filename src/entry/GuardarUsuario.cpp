#include "records/BuscarPlaca.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

using Usuarios = Register<RegistroUsuario>;

RegistroUsuario UsuarioDelFormulario(const Form1& form) {
  RegistroUsuario usuario;
  usuario.Placa = Trim(form.TxtCampo[1].Text());
  usuario.Nombre = Trim(form.TxtCampo[2].Text());
  usuario.Apellido = Trim(form.TxtCampo[3].Text());
  usuario.Telefono = Trim(form.TxtCampo[4].Text());
  usuario.Observacion = Trim(form.TxtCampo[5].Text());
  usuario.Categoria = Trim(form.CboTarifa[1].Text());
  usuario.Puntos = static_cast<std::int32_t>(form.PuntosAcumulados);
  return usuario;
}

/// The form over a user who is known. His points are those on disk: another gate may have added to them while
/// the question stood, or does so now.
Outcome Reescribir(Form1& form, Usuarios& usuarios) {
  const Result<RegistroUsuario> antes = usuarios.Read(form.NumeroUsuario);
  if (!antes) return antes.Why();
  form.UsuarioActual.Puntos = antes->Puntos;
  return usuarios.Write(form.NumeroUsuario, form.UsuarioActual, false);
}

/// A plate that is new, behind `total` users. Whoever has come to stand behind the last user that this gate
/// saw was added by another one: he may be the same.
Outcome Agregar(Form1& form, Usuarios& usuarios, const Result<std::int64_t>& total) {
  if (!total) return total.Why();
  const Result<std::int64_t> mismo =
      BuscarPlaca(usuarios, form.UsuarioActual.Placa.View(), form.NumeroUsuario, *total);
  if (!mismo) return mismo.Why();
  const bool registrado = *mismo > 0;
  form.NumeroUsuario = static_cast<std::int32_t>(registrado ? *mismo : *total + 1);
  return registrado ? Reescribir(form, usuarios)
                    : usuarios.Write(form.NumeroUsuario, form.UsuarioActual, false);
}

/// The ficha with which the last user came.
void GuardarPrimeraFicha(const Form1& form) {
  Register<RegistroFicha> primeras(form.Devices().disk, form.RutaMostrada("Vintoral.NSR"), OpenMode::kCreate);
  primeras.Write(form.NumeroUsuario + 1, form.FichaActual, true).PassOver();
}

}  // namespace

bool Form1::GuardarUsuario() {
  if (Trim(TxtCampo[1].Text()).Empty() || NumeroUsuario < 1) return false;
  const bool conocido = UsuarioEnFormulario == NumeroUsuario;
  UsuarioActual = UsuarioDelFormulario(*this);
  Usuarios usuarios(platform_.disk, RutaMostrada("Vintoral.USR"), OpenMode::kCreate);
  bool ultimo = false;
  const auto escribir = [&]() -> Outcome {
    const Result<std::int64_t> total = usuarios.Count();
    Outcome escrito = conocido ? Reescribir(*this, usuarios) : Agregar(*this, usuarios, total);
    if (!escrito) return escrito;
    FichaActual.UsuarioPuntos = NumeroUsuario;
    // Under the lock, while nobody can be registered behind him: later he would be the last one no more, and
    // his first ficha kept by no gate.
    ultimo = total && NumeroUsuario >= *total;
    if (ultimo) GuardarPrimeraFicha(*this);
    return escrito;
  };
  const Outcome written = usuarios.UnderLock(escribir);
  written.PassOver();
  if (!written && !conocido) NumeroUsuario = 0;  // nobody's number: the points would be somebody else's
  FichaActual.UsuarioPuntos = NumeroUsuario;
  return written && ultimo;
}

}  // namespace vintoral
