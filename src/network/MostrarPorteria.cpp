#include "station/form1/Form1.h"

namespace vintoral {

void Form1::MostrarPorteria() {
  constexpr std::int32_t kFirstOfMain = 1, kFirstOfConnected = 501;
  PrimerNumero = EsCliente != 0 ? kFirstOfConnected : kFirstOfMain;
  LblInfo[2].Caption = "P"_w + NumeroPorteria;
  const bool monitor = CboMinutos.TagNumber() != 0;
  if (!monitor) CboMinutos.SetText(String(11, ' ') + LblInfo[2].Caption + " MONITOR"_w);
}

}  // namespace vintoral
