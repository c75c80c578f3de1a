// The registers of a new station, made in its own Multimedia whether it is the main gate or a connected one.
#include <tuple>

#include "records/ArchivosNuevos.h"
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::CrearRegistro(const String& nombre, String (*contenido)()) {
  const String path = "Multimedia\\"_w + nombre;
  if (platform_.disk.Exists(path)) return true;
  const Outcome made = platform_.disk.Replace(path, contenido());
  made.PassOver();
  return static_cast<bool>(made);
}

bool Form1::CrearRegistroNecesario(const String& nombre, String (*contenido)()) {
  if (CrearRegistro(nombre, contenido)) return true;
  TotalFichas = 0;
  ImposibleContinuar("No se puede crear el archivo \""_w + nombre + "\". La carpeta '"_w +
                     platform_.disk.CurrentFolder() + "\\Multimedia' está protegida contra escritura."_w);
  Terminar();
  return false;
}

bool Form1::CrearArchivoACT() {
  return CrearRegistroNecesario("Vintoral.ACT"_w, ActNuevo);
}

bool Form1::CrearArchivoHST() {
  return CrearRegistroNecesario("Vintoral.HST"_w, HstNuevo);
}

void Form1::CrearArchivoNSR() {
  std::ignore = CrearRegistro("Vintoral.NSR"_w, NsrNuevo);
}

void Form1::CrearArchivoCRD() {
  std::ignore = CrearRegistro("Vintoral.CRD"_w, [] { return String(); });
}

}  // namespace vintoral
