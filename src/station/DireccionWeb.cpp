#include "records/TextoAjustes.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

constexpr std::string_view kName = "Direccion";
constexpr std::string_view kDefault =
    "; La dirección web del producto, sin barra al final. La página de ejemplos de tarifas se abre en "
    "ella.\r\n"
    "Direccion = https://vintoral.example\r\n";

}  // namespace

String Form1::DireccionWeb() {
  Disk& disk = platform_.disk;
  Result<String> file = disk.ReadAll(archivo::kWeb);
  if (file.Why().Missing()) {
    disk.Replace(archivo::kWeb, kDefault).PassOver();
    file = String(kDefault);
  }
  const std::optional<String> text = file.PassOver();
  const std::optional<String> address = text ? Ajuste(*text, kName) : std::nullopt;
  return address.value_or(Ajuste(kDefault, kName).value_or(String()));
}

}  // namespace vintoral
