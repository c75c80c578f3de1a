// Any file as the history, the new users or the points: its report keeps the shape of a page, tells of the
// records that it should, and its total is their sum or says that it is none.
#include <algorithm>
#include <limits>
#include <vector>

#include "common/Moment.h"
#include "common/Numbers.h"
#include "fuzz/Pages.h"
#include "records/Monitores.h"
#include "reports/DocumentoID.h"
#include "reports/InformeFichas.h"
#include "reports/Renglones.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::Count;
using test::EveryOther;
using test::Into;

constexpr const char* kRegister = "file";

enum Choice : unsigned char { kShift = 1, kSlip = 2, kDetail = 4, kUsers = 8, kPoints = 16 };

/// A sum as paper and pencil have it: exact, and none once it has left the range of money.
class PlainSum {
 public:
  void Add(std::int64_t raw) { Move(raw); }
  void Add(const PlainSum& other) {
    none_ = none_ || other.none_;
    if (!none_) Move(other.sum_);
  }
  String Text() const {
    return none_ ? "¡ERROR!"_w : Money::FromRaw(static_cast<std::int64_t>(sum_)).Format();
  }

 private:
  void Move(__int128 by) {
    sum_ += by;
    none_ = none_ || sum_ > std::numeric_limits<std::int64_t>::max() ||
            sum_ < std::numeric_limits<std::int64_t>::min();
    if (none_) sum_ = 0;
  }
  __int128 sum_ = 0;
  bool none_ = false;
};

/// What the report has to tell of.
struct Plain {
  std::size_t rows = 0, days = 0;
  std::int64_t count = 0;
  PlainSum total;
};

Plain Plainly(const std::vector<RegistroFicha>& records, bool shift) {
  Plain plain;
  PlainSum day;
  for (std::size_t number = records.size(); number > 0; --number) {
    const RegistroFicha& record = records[number - 1];
    const bool first = number == records.size();
    const bool otherDay =
        !first && record.MarcaSalida.View().substr(8, 10) != records[number].MarcaSalida.View().substr(8, 10);
    const bool end = number == 1 || (shift && record.InicioTurno);
    if (otherDay || end) {
      plain.total.Add(day);
      day = {};
      ++plain.days;
    }
    if (end || (otherDay && !shift)) break;
    ++plain.count;
    if (!record.EnUso) continue;
    ++plain.rows;
    if (record.PorteriaSalida.View() != "??") day.Add(record.ValorCobrado.Raw());
  }
  return plain;
}

std::vector<RegistroFicha> Records(std::string_view data) {
  std::vector<RegistroFicha> records;
  for (; data.size() >= RegistroFicha::kSize; data.remove_prefix(RegistroFicha::kSize))
    records.push_back(RegistroFicha::Decode(
        std::span<const char, RegistroFicha::kSize>(data.data(), RegistroFicha::kSize)));
  return records;
}

/// Rows below the heads.
std::size_t Rows(const std::string& page) {
  return Count(page, "<tr height=22 ");
}

/// Nothing that a field holds begins a tag or an entity, and each row has all its cells.
void CheckShape(const std::string& page, std::size_t columns) {
  const std::size_t begin = page.find("<table x:str");
  if (begin == std::string::npos || !page.ends_with("</html>\r\n")) __builtin_trap();
  const std::string table = page.substr(begin);
  const std::size_t rows = Count(table, "<tr "), cells = Count(table, "<td "),
                    links = Count(table, "<a href=");
  if (Count(table, "</tr>") != rows || Count(table, "</td>") != cells || cells != rows * columns ||
      Count(table, "</a>") != links)
    __builtin_trap();
  constexpr std::string_view kAround =
      "<table x:str</table></div></body></html><![if supportMisalignedColumns]><![endif]>";
  const std::size_t others = static_cast<std::size_t>(std::count(kAround.begin(), kAround.end(), '<'));
  const std::size_t open = static_cast<std::size_t>(std::count(table.begin(), table.end(), '<'));
  if (open != 2 * (rows + cells + links) + columns + others) __builtin_trap();
  const std::size_t entities =
      Count(table, "&lt;") + Count(table, "&gt;") + Count(table, "&amp;") + Count(table, "&quot;");
  if (static_cast<std::size_t>(std::count(table.begin(), table.end(), '&')) != entities) __builtin_trap();
}

void CheckDocument(const Register<RegistroFicha>& file, unsigned char choice) {
  const DatosDocumento data{.documento = (choice & kPoints) != 0 ? Documento::kPuntos : Documento::kNuevos,
                            .porteria = "01"_w,
                            .ahora = "18:00  (21/11/2026)"_w,
                            .etiquetas = {},
                            .turnoActivo = (choice & kShift) != 0,
                            .limite = 10946,
                            .foto = EveryOther};
  std::string page;
  if (!EscribirDocumentoID(data, file, Into(page))) __builtin_trap();
  CheckShape(page, 9);
}

DatosInforme Report(unsigned char choice) {
  DatosInforme report;
  const bool shift = (choice & kShift) != 0;
  report.cabeza = shift ? CabezaDeTurno("06:00  (20/11/2026)"_w, "18:00  (21/11/2026)"_w)
                        : CabezaDeDia("18:00  (21/11/2026)"_w);
  report.porteria = "01"_w;
  report.moneda = "$"_w;
  report.categorias = {"AUTOMOVIL"_w, "MOTO"_w};
  if ((choice & kSlip) != 0) report.tira = FormatoTira{{}, 10.5F, (choice & kDetail) != 0};
  report.foto = EveryOther;
  return report;
}

void CheckHistory(const Register<RegistroFicha>& file, std::string_view bytes, unsigned char choice) {
  const bool shift = (choice & kShift) != 0;
  const DatosInforme report = Report(choice);
  std::string page;
  const InformeHecho done = InformeHistorial(report, file, shift, Into(page));
  if (!done.pagina || done.tira.has_value() != report.tira.has_value()) __builtin_trap();
  CheckShape(page, 14);
  const Plain plain = Plainly(Records(bytes), shift);
  const std::size_t below = shift ? 5 : 2;
  if (Rows(page) != plain.rows + 2 * plain.days + below) __builtin_trap();
  const std::string total = ">$ " + plain.total.Text().Bytes() + "</td>";
  if (page.rfind(total) == std::string::npos || page.rfind(total) < page.rfind(">TOTAL</td>"))
    __builtin_trap();
  if (page.find(">" + LineaRegistros(plain.count).Bytes() + "</td>") == std::string::npos) __builtin_trap();
}

}  // namespace
}  // namespace vintoral

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace vintoral;
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  test::MemoryDisk disk;
  disk.Put(kRegister, bytes);
  const Register<RegistroFicha> file(disk, kRegister, OpenMode::kRead);
  if ((data[0] & (kUsers | kPoints)) != 0) {
    CheckDocument(file, data[0]);
  } else {
    CheckHistory(file, bytes, data[0]);
  }
  return 0;
}
