#include "common/Outcome.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::Form_Load() {
  Disk& disk = platform_.disk;
  if (platform_.system.CountInstances() > 1 && !disk.Exists("Recursos\\Vintoral.RLD")) return Terminar();
  CrearCarpetas();
  if (!CargarServidor()) return;
  EscribirAyuda();
  if (Terminado()) return;
  CrearAccesoDirecto();
  if (Terminado()) return;
  MostrarPorteria();
  TotalFichas = 1000;
  LimiteFilas = 10946;
  InicioPagina = 1;
  if (!CrearArchivoACT() || !CrearArchivoHST()) return;
  CrearArchivoNSR();
  CrearArchivoCRD();
  if (!disk.Exists("Recursos\\Vintoral.HFC")) disk.Replace("Recursos\\Vintoral.HFC", "").PassOver();
  static_cast<void>(DireccionWeb());
  CargarMoneda();
  CrearTablasPredeterminadas();
  CargarEtiquetas();
  CargarTablas();
  InicioPagina = 1;
  CargarEstadoPantalla();
  CargarDatosCall();
  CargarMarcas();
  MostrarFondo();
  MidiWav("Sonidos\\Vintoral-1.wav");
  BaseReloj = platform_.clock.Now();
  MinutoBase = BaseReloj.Parts().minute;
  TmrHorario.SetEnabled(true);
  iniciado_ = true;
}

void Form1::CrearCarpetas() {
  for (const String& folder :
       {"ABRiL"_w, "Fondos"_w, "Fuentes"_w, "Multimedia"_w, "Multimedia\\Imágenes INI"_w,
        "Multimedia\\Imágenes USR"_w, "Multimedia\\Imágenes ACT"_w, "Multimedia\\Imágenes HST"_w,
        "Multimedia\\Imágenes DTL"_w, "Objetos"_w, "Recursos"_w, "Sonidos"_w}) {
    platform_.disk.CreateFolder(folder).PassOver();
  }
}

void Form1::CrearAccesoDirecto() {
  const String name = "Vintoral"_w;
  const String folder = platform_.disk.CurrentFolder();
  if (!platform_.system.HasShortcut(name)) {
    platform_.system.CreateShortcut({name, folder + "\\Recursos\\Vintoral.ico"_w, folder}).PassOver();
    const String text =
        "Un acceso directo con el nombre \""_w + name +
        "\" ha sido creado en el escritorio. El programa se encuentra en la carpeta '"_w + folder +
        "'\nPara desinstalar el programa simplemente elimine el acceso directo y la carpeta \"Vintoral\"."_w;
    platform_.screen.Show({"Vintoral - BIENVENIDO"_w, text, Icon::kInformation, {Answer::kOk}, Answer::kOk});
  }
  TmrConexion.SetEnabled(true);
}

void Form1::MostrarFondo() {
  FilFondos.Path = "Fondos"_w;
  FilFondos.List = platform_.disk.List(FilFondos.Path, ".jpg");
  const std::int64_t index = ImgFondo.TagNumber();
  const bool exists = index >= 0 && index < static_cast<std::int64_t>(FilFondos.List.size());
  FilFondos.ListIndex = exists ? static_cast<int>(index) : -1;
  ImgFondo.Picture =
      exists ? FilFondos.Path + "\\"_w + FilFondos.List[static_cast<std::size_t>(index)] : String();
}

}  // namespace vintoral
