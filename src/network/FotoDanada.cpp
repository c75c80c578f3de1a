#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {

void Form1::FotoDanada(const String& foto, const FileMark& mark) {
  const Picture damaged(foto, mark);
  for (Image& cell : ImgFicha) {
    if (cell.Picture != damaged) continue;
    BorrarFotoDanada(*this, foto, mark);
    cell.Picture = {};
  }
}

}  // namespace vintoral
