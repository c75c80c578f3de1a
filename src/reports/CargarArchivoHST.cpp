#include <functional>
#include <utility>
#include <vector>

#include "reports/Avance.h"
#include "reports/Busqueda.h"
#include "reports/form2/Form2.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

Criterios CriteriosDe(const Form2& form) {
  const auto text = [&form](std::size_t box) { return form.TxtCampo[box].Text(); };
  Criterios wanted{.desdeHora = text(Form2::kDesdeHora),
                   .desdeFecha = text(Form2::kDesdeFecha),
                   .hastaHora = text(Form2::kHastaHora),
                   .hastaFecha = text(Form2::kHastaFecha),
                   .ficha = text(Form2::kNumero),
                   .campos = {},
                   .categoria = form.CboTarifa.Text()};
  for (std::size_t i = 0; i < wanted.campos.size(); ++i)
    wanted.campos[i] = text(Form2::kDatos + i);
  return wanted;
}

/// The share that is done, told what is left of it: the first time is the beginning.
class Resto {
 public:
  double Hecho(std::int64_t porMirar) {
    if (total_ == 0) total_ = std::max<std::int64_t>(porMirar, 1);
    return 1 - static_cast<double>(porMirar) / static_cast<double>(total_);
  }

 private:
  std::int64_t total_ = 0;
};

void PasarPorAlto(const Outcome& read) {
  if (!read.Missing()) read.PassOver();
}

using Sigue = std::function<bool(std::int64_t porMirar)>;

std::vector<RegistroFicha> Coincidencias(const Form1& form, const Sigue& sigue) {
  PruebaRegistro test(CriteriosDe(*form.Form2));
  Disk& disk = form.Devices().disk;
  std::vector<RegistroFicha> view;
  const auto found = [&view](const RegistroFicha& record) { view.push_back(record); };
  if (form.Form2->ChkFichas.Value != 0)
    PasarPorAlto(BuscarActivas(disk, form.RutaCompartida("Vintoral.ACT"), form.TotalFichas, test, found));
  PasarPorAlto(BuscarHistorial(disk, form.RutaCompartida("Vintoral.HST"), test, found, sigue));
  return view;
}

void Mostrar(Form1& form, std::vector<RegistroFicha> view) {
  form.LiberarMemoria();
  form.VistaFichas = std::move(view);
}

/// False, and the view as it was, when the operator or the end of the program has ended it.
bool CargarCoincidencias(Form1& form) {
  Avance way(form, "Buscando en el historial…"_w);
  Resto rest;
  std::vector<RegistroFicha> view =
      Coincidencias(form, [&](std::int64_t left) { return way.Sigue(rest.Hecho(left)); });
  if (way.Interrumpido()) return false;
  Mostrar(form, std::move(view));
  return true;
}

void DecirQueNoHay(Form1& form) {
  form.LimpiarPantalla();
  form.LimpiarCampos();
  form.Devices().screen.Show({"Vintoral - Búsqueda de Registros"_w,
                              "No se encontró ninguna coincidencia."_w,
                              Icon::kInformation,
                              {Answer::kOk},
                              Answer::kOk});
}

}  // namespace

void Form1::CargarArchivoHST() {
  if (Form2 == nullptr) return;
  // The matches of before would else be printed as those of another range.
  if (!HayConexion()) return Form2->Interrumpir();
  // A ficha has come or gone: its sale waits for no box.
  if (!Form2->Pedida()) return Mostrar(*this, Coincidencias(*this, [](std::int64_t) { return true; }));
  if (!CargarCoincidencias(*this)) {
    if (Form2 != nullptr) Form2->Interrumpir();
    return;
  }
  InicioPagina = 1;
  if (TotalVista() > 0) {
    MidiWav(sonido::kCelda);
  } else {
    DecirQueNoHay(*this);
  }
  OpenForms.Activate(*this);
}

}  // namespace vintoral
