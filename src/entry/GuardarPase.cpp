#include "entry/Pase.h"
#include "records/BuscarCodigo.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

using Pases = Register<RegistroPase>;

/// Slot and pass change together. Where the pass can't be read the vehicle comes in all the same.
bool UsarPase(Form1& form, Pases& pases, const std::function<bool()>& entrar) {
  bool entrada = false;
  const auto usar = [&]() -> Outcome {
    const Result<RegistroPase> pase = pases.Read(form.NumeroPase);
    const bool spent = pase && !EqualNoCase(pase->CodigoPase.Trimmed(), TrimBlanks(form.TxtBarCode.Text()));
    entrada = !spent && entrar();
    return entrada && pase ? pases.Write(form.NumeroPase, PaseUsado(*pase), false) : pase.Why();
  };
  pases.UnderLock(usar).PassOver();
  return entrada;
}

RegistroPase PaseDeLaPantalla(const Form1& form) {
  const ValidezPedida pedida = ValidezEnPantalla(form);
  return PaseNuevo(form.TxtBarCode.Text(), form.FichaActual.Placa.View(), pedida,
                   form.FichaActual.MarcaEntrada.View());
}

void CrearPase(Form1& form, Pases& pases) {
  // Looked for before anybody is kept waiting: years of passes over a slow share take a while.
  const Result<std::int64_t> visto = LugarParaPase(pases);
  const auto crear = [&]() -> Outcome {
    const bool libre = visto && LugarLibre(pases, *visto) == true;
    const Result<std::int64_t> lugar = libre ? visto : LugarParaPase(pases);
    if (!lugar) return lugar.Why();
    Outcome written = pases.Write(*lugar, PaseDeLaPantalla(form), false);
    if (written) form.NumeroPase = *lugar;
    return written;
  };
  pases.UnderLock(crear).PassOver();
}

}  // namespace

ValidezPedida ValidezEnPantalla(const Form1& form) {
  return {ValidezEscrita(form.TxtMaxEntrada.Text()), form.LstModEntrada.ListIndex, form.NumeroPase > 0};
}

bool Form1::GuardarPase(const std::function<bool()>& entrar) {
  Pases pases(platform_.disk, RutaMostrada("Vintoral.CFR"), OpenMode::kCreate);
  if (!pases) {
    pases.Opened().PassOver();
    return entrar();
  }
  if (NumeroPase > 0) return UsarPase(*this, pases, entrar);
  if (!entrar()) return false;
  CrearPase(*this, pases);
  return true;
}

}  // namespace vintoral
