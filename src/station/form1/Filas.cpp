#include "station/form1/Filas.h"

#include <array>
#include <string_view>

#include "station/form1/Form1.h"

namespace vintoral {

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
  form.LblFechaSal.BackColor = kYellow;
  form.LblFechaEnt.Caption = ficha.MarcaEntrada.Trimmed();
  form.CboTarifa[0].Clear();
  form.CboTarifa[0].SetText(ficha.Categoria.Trimmed());
  form.CboTarifa[0].Visible = true;
  form.CboTarifa[1].Visible = false;
}

void BlanquearFilas(Form1& form) {
  for (Label& row : form.LblCampo) {
    row.BackColor = kLightOrange;
    row.Caption = {};
    row.Visible = true;
  }
  form.LblFechaEnt.BackColor = form.LblFechaSal.BackColor = kWhite;
  form.LblFechaEnt.Caption = form.Conectada() ? String() : "CONECTANDO... "_w;
  form.LblFechaSal.Caption = {};
  form.CboTarifa[0].Clear();
  form.CboTarifa[0].Visible = false;
  form.CboTarifa[1].Visible = true;
}

void CalcularEstadia(Form1& form, const RegistroFicha& ficha) {
  const auto minute = [](const String& date, const String& time) { return date + " "_w + time + ":00"_w; };
  const std::string_view entrada = ficha.MarcaEntrada.View();
  const Moment now = form.Devices().clock.Now();
  form.TiempoEstadia = form.CalcularTiempo(minute(StampDate(entrada), StampTime(entrada)),
                                           minute(DateText(now), TimeText(now)));
}

}  // namespace vintoral
