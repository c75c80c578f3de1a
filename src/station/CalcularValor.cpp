#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Puntos.h"
#include "tariffs/Tasacion.h"

namespace vintoral {

Money Form1::CalcularValor() {
  const Tasacion account = Tasar(TablaTarifas, CboTarifa[0].Text(), Permanencia);
  if (ImgPuntos.Visible && ImgPuntos.TagNumber() == 0) {
    PuntosEstadia = account.puntos;
    PuntosAcumulados = PuntosTras(PuntosAcumulados, PuntosEstadia) - PuntosEstadia;
  }
  LblPuntos[1].Caption = Digits(PuntosAcumulados + PuntosEstadia);
  LblFechaSal.Caption = StampOf(platform_.clock.Now());
  MarcaSalidaPendiente = LblFechaSal.Caption;

  const Valor& fare = account.valor;
  if (!fare.encontrada) return {};
  Permanencia = fare.contada;
  LblValor.Visible = fare.conPrecio;
  if (fare.conPrecio && ChkFactura.TagNumber() == 0 && IsPressed(PctBoton[boton::kFacturas])) {
    ChkFactura.Tag = "1"_w;
    ChkFactura.Enabled = true;
    ChkFactura.Value = 1;
  }
  LblPuntos[0].Visible = true;
  LblPuntos[1].Visible = true;
  return fare.valor;
}

}  // namespace vintoral
