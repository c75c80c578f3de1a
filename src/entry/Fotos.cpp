#include "entry/Fotos.h"

#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

String MostrarFotoUsuario(Form1& form, std::int32_t numero) {
  String foto = form.RutaCompartida("Imágenes USR\\"_w + Digits(numero, 6) + ".jpg"_w);
  if (!form.Devices().disk.Exists(foto)) return {};
  form.ImgUsuario.Picture = form.PctUsuario[0].Picture = foto;
  form.ImgUsuario.Visible = form.PctUsuario[1].Visible = true;
  return foto;
}

void MostrarFija(Form1& form, const String& foto) {
  form.Picture2.Picture = foto;
  form.Picture2.Visible = true;
  form.Picture1.Visible = false;
  form.PctAppCamera.Visible = false;
}

void AvisarSinImagen(Form1& form) {
  form.LblWebCamMsg.Visible = form.Picture2.Picture.Empty();
  form.LblWebCamMsg.Caption = form.LblWebCamMsg.Visible ? "SIN IMAGEN"_w : String();
}

}  // namespace vintoral
