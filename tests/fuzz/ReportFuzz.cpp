// Any records in every report: the pages keep their shape, whatever is in the fields, and sums never run
// over.
#include <algorithm>
#include <vector>

#include "fuzz/Pages.h"
#include "records/RegistroExtra.h"
#include "reports/HojaFicha.h"
#include "reports/InformeExtras.h"
#include "reports/InformeFichas.h"

namespace vintoral {
namespace {

using test::Count;
using test::Into;

template <class R>
std::vector<R> Records(std::string_view data) {
  std::vector<R> records;
  for (; !data.empty(); data.remove_prefix(std::min(data.size(), R::kSize))) {
    std::array<char, R::kSize> bytes{};
    data.copy(bytes.data(), bytes.size());
    records.push_back(R::Decode(bytes));
  }
  return records;
}

/// Whatever a field holds, no tag is begun by it: each opens and closes.
bool KeepsItsShape(const std::string& page) {
  return Count(page, "<td ") == Count(page, "</td>") && Count(page, "<tr ") == Count(page, "</tr>") &&
         Count(page, "<td ") % 14 == 0;
}

DatosInforme Report() {
  DatosInforme report;
  report.cabeza = CabezaDeBusqueda("18:00  (21/11/2026)"_w, "a"_w, "b"_w);
  report.porteria = "01"_w;
  report.moneda = "$"_w;
  report.categorias = {"AUTOMOVIL"_w};
  report.busqueda = true;
  report.tira = FormatoTira{{}, 10.5F, true};
  report.foto = test::EveryOther;
  return report;
}

}  // namespace
}  // namespace vintoral

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace vintoral;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::vector<RegistroFicha> records = Records<RegistroFicha>(bytes);
  std::string page, sheet, text;
  const DatosInforme report = Report();
  const InformeHecho done = InformeEstado(report, records, Into(page));
  if (!done.pagina || !done.tira || !KeepsItsShape(page)) __builtin_trap();
  const DatosHoja one{.porteria = "01"_w, .moneda = "$"_w, .etiquetas = {}, .foto = report.foto};
  for (const RegistroFicha& record : records) {
    sheet.clear();
    if (!EscribirHoja(one, record, Into(sheet)) || Count(sheet, "<BR>") != 13) __builtin_trap();
  }
  DatosExtras sales;
  sales.articulos = {{"LAVADO"_w, Money::FromUnits(500)}};
  sales.ventas = Records<RegistroExtra>(bytes);
  if (!EscribirValorExtra(sales, Into(text)) || !EscribirContadorExtra(sales, Into(text))) __builtin_trap();
  return 0;
}
