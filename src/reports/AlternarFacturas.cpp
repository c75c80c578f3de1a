#include <memory>

#include "reports/form8/Form8.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::AlternarFacturas() {
  PictureBox& invoices = PctBoton[boton::kFacturas];
  if (!IsPressed(invoices) || invoices.TagNumber() == kSoloFormato)
    return OpenForms.ShowModal(OpenForms.Load(std::make_unique<class Form8>(*this)));
  if (!Preguntar("Vintoral - Impresión de Facturas"_w,
                 "¿Desea realmente desactivar la impresión de facturas?"_w, Answer::kNo))
    return;
  invoices.BorderStyle = 0;
  ChkFactura.Value = 0;
  ChkFactura.Visible = false;
  ImgIndicador[indicador::kImprimirFactura].Visible = false;
}

}  // namespace vintoral
