#include "reports/InformeFichas.h"

#include "records/Monitores.h"

namespace vintoral {

InformeFichas::InformeFichas(const DatosInforme& datos, Destino destino)
    : pagina_(datos, std::move(destino)) {
  if (datos.tira) tira_.emplace(datos);
}

void InformeFichas::Fila(const RegistroFicha& ficha, const String& fecha) {
  pagina_.Fila(ficha);
  if (tira_) tira_->Fila(ficha, fecha);
  if (!EstaDentro(ficha)) subtotal_ += Suma(ficha.ValorCobrado);
}

void InformeFichas::CerrarDia() {
  pagina_.CerrarDia(subtotal_);
  if (tira_) tira_->CerrarDia(subtotal_);
  total_ += subtotal_;
  subtotal_ = {};
}

InformeHecho InformeFichas::Terminar(std::int64_t registros) {
  InformeHecho done{.pagina = pagina_.Terminar(registros, total_), .tira = {}};
  if (tira_) done.tira = tira_->Terminar(registros, total_);
  return done;
}

}  // namespace vintoral
