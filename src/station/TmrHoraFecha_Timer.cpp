#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// Both ends of a stay are whole minutes.
String WholeMinute(const String& date, const String& time) {
  return date + " "_w + time + ":00"_w;
}

void PriceStay(Form1& form, const RegistroFicha& ficha, Moment now) {
  const String entrada(ficha.MarcaEntrada.View());
  form.TiempoEstadia = form.CalcularTiempo(WholeMinute(StampDate(entrada), StampTime(entrada)),
                                           WholeMinute(DateText(now), TimeText(now)));
  form.LblInfo[1].Caption = form.TiempoEstadia;
  form.ValorEstadia = form.CalcularValor();
  form.LblValor.Caption = Trim(form.Moneda) + " "_w + form.ValorEstadia.Format();
}

}  // namespace

void Form1::TmrHoraFecha_Timer() {
  const Moment now = platform_.clock.Now();
  if (!FichaEnPantalla()) {
    LblFechaEnt.Caption = StampOf(now);
  } else if (LblValor.Visible) {
    LineaEfectivo();
  } else {
    PriceStay(*this, FichaMostrada(), now);
  }
  TmrMonitor.SetEnabled(!PctBoton[boton::kGuardar].Visible && !PctBoton[boton::kRetirar].Visible);
}

}  // namespace vintoral
