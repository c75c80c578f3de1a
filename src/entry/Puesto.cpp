#include "entry/Puesto.h"

#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {

std::optional<RegistroFicha> LeerPuesto(Form1& form, std::int64_t numero) {
  const Register<RegistroFicha> act(form.Devices().disk, form.RutaMostrada("Vintoral.ACT"), OpenMode::kRead);
  const std::optional<RegistroFicha> puesto = act.Read(numero).PassOver();
  if (!puesto) form.BuscarEnlaceYa();
  return puesto;
}

}  // namespace vintoral
