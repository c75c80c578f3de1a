#include <algorithm>

#include "safety/ArchivoBloqueo.h"
#include "safety/form7/Form7.h"
#include "station/form1/Bloqueos.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// A password that the keypad can't give would lock the gate for good.
bool PuedeDigitarse(std::string_view password) {
  return password.size() <= Form7::kLargoClave &&
         std::all_of(password.begin(), password.end(), [](char each) { return each >= '0' && each <= '9'; });
}

String Completa(String functions, std::size_t digits) {
  while (Trim(functions).Size() < digits)
    functions += String(1, bloqueo::kAbierta);
  return functions;
}

}  // namespace

void Form1::CargarContraseña() {
  const RegistroBloqueo none = SinBloqueo();
  ContraseñaActual = none.Contraseña;
  FuncionesBloqueadas = none.Funciones;
  const std::optional<RegistroBloqueo> stored = LeerBloqueo(platform_.disk).PassOver();
  if (!stored || stored->Funciones.Empty()) return;
  if (PuedeDigitarse(stored->Contraseña)) ContraseñaActual = stored->Contraseña;
  FuncionesBloqueadas = Completa(stored->Funciones, none.Funciones.Size());
  if (!ContraseñaActual.Empty() && bloqueo::HayBloqueadas(FuncionesBloqueadas))
    ImgIndicador[indicador::kBloqueo].Visible = true;
}

}  // namespace vintoral
