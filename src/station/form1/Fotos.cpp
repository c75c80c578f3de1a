#include "station/form1/Fotos.h"

#include "common/Numbers.h"
#include "records/Monitores.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

String Carpeta(const Form1& form, bool inside) {
  return form.RutaCompartida(inside ? carpeta_fotos::kAdentro : carpeta_fotos::kHistorial);
}

String Nombre(std::int64_t numero) {
  return Digits(numero, 6) + ".jpg"_w;
}

/// A plate as part of a name.
String EnNombre(std::string_view placa) {
  constexpr std::string_view kNotInNames = "/\\:*?\"<>|";
  std::string name = Upper(Trim(placa)).Bytes();
  for (char& character : name) {
    const bool control = static_cast<unsigned char>(character) < ' ';
    if (control || kNotInNames.find(character) != std::string_view::npos) character = '_';
  }
  return String(name);
}

/// The photo, or nothing when it can't be shown.
Picture Sana(Form1& form, const Picture& photo) {
  const Platform& devices = form.Devices();
  const PictureFault fault = devices.pictures.Judge(devices.disk, photo.Path());
  if (fault == PictureFault::kNoPicture) BorrarFotoDanada(form, photo.Path(), photo.Mark());
  return fault == PictureFault::kNone ? photo : Picture();
}

/// The photos of those who are inside, or of those who have left, into their places.
void MirarCarpeta(Form1& form, std::span<const RegistroFicha> fichas, bool inside,
                  std::span<Picture> photos) {
  std::vector<std::size_t> places;
  std::vector<String> names;
  for (std::size_t i = 0; i < fichas.size(); ++i) {
    if (EstaDentro(fichas[i]) != inside) continue;
    places.push_back(i);
    names.push_back(Nombre(fichas[i].Posicion));
  }
  if (names.empty()) return;
  const String folder = Carpeta(form, inside);
  const auto marks = form.Devices().disk.LookIn(folder, names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (marks[i]) photos[places[i]] = Sana(form, Picture(folder + "\\"_w + names[i], *marks[i]));
  }
}

}  // namespace

String RutaFoto(const Form1& form, const RegistroFicha& ficha) {
  return Carpeta(form, EstaDentro(ficha)) + "\\"_w + Nombre(ficha.Posicion);
}

String RutaFotoAdentro(const Form1& form, std::int64_t numero) {
  return Carpeta(form, true) + "\\"_w + Nombre(numero);
}

String RutaCompletaFotoAdentro(const Form1& form, std::int64_t numero) {
  return form.CarpetaCompartida + "\\"_w + String(carpeta_fotos::kAdentro) + "\\"_w + Nombre(numero);
}

String RutaFotoUsuario(const Form1& form, std::int64_t usuario) {
  return form.RutaCompartida(carpeta_fotos::kUsuarios) + "\\"_w + Nombre(usuario);
}

String RutaFotoPrimera(const Form1& form, std::int64_t usuario) {
  return form.RutaCompartida(carpeta_fotos::kPrimeras) + "\\"_w + Nombre(usuario);
}

std::vector<String> RutasFotosUsuario(const Form1& form, std::int32_t usuario, bool primera) {
  std::vector<String> rutas;
  if (usuario < 1) return rutas;
  if (primera) rutas.push_back(RutaFotoPrimera(form, usuario));
  rutas.push_back(RutaFotoUsuario(form, usuario));
  return rutas;
}

String CarpetaDetalleEn(const String& base, std::string_view placa, std::int64_t numero) {
  return base + "\\"_w + EnNombre(placa) + Digits(numero, 4);
}

String CarpetaDetalle(const Form1& form, std::string_view placa, std::int64_t numero) {
  return CarpetaDetalleEn(form.RutaCompartida(carpeta_fotos::kDetalles), placa, numero);
}

String CarpetaDetalleFinal(const Form1& form, std::string_view placa, Moment momento) {
  const Civil civil = momento.Parts();
  const String fecha = Digits(civil.day, 2) + "-"_w + Digits(civil.month, 2) + "-"_w + Digits(civil.year, 4);
  const String hora = Digits(civil.hour, 2) + Digits(civil.minute, 2) + Digits(civil.second, 2);
  return form.RutaCompartida(carpeta_fotos::kDetalles) + "\\"_w + EnNombre(placa) + " P"_w +
         form.NumeroPorteria + " "_w + fecha + " "_w + hora;
}

String RutaDetalle(const String& carpeta, std::int64_t numero, std::int64_t foto) {
  return carpeta + "\\"_w + Digits(numero, 4) + "-"_w + Digits(foto) + ".jpg"_w;
}

std::vector<Picture> FotosDe(Form1& form, std::span<const RegistroFicha> fichas) {
  std::vector<Picture> photos(fichas.size());
  for (const bool inside : {true, false})
    MirarCarpeta(form, fichas, inside, photos);
  return photos;
}

void DibujarFotos(Form1& form) {
  // Asked first: a photo that comes while the folders are read is drawn once more rather than never.
  form.FotoDetras = !form.Devices().disk.NothingBehind();
  const std::vector<Picture> photos = FotosDe(form, form.Pagina());
  for (std::size_t cell = 0; cell < photos.size(); ++cell)
    form.ImgFicha[cell].Picture = photos[cell];
}

void BorrarFotoDanada(Form1& form, const String& foto, const FileMark& mark) {
  Disk& disk = form.Devices().disk;
  if (disk.BeingWritten(foto) || disk.Look(foto) != mark) return;
  QuitarArchivo(disk, foto);
}

bool QuitarArchivo(Disk& disk, const String& ruta) {
  if (!disk.IsLink(ruta)) disk.ClearReadOnly(ruta).PassOver();
  const Outcome removed = disk.Remove(ruta);
  removed.PassOver();
  return static_cast<bool>(removed);
}

bool HayFotoDetalle(const Form1& form, std::string_view placa, std::int64_t numero, std::int64_t foto) {
  const String folder = form.RutaCompartida(carpeta_fotos::kDetalles);
  const String path = RutaDetalle(CarpetaDetalle(form, placa, numero), numero, foto);
  const String name(path.Bytes().substr(folder.Bytes().size() + 1));
  return form.Devices().disk.LookIn(folder, std::span(&name, 1)).front().has_value();
}

String MostrarFotoUsuario(Form1& form, std::int32_t numero) {
  String foto = RutaFotoUsuario(form, numero);
  if (numero < 1 || !form.Devices().disk.Exists(foto)) return {};
  form.ImgUsuario.Picture = form.PctUsuario[0].Picture = foto;
  form.ImgUsuario.Visible = form.PctUsuario[1].Visible = true;
  return foto;
}

void QuitarUsuario(Form1& form) {
  for (PictureBox& card : form.PctUsuario) {
    card.Visible = false;
    card.Picture = {};
  }
  form.ImgUsuario.Visible = false;
  form.ImgUsuario.Picture = {};
  form.ImgPuntos.Visible = false;
  for (Label& points : form.LblPuntos) {
    points.Caption = {};
    points.Visible = false;
  }
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
