#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {
namespace {

void Apagar(Form1& form, boton::Index monitor) {
  form.CboMinutos.Tag = "0"_w;
  form.CboMinutos.Enabled = false;
  form.PctBoton[monitor].BorderStyle = 0;
  form.PctBuscar[monitor - kMonitores.front()].Visible = false;
  form.MostrarPorteria();
}

/// A monitor that goes on ends the search, which would else bring back the one before.
void DejarBusqueda(Form1& form) {
  if (form.Form2 == nullptr) return;
  form.CboMinutos.Tag = "0"_w;
  form.AlternarBusqueda();
}

/// The minutes that this monitor had last; the first of the list when it has none yet.
void ElegirMinutos(Form1& form, std::int64_t minutos) {
  if (minutos <= 0) return form.CboMinutos.Select(0);
  form.CboMinutos.SetText(Digits(minutos));  // which EtiquetaMonitor labels
}

void Encender(Form1& form, boton::Index monitor) {
  for (const boton::Index each : kMonitores)
    form.PctBoton[each].BorderStyle = each == monitor ? 1 : 0;
  const std::size_t place = monitor - kMonitores.front();
  for (std::size_t light = 0; light < form.PctBuscar.size(); ++light)
    form.PctBuscar[light].Visible = light == place;
  form.CboMinutos.Enabled = true;
  ElegirMinutos(form, form.PctBoton[monitor].TagNumber());
  form.CboMinutos.Tag = Digits(static_cast<std::int64_t>(place) + 1);
}

}  // namespace

void Form1::CambiarMonitor(boton::Index monitor) {
  DejarBusqueda(*this);
  if (IsPressed(PctBoton[monitor])) {
    Apagar(*this, monitor);
  } else {
    Encender(*this, monitor);
  }
  EtiquetaMonitor();
  CargarVista();
  InicioPagina = 1;
  ImprimirIndice();
  LimpiarCampos();
  SetFocus(nullptr);  // the tool bar
}

}  // namespace vintoral
