#include <algorithm>

#include "common/Moment.h"
#include "reports/FinPeriodo.h"
#include "reports/InformeFichas.h"

namespace vintoral {
namespace {

/// The share of the report that is done with the exit at `stamp`; rows of earlier ones follow. Nothing where
/// that can't be told.
std::optional<double> ParteHecha(const std::optional<PeriodoInforme>& periodo, std::string_view stamp) {
  const std::optional<Moment> left = MomentOfStamp(stamp);
  if (!periodo || !left || !(periodo->desde < periodo->hasta)) return std::nullopt;
  const auto time = [](Moment from, Moment to) {
    return static_cast<double>(to.Milliseconds() - from.Milliseconds());
  };
  return std::clamp(time(*left, periodo->hasta) / time(periodo->desde, periodo->hasta), 0.0, 1.0);
}

/// One way through the history, from its end.
class Recorrido {
 public:
  Recorrido(const DatosInforme& datos, InformeFichas& informe, std::int64_t ultimo, bool turnoActivo)
      : datos_(datos), informe_(informe), ultimo_(ultimo), turnoActivo_(turnoActivo) {}

  /// False at the record that ends the report, which is not part of it.
  bool Mirar(std::int64_t numero, const RegistroFicha& ficha) {
    const String date = StampDate(ficha.MarcaSalida.View());
    const bool otherDay = date != fecha_ && numero != ultimo_;
    const bool end = numero == 1 || FinPeriodo(turnoActivo_, ficha.InicioTurno);
    if (otherDay || end) informe_.CerrarDia();
    fecha_ = date;
    if (end || (otherDay && !turnoActivo_)) return false;
    ++registros_;
    if (ficha.EnUso) informe_.Fila(ficha, date);
    return Sigue(ficha);
  }
  std::int64_t Registros() const { return registros_; }
  bool Interrumpido() const { return interrumpido_; }

 private:
  bool Sigue(const RegistroFicha& ficha) {
    constexpr std::int64_t kEach = 16;  // rows; a photo on a slow network is looked for with each
    if (registros_ % kEach == 0) {
      hecho_ = std::max(hecho_, ParteHecha(datos_.periodo, ficha.MarcaSalida.View()).value_or(0));
      interrumpido_ = !datos_.sigue(hecho_);
    }
    return !interrumpido_;
  }

  const DatosInforme& datos_;
  InformeFichas& informe_;
  std::int64_t ultimo_;
  bool turnoActivo_;
  String fecha_;
  std::int64_t registros_ = 0;  ///< those not in use too
  double hecho_ = 0;
  bool interrumpido_ = false;
};

}  // namespace

InformeHecho InformeHistorial(const DatosInforme& datos, const Register<RegistroFicha>& historial,
                              bool turnoActivo, Destino destino) {
  InformeFichas report(datos, std::move(destino));
  const std::int64_t last = historial.Count().PassOver().value_or(0);
  Recorrido way(datos, report, last, turnoActivo);
  const Outcome walked = historial.WalkBack(
      last, 1, [&](std::int64_t number, const RegistroFicha& ficha) { return way.Mirar(number, ficha); });
  if (way.Interrumpido()) return InformeFichas::Interrumpir();
  // What was read up to there counts.
  if (!walked) report.CerrarDia();
  walked.PassOver();
  return report.Terminar(way.Registros());
}

}  // namespace vintoral
