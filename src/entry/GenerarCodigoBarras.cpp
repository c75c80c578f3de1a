#include "entry/Codigo.h"
#include "records/BuscarCodigo.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// A ficha that is inside, or a pass, has this code already. What can't be read takes none.
bool Repetido(const Form1& form, const String& codigo) {
  Disk& disk = form.Devices().disk;
  const Register<RegistroCodigo> codigos(disk, form.RutaCompartida("Vintoral.CDB"), OpenMode::kRead);
  if (codigos && BuscarCodigo(codigos, codigo, form.TotalFichas).PassOver().value_or(0) > 0) return true;
  const Register<RegistroPase> pases(disk, form.RutaCompartida("Vintoral.CFR"), OpenMode::kRead);
  return pases && BuscarPase(pases, codigo).PassOver().value_or(0) > 0;
}

}  // namespace

void Form1::GenerarCodigoBarras() {
  TxtBarCodeOK.Visible = true;
  // Two of the same in a row are a source that is broken: the gate goes on all the same.
  constexpr int kTries = 16;
  String codigo = CodigoAlAzar(platform_.random);
  for (int i = 1; i < kTries && Repetido(*this, codigo); ++i)
    codigo = CodigoAlAzar(platform_.random);
  TxtBarCode.SetText(codigo);
}

}  // namespace vintoral
