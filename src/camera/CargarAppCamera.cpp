#include <array>
#include <tuple>

#include "camera/Retencion.h"
#include "common/TextoUtf8.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

constexpr std::string_view kVacio = "[DIRAPP]\r\n\r\n[DIRPIC]\r\n\r\n";

/// The first four lines; those that the file doesn't have are empty.
std::array<std::string_view, 4> Lineas(std::string_view text) {
  std::array<std::string_view, 4> lines{};
  for (std::string_view& line : lines) {
    const std::size_t end = text.find_first_of("\r\n");
    line = text.substr(0, end);
    if (end == std::string_view::npos) break;
    text.remove_prefix(text.substr(end).starts_with("\r\n") ? end + 2 : end + 1);
  }
  return lines;
}

}  // namespace

void Form1::CargarAppCamera() {
  Disk& disk = platform_.disk;
  if (!disk.Exists(archivo::kAppCamera)) disk.Replace(archivo::kAppCamera, kVacio).PassOver();
  const String text = disk.ReadAll(archivo::kAppCamera).PassOver().value_or(String());
  const auto lines = Lineas(text);
  RutaAppCamera = UTF8toANSI(TrimBlanks(lines[1]));
  RutaFotosApp = UTF8toANSI(TrimBlanks(lines[3]));
  if (RutaAppCamera.Empty()) RutaAppCamera = disk.CurrentFolder() + "\\Objetos\\AppCamera.lnk"_w;
  if (!HayFotosApp()) RutaFotosApp = platform_.system.PicturesFolder() + "\\Camera Roll"_w;
  FilAppCam.Path = RutaFotosApp;
  std::ignore = LeerPlazos(disk);  // the file that says how long photos are kept is made
}

bool Form1::HayFotosApp() const {
  return !RutaFotosApp.Empty() && platform_.disk.FolderExists(RutaFotosApp);
}

void Form1::AbrirAppCamera() {
  if (!HayFotosApp()) return platform_.screen.Beep();
  platform_.system.Launch("Explorer.exe "_w + RutaAppCamera);
}

}  // namespace vintoral
