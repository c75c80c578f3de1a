#include "common/Numbers.h"
#include "entry/Pase.h"
#include "entry/Puesto.h"
#include "records/Register.h"
#include "records/RegistroCodigo.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"
#include "station/form1/Monitor.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// The photo that the operator compares with who stands at the gate.
void MostrarFotoConfirmacion(Form1& form) {
  if (!form.ImgIndicador[indicador::kCamaraDesactivada].Visible) {
    const bool conMemoria = form.ImgIndicador[indicador::kMemoriaRostros].Visible;
    form.Picture2.Picture = conMemoria ? String() : MostrarFotoUsuario(form, form.UsuarioEnFormulario);
    if (form.Picture2.Picture.Empty()) form.CapturarFoto();
    MostrarFija(form, form.Picture2.Picture);
  }
  AvisarSinImagen(form);
}

/// What the form tells of the ficha; the rest of the record stays as the slot had it.
void LlenarFicha(RegistroFicha& ficha, const Form1& form) {
  const auto campo = [&form](std::size_t i) { return Upper(Trim(form.TxtCampo[i].Text())); };
  ficha.Placa = campo(1);
  ficha.Nombre = campo(2);
  ficha.Apellido = campo(3);
  ficha.Telefono = campo(4);
  ficha.Observacion = campo(5);
  ficha.Categoria = Trim(form.CboTarifa[1].Text());
  ficha.UsuarioPuntos = form.NumeroUsuario;
}

void AnotarEntrada(Form1& form, std::int64_t numero) {
  RegistroFicha& ficha = form.FichaActual;
  form.MarcaTiquete = StampOf(form.Devices().clock.Now());
  ficha.EnUso = true;
  ficha.MarcaEntrada = form.MarcaTiquete;
  ficha.MarcaSalida = "??";
  ficha.NumeroFicha = Digits(numero, 4);
  ficha.PorteriaEntrada = form.NumeroPorteria;
  ficha.PorteriaSalida = "??";
  ficha.Posicion = static_cast<std::int32_t>(numero);
  LlenarFicha(ficha, form);
}

/// False when the slot could not be written.
bool OcuparPuesto(Form1& form) {
  const RegistroFicha& ficha = form.FichaActual;
  Register<RegistroFicha> act(form.Devices().disk, form.RutaMostrada("Vintoral.ACT"), OpenMode::kReadWrite);
  const Outcome written = act.Write(ficha.Posicion, ficha, true);
  written.PassOver();
  if (written && form.TxtBarCode.Visible) form.GuardarCodigoBarras(true);
  return static_cast<bool>(written);
}

/// Will its code find the ficha? Without a register of codes it is found by its number, as in other modes.
/// One that the other gate has let out already needs none: a pass may be inside twice, and whoever of the two
/// leaves is the first that is found.
bool CodigoGuardado(Form1& form) {
  const Register<RegistroCodigo> codigos(form.Devices().disk, form.RutaMostrada("Vintoral.CDB"),
                                         OpenMode::kRead);
  if (codigos.Missing()) return true;
  const Result<RegistroCodigo> codigo = codigos.Read(form.FichaActual.Posicion);
  if (codigo && codigo->CodigoBarras.Trimmed() == Trim(form.TxtBarCode.Text())) return true;
  const std::optional<RegistroFicha> puesto = LeerPuesto(form, form.FichaActual.Posicion);
  return puesto && !puesto->EnUso;
}

/// What the outside program has left; false when that is nothing.
bool RecogerFotoEntrada(Form1& form, bool primera) {
  const RegistroFicha& ficha = form.FichaActual;
  form.CargarFotosApp(ficha.Placa.View(), ficha.Posicion);
  if (form.RutaFotoFicha.Empty()) return false;
  form.GuardarFotosUsuario(ficha.UsuarioPuntos, primera);
  return true;
}

/// The photo of the entrance into its file, and to its user, `primera` when he is new; false when there is
/// none. `sinCamara` is how the gate worked when the saving began: one whose camera went under the question
/// has nothing to look for with the outside program.
bool GuardarFotoEntrada(Form1& form, bool sinCamara, bool primera) {
  if (sinCamara) return RecogerFotoEntrada(form, primera);
  const RegistroFicha& ficha = form.FichaActual;
  if (form.Picture2.Picture.Empty()) return false;
  const bool conMemoria = form.ImgIndicador[indicador::kMemoriaRostros].Visible;
  const bool tomada = form.Picture2.Picture.Path().Empty();
  if (conMemoria)
    form.SellarFoto(kSelloEntrada, TextoSelloEntrada(ficha.PorteriaEntrada.Trimmed(), form.MarcaTiquete));
  const bool guardada = form.GuardarFotoDetras(RutaFotoAdentro(form, ficha.Posicion),
                                               RutasFotosUsuario(form, ficha.UsuarioPuntos, primera));
  form.MidiWav(conMemoria || tomada ? sonido::kFoto : sonido::kHecho);
  form.RutaFotoFicha = RutaCompletaFotoAdentro(form, ficha.Posicion);
  return guardada;
}

