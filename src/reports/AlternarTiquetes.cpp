#include <memory>

#include "reports/form3/Form3.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::AlternarTiquetes() {
  PictureBox& tickets = PctBoton[boton::kTiquetes];
  if (!IsPressed(tickets) || tickets.TagNumber() == kSoloFormato)
    return OpenForms.ShowModal(OpenForms.Load(std::make_unique<class Form3>(*this)));
  if (!Preguntar("Vintoral - Impresión de Tiquetes"_w,
                 "¿Desea realmente desactivar la impresión de tiquetes?"_w, Answer::kNo))
    return;
  if (CmdBarCode.Visible) AlternarCodigoBarras();  // no bar codes without tickets
  CmdNumeroFicha.Visible = false;
  tickets.BorderStyle = 0;
  FocoDondeSeEscribe();  // it may have stood on the button that goes
}

}  // namespace vintoral
