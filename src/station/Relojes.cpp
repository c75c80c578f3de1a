// One tick of each timer.
#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::TmrHoraFecha_Timer() {
  const Moment now = platform_.clock.Now();
  if (!FichaEnPantalla()) {
    LblFechaEnt.Caption = StampOf(now);
  } else if (LblValor.Visible) {
    LineaEfectivo();
  } else {
    const String entrada(FichaMostrada().MarcaEntrada.View());
    TiempoEstadia = CalcularTiempo(StampDate(entrada) + " "_w + StampTime(entrada) + ":00"_w,
                                   DateText(now) + " "_w + TimeText(now) + ":00"_w);
    LblInfo[1].Caption = TiempoEstadia;
    ValorEstadia = CalcularValor();
    LblValor.Caption = Trim(Moneda) + " "_w + ValorEstadia.Format();
  }
  TmrMonitor.SetEnabled(!PctBoton[5].Visible && !PctBoton[6].Visible);
}

void Form1::TmrHorario_Timer() {
  const Moment now = platform_.clock.Now();
  BaseReloj = now;
  if (now.Parts().minute != MinutoBase) {
    ++TiempoEjecucion;
    MinutoBase = now.Parts().minute;
  }
  if (!LblValor.Visible || !TmrHoraFecha.Enabled || LblFechaSal.Caption.Empty()) return;
  constexpr std::int64_t kForgotten = 120'000;
  const std::optional<Moment> shown = MomentOfStamp(LblFechaSal.Caption);
  if (!shown || now.Milliseconds() - shown->Milliseconds() <= kForgotten) return;
  Form_KeyDown(27, 0);
  MidiWav("Sonidos\\Vintoral-7.wav");
}

void Form1::TmrMonitor_Timer() {
  const bool monitor =
      PctBoton[7].BorderStyle == 1 || PctBoton[8].BorderStyle == 1 || PctBoton[9].BorderStyle == 1;
  // The main gate redraws with its own saves and retirings; by timer only while it starts.
  if (!monitor && EsCliente == 0 && TmrHorario.Enabled) return;
  if (PctBoton[9].BorderStyle == 1) {
    CargarSalidasHST();
  } else {
    CargarArchivoACT();
  }
  ImprimirIndice();
}

void Form1::TmrBarCode_Timer() {
  if (!TxtBarCodeOK.Visible) TxtBarCode.SetText({});
}

}  // namespace vintoral