/// Whoever had the number before may have left his photo there: of a ficha without one none is shown.
void QuitarFotoAnterior(const Form1& form) {
  Disk& disk = form.Devices().disk;
  const String foto = RutaFotoAdentro(form, form.FichaActual.Posicion);
  if (disk.Exists(foto)) QuitarArchivo(disk, foto);
}

struct Ingreso {
  bool hecho = false;    ///< the ficha is inside
  bool primera = false;  ///< and its user is the last one who was registered
  bool entero = false;   ///< and code and pass, where there are any, are what a ticket would say
};

/// The user before the ficha, which carries his number; slot, code and pass behind it.
Ingreso Ingresar(Form1& form, std::int64_t numero) {
  AnotarEntrada(form, numero);
  const bool codigos = form.TxtBarCode.Visible;
  // What is counted is what is printed.
  if (codigos && !Trim(form.TxtMaxEntrada.Text()).Empty())
    form.TxtMaxEntrada.SetText(Digits(ValidezEnPantalla(form).numero));
  Ingreso ingreso;
  const auto entrar = [&] {
    ingreso.primera = form.GuardarUsuario();
    return OcuparPuesto(form);
  };
  const bool conPase = codigos && TocaPase(ValidezEnPantalla(form));
  ingreso.hecho = conPase ? form.GuardarPase(entrar) : entrar();
  const bool codigo = !codigos || CodigoGuardado(form);
  ingreso.entero = ingreso.hecho && codigo && (!conPase || form.NumeroPase > 0);
  return ingreso;
}

/// A pass that comes back has its validity closed, and its ticket already.
bool PideTiquete(const Form1& form) {
  return IsPressed(form.PctBoton[boton::kTiquetes]) && form.TxtMaxEntrada.Enabled;
}

}  // namespace

void Form1::GuardarFicha() {
  if (!HayConexion()) return;
  const bool sinCamara = ImgIndicador[indicador::kCamaraDesactivada].Visible;
  TxtBarCode.Tag = {};  // whatever waits to save by itself has been forestalled
  if (!TxtCampo[1].Locked) BuscarUsuario(UsuarioEnFormulario);
  if (!TxtCampo[0].Locked) return;

  const std::int64_t numero = NumeroEscrito();
  // A path corrected under the box leads to another folder, where nobody looked whether the slot is free.
  CarpetaMostrada = CarpetaCompartida;
  std::optional<RegistroFicha> puesto = LeerPuesto(*this, numero);
  if (!puesto) return;

  if (!puesto->EnUso) {
    MostrarFotoConfirmacion(*this);
    if (!Preguntar("Vintoral - Confirmar Datos"_w, "¿Desea realmente guardar la ficha actual?"_w,
                   Answer::kYes)) {
      MostrarImagenEnVivo();
      return SetFocus(&TxtCampo[2]);
    }
    // Another gate may have taken the slot while the question stood; out of reach, nothing can be saved, and
    // what was typed waits for the link.
    puesto = LeerPuesto(*this, numero);
    if (!puesto) {
      MostrarImagenEnVivo();
      return SetFocus(&TxtCampo[2]);
    }
    FichaActual = *puesto;
    if (ImgIndicador[indicador::kFotosAdicionales].Visible) AcomodarFotos();
  }
  SyncTogether onDisk(platform_.disk);
  const bool libre = !puesto->EnUso;
  const Ingreso ingreso = libre ? Ingresar(*this, numero) : Ingreso{};
  if (ingreso.hecho && !GuardarFotoEntrada(*this, sinCamara, ingreso.primera)) QuitarFotoAnterior(*this);
  std::optional<PrintDocument> tiquete;
  if (ingreso.hecho && PideTiquete(*this)) tiquete = TiqueteEnPantalla();
  RefrescarVista();
  if (ingreso.hecho) ImgIndicador[indicador::kFotosAdicionales].Visible = false;  // they are kept
  LimpiarCampos();
  const Outcome synced = onDisk.Finish();
  synced.PassOver();
  // What is printed is a promise: it must be on disk. Nothing is, or less than the ticket says: a beep.
  const bool cumplida = synced && ingreso.entero;
  if (tiquete && cumplida) ImprimirTiquete(std::move(*tiquete));
  if (libre && !cumplida) platform_.screen.Beep();
}

}  // namespace vintoral
