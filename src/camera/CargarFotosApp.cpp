#include <algorithm>

#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

/// The pictures that the outside program left, oldest name first. A link could lead anywhere, and whatever is
/// no picture by its name (a film, a list of small pictures, a half-written file) is left to that program.
std::vector<String> FotosDejadas(const Form1& form) {
  const Disk& disk = form.Devices().disk;
  const String folder = form.RutaFotosApp;
  std::vector<String> names = disk.List(folder, ".jpg");
  const std::vector<String> more = disk.List(folder, ".jpeg");
  names.insert(names.end(), more.begin(), more.end());
  std::erase_if(names, [&](const String& name) { return disk.IsLink(folder + "\\"_w + name); });
  std::sort(names.begin(), names.end(),
            [](const String& left, const String& right) { return Upper(left) < Upper(right); });
  return names;
}

struct Destino {
  String carpeta;  ///< the ficha's own folder
  std::int64_t numero;
};

/// A picture may still stand there that was left by a ficha of the same plate and number.
void Mover(Form1& form, const String& foto, const Destino& destino, std::int64_t numeroFoto) {
  Disk& disk = form.Devices().disk;
  const String ruta = RutaDetalle(destino.carpeta, destino.numero, numeroFoto);
  if (disk.Exists(ruta)) disk.Remove(ruta).PassOver();
  disk.Move(foto, ruta).PassOver();
}

/// The last picture is the one of the entrance, or a further one where the user is known by his own.
void MoverPrincipal(Form1& form, const String& foto, const Destino& destino) {
  Disk& disk = form.Devices().disk;
  const String entrada = RutaFotoAdentro(form, destino.numero);
  const String guardada = RutaFotoUsuario(form, form.UsuarioEnFormulario);
  const bool conMemoria = form.ImgIndicador[indicador::kMemoriaRostros].Visible;
  const bool conocido = !conMemoria && form.UsuarioEnFormulario > 0 && disk.Exists(guardada);
  const Outcome copied = disk.Copy(conocido ? guardada : foto, entrada);
  copied.PassOver();
  if (copied) form.RutaFotoFicha = RutaCompletaFotoAdentro(form, destino.numero);
  Mover(form, foto, destino, conocido ? form.NumeroFotos : 0);
}

}  // namespace

void Form1::CargarFotosApp(std::string_view placa, std::int64_t numero) {
  RutaFotoFicha = {};
  if (!HayFotosApp()) return;
  FilAppCam.List = FotosDejadas(*this);
  if (FilAppCam.List.empty()) return;
  NumeroFotos = FotoActual = 0;
  const Destino destino{CarpetaDetalleEn("Multimedia\\Imágenes DTL"_w, placa, numero), numero};
  CrearCarpeta(destino.carpeta);
  for (std::size_t i = 0; i < FilAppCam.List.size() && NumeroFotos < kMaxFotos; ++i) {
    const String foto = RutaFotosApp + "\\"_w + FilAppCam.List[i];
    FotoActual = ++NumeroFotos;
    const bool ultima = i + 1 == FilAppCam.List.size();
    if (ultima) {
      MoverPrincipal(*this, foto, destino);
    } else {
      Mover(*this, foto, destino, NumeroFotos);
    }
  }
}

}  // namespace vintoral
