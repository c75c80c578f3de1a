#include "common/Numbers.h"
#include "entry/Pase.h"
#include "records/BuscarCodigo.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

struct PaseHallado {
  std::int64_t numero = 0;  ///< 0 for none
  RegistroPase pase;
};

Result<PaseHallado> Hallar(const Form1& form) {
  const Register<RegistroPase> pases(form.Devices().disk, form.RutaCompartida("Vintoral.CFR"),
                                     OpenMode::kRead);
  if (pases.Missing()) return PaseHallado{};
  const Result<std::int64_t> numero = BuscarPase(pases, form.TxtBarCode.Text());
  if (!numero) return numero.Why();
  if (*numero == 0) return PaseHallado{};
  const Result<RegistroPase> pase = pases.Read(*numero);
  if (!pase) return pase.Why();
  return PaseHallado{*numero, *pase};
}

/// Frees the record of a pass that has run out. Another gate may have freed it just now, and somebody taken
/// it.
void Liberar(const Form1& form, const PaseHallado& vencido) {
  Register<RegistroPase> pases(form.Devices().disk, form.RutaCompartida("Vintoral.CFR"),
                               OpenMode::kReadWrite);
  const auto liberar = [&]() -> Outcome {
    Result<RegistroPase> pase = pases.Read(vencido.numero);
    if (!pase || *pase != vencido.pase) return pase.Why();
    RegistroPase libre = vencido.pase;
    libre.CodigoPase = "";
    return pases.Write(vencido.numero, libre, false);
  };
  pases.UnderLock(liberar).PassOver();
}

void MostrarPase(Form1& form, const RegistroPase& pase, const Vigencia& vigencia) {
  form.TxtMaxEntrada.SetText(Digits(vigencia.quedan));
  form.LstModEntrada.ListIndex = vigencia.unidad;
  form.TxtBarCodeOK.Visible = true;
  form.TxtMaxEntrada.Enabled = form.LstModEntrada.Enabled = false;
  form.TxtMaxEntrada.Visible = form.LstModEntrada.Visible = true;
  form.TxtCampo[1].SetText(pase.PlacaPase.Trimmed());
}

}  // namespace

bool Form1::ValidarPase() {
  NumeroPase = 0;
  const std::optional<PaseHallado> hallado = Hallar(*this).PassOver();
  if (!hallado || hallado->numero == 0) return false;
  const Vigencia vigencia = VigenciaDe(hallado->pase, platform_.clock.Now());
  if (vigencia.vencida) Liberar(*this, *hallado);
  if (!vigencia.vale) return false;
  NumeroPase = hallado->numero;
  MostrarPase(*this, hallado->pase, vigencia);
  return true;
}

}  // namespace vintoral
