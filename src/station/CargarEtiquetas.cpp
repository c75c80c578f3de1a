#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

void TomarEtiquetas(Form1& form, const RegistroEtiquetas& guardadas) {
  form.EtiquetasActuales = guardadas;
  // In barcode mode the first label names the box of the codes.
  for (std::size_t i = form.CmdBarCode.Visible ? 1 : 0; i < form.TxtEtiqueta.size(); ++i)
    form.TxtEtiqueta[i].SetText(guardadas.Etiqueta[i].Trimmed() + " "_w);
}

}  // namespace

void Form1::CargarEtiquetas() {
  const String path = RutaCompartida("Vintoral.LBL");
  const bool stored = platform_.disk.Exists(path);
  EtiquetasActuales = {};
  if (stored) {
    const Register<RegistroEtiquetas> lbl(platform_.disk, path, OpenMode::kRead);
    const std::optional<RegistroEtiquetas> record = lbl.Read(1).PassOver();
    if (!record) return;  // what can't be read must not be written over either
    if (lbl.Count().PassOver().value_or(0) >= 1) TomarEtiquetas(*this, *record);
  }
  etiquetasLeidas_ = stored || platform_.disk.Exists(RutaCompartida("Vintoral.ACT"));
  ImgIndicador[indicador::kMemoriaRostros].Visible = EtiquetasActuales.MemoriaRostros == -1;
}

}  // namespace vintoral
