// The folder operations of the station. Nothing is told of one that fails but a line on standard error.
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::ExisteCarpeta(const String& ruta) const {
  return platform_.disk.FolderExists(ruta);
}

void Form1::CrearCarpeta(const String& ruta) {
  if (!ExisteCarpeta(ruta)) platform_.disk.CreateFolder(ruta).PassOver();
}

void Form1::CopiarCarpeta(const String& origen, const String& destino) {
  if (!ExisteCarpeta(destino)) platform_.disk.CopyFolder(origen, destino).PassOver();
}

void Form1::MoverCarpeta(const String& origen, const String& destino) {
  if (!ExisteCarpeta(destino)) platform_.disk.Move(origen, destino).PassOver();
}

void Form1::BorrarCarpeta(const String& ruta) {
  if (ExisteCarpeta(ruta)) platform_.disk.RemoveFolder(ruta).PassOver();
}

}  // namespace vintoral
