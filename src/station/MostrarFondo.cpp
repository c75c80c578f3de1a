#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::MostrarFondo() {
  FilFondos.Path = String(archivo::kFondos);
  FilFondos.List = platform_.disk.List(FilFondos.Path, ".jpg");
  const std::int64_t index = ImgFondo.TagNumber();
  const bool exists = index >= 0 && index < static_cast<std::int64_t>(FilFondos.List.size());
  FilFondos.ListIndex = exists ? static_cast<int>(index) : -1;
  ImgFondo.Picture =
      exists ? FilFondos.Path + "\\"_w + FilFondos.List[static_cast<std::size_t>(index)] : String();
}

}  // namespace vintoral
