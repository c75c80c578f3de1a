// Any bytes as a ticket format: what was read and written reads the same again, and a ticket printed by it,
// whose texts are these bytes too, stays on its paper. Formats are compared as bytes: a size that is no
// number equals nothing.
#include <algorithm>

#include "records/RegistroTiquete.h"
#include "reports/Tiquete.h"
#include "station/form1/Papel.h"

namespace {

using namespace vintoral;

DatosTiquete TicketOf(const RegistroTiquete& format, std::string_view text) {
  DatosTiquete datos;
  datos.formato = format;
  datos.ficha = datos.categoria = datos.marca = String(text);
  for (CampoImpreso& campo : datos.campos)
    campo = {text.size() % 2 == 0, String(text), String(text)};
  datos.foto = Picture(Left(text, 8));
  if (text.size() % 3 != 0) datos.codigo = String(text);
  datos.validez = {Left(text, text.size() % 20), static_cast<int>(text.size() % 4) - 1, Moment()};
  datos.direccion = String(text);
  return datos;
}

bool StandsOnItsPaper(const PrintDocument& ticket) {
  const std::vector<PrintOperation>& operations = ticket.Operations();
  Twips y = 0;
  for (const PrintOperation& operation : operations) {
    const bool font = operation.kind == PrintOperation::Kind::kAddFont ||
                      operation.kind == PrintOperation::Kind::kRemoveFont;
    if (font) continue;
    if (operation.x < 0 || operation.x >= ticket.Width() || operation.y < y) return false;
    y = operation.y;
  }
  PrintDocument rule;
  rule.FontSize = operations.front().fontSize;
  return y < ticket.Height() && ticket.Width() >= rule.TextWidth(ReglaGuiones());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using R = RegistroTiquete;
  std::array<char, R::kSize> bytes{};
  std::copy_n(data, std::min(size, bytes.size()), bytes.begin());
  const R record = R::Decode(bytes);
  const auto written = record.Encode();
  if (R::Decode(written).Encode() != written) __builtin_trap();
  const PrintDocument ticket = TiqueteImpreso(TicketOf(record, {reinterpret_cast<const char*>(data), size}));
  if (!StandsOnItsPaper(ticket)) __builtin_trap();
  return 0;
}
