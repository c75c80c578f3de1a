#include "records/Piezas.h"
#include "station/Dat.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CargarDatosCall() {
  const Register<RegistroMixto> dat(platform_.disk, archivo::kEstado, OpenMode::kRead);
  if (dat.Missing()) return;
  if (!dat) return dat.Opened().PassOver();
  RegistrosDePiezas pieces;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const auto number = kPrimerRegistroDePiezas + static_cast<std::int64_t>(i);
    pieces[i] = dat.Read(number).PassOver().value_or(RegistroMixto{});
  }
  DatosCall = UnirPiezas(pieces);
}

}  // namespace vintoral
