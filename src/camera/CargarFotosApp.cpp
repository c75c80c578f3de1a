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

/// False when the picture stays where it is. One may still stand there that an earlier ficha of the same
/// plate and number has left.
bool Mover(Form1& form, const String& foto, const String& ruta) {
  Disk& disk = form.Devices().disk;
  if (disk.Exists(ruta)) QuitarArchivo(disk, ruta);
  const Outcome moved = disk.Move(foto, ruta);
  moved.PassOver();
  return static_cast<bool>(moved);
}

/// The last picture is the one of the entrance, or a further one where the user is known by his own. One that
/// can't be moved would be taken for that of the next ficha as well: it is nobody's.
void MoverPrincipal(Form1& form, const String& foto, const Destino& destino) {
  Disk& disk = form.Devices().disk;
  const String guardada = RutaFotoUsuario(form, form.UsuarioEnFormulario);
  const bool conMemoria = form.ImgIndicador[indicador::kMemoriaRostros].Visible;
  const bool conocido = !conMemoria && form.UsuarioEnFormulario > 0 && disk.Exists(guardada);
  const String lugar = RutaDetalle(destino.carpeta, destino.numero, conocido ? form.NumeroFotos : 0);
  if (!Mover(form, foto, lugar) && !conocido) return;
  const Outcome copied = disk.Copy(conocido ? guardada : lugar, RutaFotoAdentro(form, destino.numero));
  copied.PassOver();
  if (copied) form.RutaFotoFicha = RutaCompletaFotoAdentro(form, destino.numero);
}

}  // namespace

void Form1::CargarFotosApp(std::string_view placa, std::int64_t numero) {
  RutaFotoFicha = {};
  if (!HayFotosApp()) return;
  FilAppCam.List = FotosDejadas(*this);
  if (FilAppCam.List.empty()) return;
  // Photos that the camera took before it went are counted on from.
  if (!ImgIndicador[indicador::kFotosAdicionales].Visible) NumeroFotos = FotoActual = 0;
  const Destino destino{CarpetaDetalleEn("Multimedia\\"_w + String(carpeta_fotos::kDetalles), placa, numero),
                        numero};
  if (platform_.disk.IsLink(destino.carpeta)) return;
  CrearCarpeta(destino.carpeta);
  for (std::size_t i = 0; i < FilAppCam.List.size(); ++i) {
    const String foto = RutaFotosApp + "\\"_w + FilAppCam.List[i];
    const bool ultima = i + 1 == FilAppCam.List.size();
    if (NumeroFotos < kMaxFotos) FotoActual = ++NumeroFotos;
    if (ultima) {
      MoverPrincipal(*this, foto, destino);
    } else {
      Mover(*this, foto, RutaDetalle(destino.carpeta, numero, NumeroFotos));
    }
  }
}

}  // namespace vintoral
