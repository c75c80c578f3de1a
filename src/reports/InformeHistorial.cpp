#include "common/Moment.h"
#include "reports/FinPeriodo.h"
#include "reports/InformeFichas.h"

namespace vintoral {
namespace {

/// One way through the history, from its end.
class Recorrido {
 public:
  Recorrido(InformeFichas& informe, std::int64_t ultimo, bool turnoActivo)
      : informe_(informe), ultimo_(ultimo), turnoActivo_(turnoActivo) {}

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
    return true;
  }
  std::int64_t Registros() const { return registros_; }

 private:
  InformeFichas& informe_;
  std::int64_t ultimo_;
  bool turnoActivo_;
  String fecha_;
  std::int64_t registros_ = 0;  ///< those not in use too
};

}  // namespace

InformeHecho InformeHistorial(const DatosInforme& datos, const Register<RegistroFicha>& historial,
                              bool turnoActivo, Destino destino) {
  InformeFichas report(datos, std::move(destino));
  const std::int64_t last = historial.Count().PassOver().value_or(0);
  Recorrido way(report, last, turnoActivo);
  const Outcome walked = historial.WalkBack(
      last, 1, [&](std::int64_t number, const RegistroFicha& ficha) { return way.Mirar(number, ficha); });
  // What was read up to there counts.
  if (!walked) report.CerrarDia();
  walked.PassOver();
  return report.Terminar(way.Registros());
}

}  // namespace vintoral
