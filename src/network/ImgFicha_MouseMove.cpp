#include <array>
#include <string_view>

#include "common/Numbers.h"
#include "records/Monitores.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

void MostrarCodigos(Form1& form, const RegistroFicha& ficha) {
  if (!form.TxtBarCode.Visible) return;
  form.TxtBarCodeOK.Visible = EstaDentro(ficha);
  form.TxtBarCodeOK.BackColor = kYellow;
}

void EscribirFilas(Form1& form, const RegistroFicha& ficha) {
  const std::array<String, 6> values = {ficha.NumeroFicha.Trimmed(), ficha.Placa.Trimmed(),
                                        ficha.Nombre.Trimmed(),      ficha.Apellido.Trimmed(),
                                        ficha.Telefono.Trimmed(),    ficha.Observacion.Trimmed()};
  for (std::size_t i = 0; i < values.size(); ++i) {
    form.LblCampo[i].BackColor = kYellow;
    form.LblCampo[i].Caption = values[i];
    form.LblCampo[i].Visible = true;
  }
  form.LblFechaEnt.BackColor = kLightYellow;
  form.LblFechaEnt.Caption = ficha.MarcaEntrada.Trimmed();
  form.LblFechaSal.BackColor = kYellow;
  form.LblFechaSal.Caption = ficha.MarcaSalida.Trimmed();
  form.CboTarifa[0].SetText(ficha.Categoria.Trimmed());
  form.CboTarifa[0].Visible = true;
}

/// Up to this minute, as the clock would count it.
void CalcularEstadia(Form1& form, const RegistroFicha& ficha) {
  if (!EstaDentro(ficha)) return;
  const auto minute = [](const String& date, const String& time) { return date + " "_w + time + ":00"_w; };
  const std::string_view entrada = ficha.MarcaEntrada.View();
  const Moment now = form.Devices().clock.Now();
  form.TiempoEstadia = form.CalcularTiempo(minute(StampDate(entrada), StampTime(entrada)),
                                           minute(DateText(now), TimeText(now)));
}

}  // namespace

void Form1::ImgFicha_MouseMove(int cell) {
  const std::int32_t row = InicioPagina + cell;
  if (FichaEnCurso() || row > TotalVista() || PctFicha.TagNumber() == row) return;
  const RegistroFicha ficha = VistaFichas[static_cast<std::size_t>(row - 1)];
  PctFicha.Tag = Digits(row);
  ShpCelda.Cell = cell;
  ShpCelda.Visible = true;
  EstadoCelda(true, false);
  MostrarCodigos(*this, ficha);
  CalcularEstadia(*this, ficha);
  EscribirFilas(*this, ficha);
  MostrarFotoFicha(*this, RutaFoto(*this, ficha));
  EtiquetaMonitor();
}

}  // namespace vintoral
