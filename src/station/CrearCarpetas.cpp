#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CrearCarpetas() {
  for (const String& folder :
       {"ABRiL"_w, "Fondos"_w, "Fuentes"_w, "Multimedia"_w, "Multimedia\\Imágenes INI"_w,
        "Multimedia\\Imágenes USR"_w, "Multimedia\\Imágenes ACT"_w, "Multimedia\\Imágenes HST"_w,
        "Multimedia\\Imágenes DTL"_w, "Objetos"_w, "Recursos"_w, "Sonidos"_w}) {
    platform_.disk.CreateFolder(folder).PassOver();
  }
}

}  // namespace vintoral
