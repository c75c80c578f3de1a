#include <utility>
#include <vector>

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

/// Years of history take their time: it is seen how far the search is, and Esc ends it.
class Avance {
 public:
  explicit Avance(Screen& screen) : screen_(screen) {}
  Avance(const Avance&) = delete;
  Avance& operator=(const Avance&) = delete;
  ~Avance() { screen_.Worked(); }

  bool Sigue(std::int64_t porMirar) {
    if (total_ == 0) total_ = std::max<std::int64_t>(porMirar, 1);
    const double left = static_cast<double>(porMirar) / static_cast<double>(total_);
    ended_ = !screen_.Working("Buscando en el historial…"_w, 1 - left);
    return !ended_;
  }
  bool Terminado() const { return ended_; }

 private:
  Screen& screen_;
  std::int64_t total_ = 0;
  bool ended_ = false;
};

void PasarPorAlto(const Outcome& read) {
  if (!read.Missing()) read.PassOver();
}

/// False, and the view as it was, when the operator has ended it.
bool CargarCoincidencias(Form1& form) {
  PruebaRegistro test(CriteriosDe(*form.Form2));
  Disk& disk = form.Devices().disk;
  std::vector<RegistroFicha> view;
  const auto found = [&view](const RegistroFicha& record) { view.push_back(record); };
  Avance way(form.Devices().screen);
  if (form.Form2->ChkFichas.Value != 0)
    PasarPorAlto(BuscarActivas(disk, form.RutaCompartida("Vintoral.ACT"), form.TotalFichas, test, found));
  PasarPorAlto(BuscarHistorial(disk, form.RutaCompartida("Vintoral.HST"), test, found,
                               [&way](std::int64_t left) { return way.Sigue(left); }));
  if (way.Terminado()) return false;
  form.LiberarMemoria();
  form.VistaFichas = std::move(view);
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
  if (Form2 == nullptr || !HayConexion()) return;
  const bool pedida = Form2->Pedida();
  if (!CargarCoincidencias(*this)) return Form2->Interrumpir();
  if (!pedida) return;  // a ficha has come or gone: the same search again, without a word
  InicioPagina = 1;
  if (TotalVista() > 0) {
    MidiWav(sonido::kCelda);
  } else {
    DecirQueNoHay(*this);
  }
  OpenForms.Activate(*this);
}

}  // namespace vintoral
