// Any records, looked through with any criteria: what is found is found again by the plain sense of the
// criteria, field by field.
#include <algorithm>
#include <vector>

#include "common/Moment.h"
#include "reports/Busqueda.h"

namespace vintoral {
namespace {

/// Takes texts off the front of the data, each ended by a line feed.
class Lines {
 public:
  explicit Lines(std::string_view data) : rest_(data) {}
  String Next() {
    const std::size_t end = rest_.find('\n');
    String line(rest_.substr(0, end));
    rest_ = end == std::string_view::npos ? std::string_view() : rest_.substr(end + 1);
    return line;
  }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

Criterios Take(Lines& lines) {
  Criterios criteria{.desdeHora = lines.Next(),
                     .desdeFecha = lines.Next(),
                     .hastaHora = lines.Next(),
                     .hastaFecha = lines.Next(),
                     .ficha = lines.Next(),
                     .campos = {},
                     .categoria = {}};
  for (String& field : criteria.campos)
    field = lines.Next();
  criteria.categoria = lines.Next();
  return criteria;
}

bool Plainly(const Criterios& criteria, const RegistroFicha& record) {
  const auto at = [](const String& date, const String& time) {
    return ParseDateTime(Trim(date) + " "_w + Trim(time) + ":00"_w);
  };
  const auto from = at(criteria.desdeFecha, criteria.desdeHora),
             to = at(criteria.hastaFecha, criteria.hastaHora);
  const auto stamp = MomentOfStamp(record.MarcaSalida.View());
  if (!from || !to || !stamp) return false;
  constexpr std::int64_t kDay = 86'400'000;
  const auto day = [](Moment moment) { return moment.Milliseconds() / kDay; };
  const auto time = [](Moment moment) { return moment.Milliseconds() % kDay; };
  if (day(*stamp) < day(*from) || day(*stamp) > day(*to)) return false;
  if (time(*stamp) < time(*from) || time(*stamp) > time(*to)) return false;
  String number = Trim(criteria.ficha);
  while (number.Size() < 4)
    number = "0"_w + number;
  if (!criteria.ficha.Empty() && !EqualNoCase(number, TrimBlanks(record.NumeroFicha.View()))) return false;
  const std::array fields = {record.Placa.View(), record.Nombre.View(), record.Apellido.View(),
                             record.Telefono.View(), record.Observacion.View()};
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!ContainsNoCase(TrimBlanks(fields[i]), TrimBlanks(criteria.campos[i]))) return false;
  }
  const std::string_view category = TrimBlanks(criteria.categoria);
  return category.empty() || EqualNoCase(category, TrimBlanks(record.Categoria.View()));
}

}  // namespace
}  // namespace vintoral

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace vintoral;
  Lines lines({reinterpret_cast<const char*>(data), size});
  const Criterios criteria = Take(lines);
  PruebaRegistro test(criteria);
  for (std::string_view rest = lines.Rest(); !rest.empty();
       rest.remove_prefix(std::min<std::size_t>(rest.size(), 188))) {
    std::array<char, RegistroFicha::kSize> bytes;
    bytes.fill(' ');
    rest.copy(bytes.data(), bytes.size());
    const auto date = test.Fecha(bytes, SelloBuscado::kSalida);
    const bool found = date && test.Cumple(bytes, SelloBuscado::kSalida, *date);
    if (found != Plainly(criteria, RegistroFicha::Decode(bytes))) __builtin_trap();
  }
  return 0;
}
