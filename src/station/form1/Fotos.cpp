#include "station/form1/Fotos.h"

#include "common/Numbers.h"
#include "records/Monitores.h"
#include "station/form1/Form1.h"

namespace vintoral {

String RutaFoto(const Form1& form, const RegistroFicha& ficha) {
  const String folder = EstaDentro(ficha) ? "Imágenes ACT\\"_w : "Imágenes HST\\"_w;
  return form.RutaCompartida(folder + Digits(ficha.Posicion, 6) + ".jpg"_w);
}

Picture FotoDeCelda(Form1& form, const String& foto) {
  const Platform& devices = form.Devices();
  const std::optional<FileMark> mark = devices.disk.Look(foto);
  if (!mark) return {};
  const PictureFault fault = devices.pictures.Judge(devices.disk, foto);
  if (fault == PictureFault::kNoPicture) BorrarFotoDanada(form, foto, *mark);
  return fault == PictureFault::kNone ? Picture(foto, *mark) : Picture();
}

void BorrarFotoDanada(Form1& form, const String& foto, const FileMark& mark) {
  Disk& disk = form.Devices().disk;
  if (disk.BeingWritten(foto) || disk.Look(foto) != mark) return;
  disk.ClearReadOnly(foto).PassOver();
  disk.Remove(foto).PassOver();
}

String MostrarFotoUsuario(Form1& form, std::int32_t numero) {
  String foto = form.RutaCompartida("Imágenes USR\\"_w + Digits(numero, 6) + ".jpg"_w);
  if (!form.Devices().disk.Exists(foto)) return {};
  form.ImgUsuario.Picture = form.PctUsuario[0].Picture = foto;
  form.ImgUsuario.Visible = form.PctUsuario[1].Visible = true;
  return foto;
}

void MostrarFija(Form1& form, const Picture& foto) {
  form.Picture2.Picture = foto;
  form.Picture2.Visible = true;
  form.Picture1.Visible = false;
  form.PctAppCamera.Visible = false;
}

void MostrarFotoFicha(Form1& form, const String& foto) {
  if (const std::optional<FileMark> mark = form.Devices().disk.Look(foto)) {
    MostrarFija(form, {foto, *mark});
  } else {
    form.MostrarImagenEnVivo();
  }
  AvisarSinImagen(form);
}

void AvisarSinImagen(Form1& form) {
  form.LblWebCamMsg.Visible = form.Picture2.Picture.Empty();
  form.LblWebCamMsg.Caption = form.LblWebCamMsg.Visible ? "SIN IMAGEN"_w : String();
}

}  // namespace vintoral
