// The registers of a new station, made in its own Multimedia whether it is the main gate or a connected one.
#include "records/ArchivosNuevos.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

String NoSePuedeCrear(const Disk& disk, const String& name) {
  return "No se puede crear el archivo \""_w + name + "\". La carpeta '"_w + disk.CurrentFolder() +
         "\\Multimedia' está protegida contra escritura."_w;
}

}  // namespace

bool Form1::CrearArchivoACT() {
  const String path = "Multimedia\\Vintoral.ACT"_w;
  if (platform_.disk.Exists(path)) return true;
  FichaActual = {};
  const Outcome made = platform_.disk.Replace(path, ActNuevo());
  if (made) return true;
  made.PassOver();
  ImposibleContinuar(NoSePuedeCrear(platform_.disk, "Vintoral.ACT"_w));
  TotalFichas = 0;
  Terminar();
  return false;
}

bool Form1::CrearArchivoHST() {
  const String path = "Multimedia\\Vintoral.HST"_w;
  if (platform_.disk.Exists(path)) return true;
  FichaAuxiliar = {};
  const Outcome made = platform_.disk.Replace(path, HstNuevo());
  if (made) return true;
  made.PassOver();
  ImposibleContinuar(NoSePuedeCrear(platform_.disk, "Vintoral.HST"_w));
  TotalFichas = 0;
  Terminar();
  return false;
}

void Form1::CrearArchivoNSR() {
  const String path = "Multimedia\\Vintoral.NSR"_w;
  if (!platform_.disk.Exists(path)) platform_.disk.Replace(path, NsrNuevo()).PassOver();
}

void Form1::CrearArchivoCRD() {
  const String path = "Multimedia\\Vintoral.CRD"_w;
  if (!platform_.disk.Exists(path)) platform_.disk.Replace(path, "").PassOver();
}

}  // namespace vintoral
