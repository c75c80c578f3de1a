#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::MostrarPorteria() {
  constexpr std::int32_t kFirstOfMain = 1, kFirstOfConnected = 501;
  PrimerNumero = EsCliente != 0 ? kFirstOfConnected : kFirstOfMain;
  LblInfo[2].Caption = "P"_w + NumeroPorteria;
  const bool monitor = CboMinutos.TagNumber() != 0;
  if (!monitor) CboMinutos.SetText(TextoSinMonitor(*this));
}

}  // namespace vintoral
