#include "station/form1/AvisoImpresion.h"

#include "platform/Disk.h"
#include "platform/Screen.h"

namespace vintoral {

void AvisarImposibleImprimir(const Platform& devices, std::string_view ruta) {
  const String name(ruta.substr(ruta.rfind('\\') + 1));
  devices.screen.Show(
      {"Vintoral - Imposible Imprimir"_w,
       "La carpeta '"_w + devices.disk.CurrentFolder() +
           "' está protegida contra escritura. No es posible crear el archivo de impresión \""_w + name +
           "\"."_w,
       Icon::kExclamation,
       {Answer::kOk},
       Answer::kOk});
}

}  // namespace vintoral
