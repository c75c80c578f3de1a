#include "station/form1/Filas.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

void PriceStay(Form1& form, const RegistroFicha& ficha) {
  CalcularEstadia(form, ficha);
  form.LblInfo[1].Caption = form.TiempoEstadia;
  form.ValorEstadia = form.CalcularValor();
  form.LblValor.Caption = Trim(form.Moneda) + " "_w + form.ValorEstadia.Format();
}

}  // namespace

void Form1::TmrHoraFecha_Timer() {
  if (!FichaEnPantalla()) {
    LblFechaEnt.Caption = StampOf(platform_.clock.Now());
  } else if (LblValor.Visible) {
    LineaEfectivo();
  } else {
    PriceStay(*this, FichaMostrada());
  }
  if (FotoDetras && platform_.disk.NothingBehind()) DibujarFotos(*this);
  TmrMonitor.SetEnabled(!FichaEnCurso());
}

}  // namespace vintoral
