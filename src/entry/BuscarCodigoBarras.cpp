#include "records/BuscarCodigo.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// The number of the ficha that came in with the code on the screen, as CDB has it; empty when nobody did.
Result<String> FichaDelCodigo(Form1& form) {
  const Register<RegistroCodigo> codigos(form.Devices().disk, form.RutaCompartida("Vintoral.CDB"),
                                         OpenMode::kRead);
  const Result<std::int64_t> numero = BuscarCodigo(codigos, form.TxtBarCode.Text(), form.TotalFichas);
  if (!numero) return numero.Why();
  if (*numero == 0) return String();
  const Result<RegistroCodigo> codigo = codigos.Read(*numero);
  if (!codigo) return codigo.Why();
  return codigo->FichaCodigo.Trimmed();
}

void MostrarFichaDelCodigo(Form1& form, const String& ficha) {
  form.TxtBarCodeOK.BackColor = kYellow;
  form.TxtBarCodeOK.Visible = true;
  form.TxtCampo[0].SetText(ficha);
  form.AvanzarCampo(0);
  // A scrambled number, or a slot out of reach: the code is nobody's again, and goes after a second.
  if (!form.FichaEnCurso()) form.TxtBarCodeOK.Visible = false;
}

/// By itself, with a moment to see who it is.
void EntrarConPase(Form1& form) {
  constexpr std::int64_t kParaVer = 1000;  // milliseconds
  form.GenerarFicha();
  if (!form.PctBoton[boton::kGuardar].Visible) return form.LimpiarCampos();  // there is no slot to be had
  form.TxtBarCode.Tag = "1"_w;  // saves by itself, unless the operator saves or clears it meanwhile
  form.Esperar(kParaVer);
  if (form.TxtBarCode.TagNumber() != 0 && !form.Terminado()) form.GuardarFicha();
}

}  // namespace

void Form1::BuscarCodigoBarras() {
  if (!platform_.disk.Exists(RutaCompartida("Vintoral.CDB"))) return;
  const std::optional<String> ficha = FichaDelCodigo(*this).PassOver();
  if (!ficha) return;
  if (!ficha->Empty()) return MostrarFichaDelCodigo(*this, *ficha);
  if (ValidarPase()) EntrarConPase(*this);
}

}  // namespace vintoral
