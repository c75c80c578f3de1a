#include "station/form1/Form1.h"

namespace vintoral {
namespace {

constexpr std::string_view kName = "Vintoral";

void Welcome(Screen& screen, const String& folder) {
  const String text =
      "Un acceso directo con el nombre \"Vintoral\" ha sido creado en el escritorio. El programa se encuentra en la carpeta '"_w +
      folder +
      "'\nPara desinstalar el programa simplemente elimine el acceso directo y la carpeta \"Vintoral\"."_w;
  screen.Show({"Vintoral - BIENVENIDO"_w, text, Icon::kInformation, {Answer::kOk}, Answer::kOk});
}

}  // namespace

void Form1::CrearAccesoDirecto() {
  if (!platform_.system.HasShortcut(kName)) {
    const String folder = platform_.disk.CurrentFolder();
    platform_.system.CreateShortcut({String(kName), folder + "\\Recursos\\Vintoral.ico"_w, folder})
        .PassOver();
    Welcome(platform_.screen, folder);
  }
  TmrConexion.SetEnabled(true);
}

}  // namespace vintoral
