#include "common/Numbers.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

std::int64_t Form1::NumeroDeFicha() const {
  return LeadingInteger(Trim(TxtCampo[0].Text()));
}

std::optional<RegistroFicha> Form1::LeerPuesto(std::int64_t numero) {
  const Register<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kRead);
  const std::optional<RegistroFicha> puesto = act.Read(numero).PassOver();
  if (!puesto) TmrConexion.SetInterval(100);
  return puesto;
}

void Form1::GuardarFicha() {
  if (!HayConexion()) return;
  if (!TxtCampo[1].Locked) BuscarUsuario(usuarioEnPantalla_);
  if (!TxtCampo[0].Locked) return;

  const std::int64_t numero = NumeroDeFicha();
  // A path corrected under the box leads to another folder, where nobody looked whether the slot is free.
  const String registro = RutaCompartida("Vintoral.ACT");
  const std::optional<RegistroFicha> puesto = LeerPuesto(numero);
  if (!puesto) return;

  if (!puesto->EnUso) {
    MostrarFotoConfirmacion(true);
    if (!Preguntar("Vintoral - Confirmar Datos"_w, "¿Desea realmente guardar la ficha actual?"_w,
                   Answer::kYes)) {
      MostrarFotoConfirmacion(false);
      return SetFocus(&TxtCampo[2]);
    }
    FichaActual = *puesto;
  }
  SyncTogether onDisk(platform_.disk);
  if (!puesto->EnUso) AnotarEntrada(registro, numero);
  RefrescarVista();
  ImgIndicador[3].Visible = false;
  LimpiarCampos();
  onDisk.Finish().PassOver();
}

void Form1::AnotarEntrada(const String& registro, std::int64_t numero) {
  RegistroFicha& ficha = FichaActual;
  const auto campo = [this](std::size_t i) { return Upper(Trim(TxtCampo[i].Text())); };
  MarcaTiquete = StampOf(platform_.clock.Now());
  ficha.EnUso = true;
  ficha.MarcaEntrada = MarcaTiquete;
  ficha.MarcaSalida = "??";
  ficha.NumeroFicha = Digits(numero, 4);
  ficha.Placa = campo(1);
  ficha.Nombre = campo(2);
  ficha.Apellido = campo(3);
  ficha.Telefono = campo(4);
  ficha.Observacion = campo(5);
  ficha.Categoria = Trim(CboTarifa[1].Text());
  ficha.PorteriaEntrada = NumeroPorteria;
  ficha.PorteriaSalida = "??";
  ficha.Posicion = static_cast<std::int32_t>(numero);
  ficha.UsuarioPuntos = NumeroUsuario;
  Register<RegistroFicha> act(platform_.disk, registro, OpenMode::kReadWrite);
  (act ? act.Write(numero, ficha, true) : act.Opened()).PassOver();
}

void Form1::MostrarFotoConfirmacion(bool confirmando) {
  const bool sinFotos = ImgIndicador[4].Visible;
  Picture2.Picture = {};
  if (confirmando && !sinFotos) {
    const String foto = "Imágenes USR\\"_w + Digits(NumeroUsuario, 6) + ".jpg"_w;
    const bool conocida = !ImgIndicador[2].Visible && platform_.disk.Exists(RutaCompartida(foto));
    if (conocida) Picture2.Picture = RutaCompartida(foto);
  }
  const bool still = confirmando && !sinFotos;
  Picture1.Visible = !still && !sinFotos;
  Picture2.Visible = still;
  PctAppCamera.Visible = !still && sinFotos;
  LblWebCamMsg.Visible = confirmando && Picture2.Picture.Empty();
  LblWebCamMsg.Caption = LblWebCamMsg.Visible ? "SIN IMAGEN"_w : String();
}

void Form1::RefrescarVista() {
  CargarArchivoACT();
  ImprimirIndice();
}

}  // namespace vintoral
