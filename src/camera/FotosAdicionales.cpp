// Photos beyond the one of the entrance: taken while a new ficha is typed, turned over while it is on
// display.
#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

constexpr std::int16_t kContinuas = 10;
constexpr std::int64_t kEntreFotos = 1000;  ///< milliseconds

String PlacaEscrita(const Form1& form) {
  return Upper(Trim(form.TxtCampo[1].Text()));
}

void TomarUna(Form1& form) {
  form.FotoContinua = 1;
  form.TomarFotoAdicional();
  form.Esperar(kEntreFotos);
  form.FotoContinua = 0;
}

void TomarContinuas(Form1& form) {
  form.FotoContinua = kContinuas;
  while (form.FotoContinua >= 1) {
    form.Esperar(kEntreFotos);
    if (form.Terminado()) return;
    form.TomarFotoAdicional();
    // Whoever saved or cleared the screen meanwhile has set it to 0.
    if (form.FotoContinua > 0) --form.FotoContinua;
  }
  form.Devices().screen.Beep();
}

/// What the operator first saw of the ficha.
void MostrarPrincipal(Form1& form) {
  const Disk& disk = form.Devices().disk;
  const String entrada = RutaFotoAdentro(form, form.NumeroEscrito());
  const std::int32_t usuario = form.FichaActual.UsuarioPuntos;
  const bool delUsuario = !disk.Exists(entrada) && usuario > 0;
  MostrarFotoFicha(form, delUsuario ? RutaFotoUsuario(form, usuario) : entrada);
}

/// The entry picture counts as none of them.
void MostrarLugar(Form1& form) {
  const String todas = Digits(form.NumeroFotos);
  form.LblFotoDetalle.Caption = form.FotoActual > 0     ? Digits(form.FotoActual) + " / "_w + todas
                                : form.NumeroFotos == 1 ? "1 foto"_w
                                                        : todas + " fotos"_w;
}

}  // namespace

void Form1::PctFotoDetalle_Click(int Index) {
  // One row of photos at a time: the wait between them lets keys through.
  if (!PctBoton[boton::kGuardar].Visible || FotoContinua != 0) return;
  if (Index == 1) return TomarContinuas(*this);
  TomarUna(*this);
}

void Form1::TomarFotoAdicional() {
  if (FotoContinua == 0) return;
  const std::int64_t numero = NumeroEscrito();
  if (ImgIndicador[indicador::kFotosAdicionales].Visible) AcomodarFotos();
  CarpetaFotos = CarpetaDetalle(*this, PlacaEscrita(*this), numero);
  CrearCarpeta(CarpetaFotos);
  CapturarFoto();
  if (Picture2.Picture.Empty()) return FocoPrimerCampo();
  ++NumeroFotos;
  FotoActual = NumeroFotos;
  if (ImgIndicador[indicador::kMemoriaRostros].Visible)
    SellarFoto(kSelloEntrada, TextoSelloEntrada(NumeroPorteria, StampOf(platform_.clock.Now())));
  const String foto = RutaDetalle(CarpetaFotos, numero, NumeroFotos);
  GuardarFotoJPEG(foto);
  MidiWav(sonido::kFoto);
  FocoPrimerCampo();
  if (platform_.disk.Exists(foto)) ImgIndicador[indicador::kFotosAdicionales].Visible = true;
  MostrarFija(*this, Picture2.Picture);
  AvisarSinImagen(*this);
}

void Form1::ImgFotoDetalle_Click(int Index) {
  if (PctBoton[boton::kGuardar].Visible) return;
  if (Index == 1) {
    FotoActual = FotoActual >= NumeroFotos ? std::int16_t{1} : static_cast<std::int16_t>(FotoActual + 1);
  } else if (FotoActual < 2) {
    FotoActual = 0;
    MostrarLugar(*this);
    platform_.screen.Beep();
    return MostrarPrincipal(*this);
  } else {
    --FotoActual;
  }
  MostrarLugar(*this);
  const std::int64_t numero = NumeroEscrito();
  const String carpeta = CarpetaDetalle(*this, FichaActual.Placa.View(), numero);
  MostrarFotoFicha(*this, RutaDetalle(carpeta, numero, FotoActual));
}

void Form1::MostrarFotosAdicionales() {
  const std::int64_t numero = NumeroEscrito();
  const String carpeta = CarpetaDetalle(*this, FichaActual.Placa.View(), numero);
  FotoActual = 0;
  NumeroFotos = 0;
  while (NumeroFotos < kMaxFotos && platform_.disk.Exists(RutaDetalle(carpeta, numero, NumeroFotos + 1)))
    ++NumeroFotos;
  const bool hay = NumeroFotos > 0;
  ImgIndicador[indicador::kFotosAdicionales].Visible = hay;
  PctUsuario[0].Enabled = hay;
  for (Image& arrow : ImgFotoDetalle)
    arrow.Visible = hay;
  LblFotoDetalle.Visible = hay;
  MostrarLugar(*this);
}

void Form1::BorrarFotosSinGuardar() {
  FotoContinua = 0;
  const bool sinGuardar =
      PctBoton[boton::kGuardar].Visible && ImgIndicador[indicador::kFotosAdicionales].Visible;
  if (!sinGuardar) return;
  const std::int64_t numero = NumeroEscrito();
  if (platform_.disk.Exists(RutaDetalle(CarpetaFotos, numero, 1))) BorrarCarpeta(CarpetaFotos);
}

void Form1::AcomodarFotos() {
  const String carpeta = CarpetaDetalle(*this, PlacaEscrita(*this), NumeroEscrito());
  if (carpeta == CarpetaFotos) return;
  MoverCarpeta(CarpetaFotos, carpeta);
  CarpetaFotos = carpeta;
}

void Form1::CerrarFotosAdicionales() {
  const bool puede = ImgIndicador[indicador::kFotosAdicionales].Visible ||
                     ImgIndicador[indicador::kCamaraDesactivada].Visible;
  if (!puede) return;
  const std::int64_t numero = NumeroEscrito();
  const String carpeta = CarpetaDetalle(*this, FichaActual.Placa.View(), numero);
  if (platform_.disk.Exists(RutaDetalle(carpeta, numero, 1))) {
    MoverCarpeta(carpeta, CarpetaDetalleFinal(*this, FichaActual.Placa.View(), platform_.clock.Now()));
  } else if (platform_.disk.Exists(RutaDetalle(carpeta, numero, 0))) {
    BorrarCarpeta(carpeta);
  }
}

}  // namespace vintoral
