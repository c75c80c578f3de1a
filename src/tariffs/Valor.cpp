#include "tariffs/Valor.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory_resource>

#include "tariffs/Categoria.h"
#include "tariffs/Reglas.h"

namespace vintoral {
namespace {

/// Hundred-millionths. The largest value times the largest count of days stays far inside.
__extension__ using Amount = __int128;

struct Rule : ReglaTarifa {
  std::size_t linea = 0;
};
using Rules = std::pmr::vector<Rule>;

/// What days, hours or minutes cost, and the line that said so.
struct Part {
  Amount amount = 0;
  std::optional<std::size_t> linea;
};

struct WorkingLists {
  explicit WorkingLists(std::pmr::memory_resource* memory) : minutos(memory), horas(memory), dias(memory) {}
  Rules minutos, horas, dias;
};

/// The mark speaks of the first hour only, but after whole days too: hours 0 is all it asks for.
bool IsFirstHour(const Estadia& estadia) {
  return estadia.minutos > 0 && estadia.horas == 0;
}

/// Takes in the rule of line `at`. A first-hour mark with a line below it is never a minute rule itself; it
/// may raise the stay to one whole hour, which the classes that are tested after it already see.
void SortLine(const std::vector<String>& tabla, std::size_t at, Estadia& estadia, WorkingLists& lists) {
  const std::string_view linea = TrimBlanks(tabla[at]);
  const Rule regla{LeerRegla(linea), at};
  if (regla.minutos) {
    const bool hasNext = at + 1 < tabla.size();
    if (!hasNext || !MarcaPrimeraHora(regla) || !IsFirstHour(estadia)) {
      lists.minutos.push_back(regla);
    } else if (ValorEsCeroDosEstrellas(linea) || TieneHoras(tabla[at + 1])) {
      estadia.minutos = 0;
      estadia.horas = 1;
    }
  }
  if (regla.horas && estadia.horas >= 1) lists.horas.push_back(regla);
  if (regla.dias && estadia.dias >= 1) lists.dias.push_back(regla);
}

void Sort(const std::vector<String>& tabla, std::size_t head, Estadia& estadia, WorkingLists& lists) {
  for (std::size_t at = head; at < tabla.size(); ++at) {
    const std::string_view linea = TrimBlanks(tabla[at]);
    if (TerminaCategoria(linea)) return;
    if (EsRegla(linea)) SortLine(tabla, at, estadia, lists);
  }
}

/// A list that runs out keeps its last value, once.
Part LastOf(const Rules& rules) {
  return rules.empty() ? Part{} : Part{rules.back().valor, rules.back().linea};
}

/// Minutes and days: charged by the unit, or by steps.
Part PartBySteps(const Rules& rules, std::int32_t units) {
  for (const Rule& regla : rules) {
    const bool byUnit = regla.clave == 1 && regla.estrella && regla.valor > 0;
    if (byUnit || regla.clave >= units)
      return {regla.estrella ? Amount{regla.valor} * units : regla.valor, regla.linea};
  }
  return LastOf(rules);
}

/// Hours: two stars mean a flat price instead, with no minutes charged on top.
Part HourPart(const Rules& rules, std::int32_t hours, Amount& minutePart) {
  for (const Rule& regla : rules) {
    const bool byUnit = regla.clave == 1 && regla.estrella && !regla.dosEstrellas && regla.valor > 0;
    if (!byUnit && regla.clave < hours) continue;
    if (regla.dosEstrellas) {
      minutePart = 0;
      return {regla.valor, regla.linea};
    }
    return {regla.estrella ? Amount{regla.valor} * hours : regla.valor, regla.linea};
  }
  return LastOf(rules);
}

/// Four decimals first, halves to the even one, as the registers hold money; then the two that are shown.
Money InCents(Amount amount) {
  constexpr std::int64_t kStep = kEscalaValor / Money::kScale;
  Amount raw = amount / kStep;
  const auto rest = static_cast<std::int64_t>(amount % kStep);
  const std::int64_t twice = 2 * (rest < 0 ? -rest : rest);
  if (twice > kStep || (twice == kStep && raw % 2 != 0)) raw += rest < 0 ? -1 : 1;
  raw = std::clamp<Amount>(raw, std::numeric_limits<std::int64_t>::min(),
                           std::numeric_limits<std::int64_t>::max());
  return Money::FromRaw(static_cast<std::int64_t>(raw)).RoundedToCents();
}

}  // namespace

Valor CalcularValorDe(const std::vector<String>& tabla, std::string_view categoria, Estadia estadia) {
  const std::size_t head = LineaDeCategoria(tabla, categoria);
  if (head == tabla.size()) return {.valor = {}, .contada = estadia};
  // Room for the rules of any ordinary category without asking the heap; a longer one asks it.
  std::array<std::byte, 4096> room;
  std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
  WorkingLists lists(&memory);
  Sort(tabla, head, estadia, lists);
  Part minutes = PartBySteps(lists.minutos, estadia.minutos);
  const Part hours = HourPart(lists.horas, estadia.horas, minutes.amount);
  const Part days = PartBySteps(lists.dias, estadia.dias);
  return {.encontrada = true,
          .conPrecio = !lists.minutos.empty() || !lists.horas.empty() || !lists.dias.empty(),
          .valor = InCents(days.amount + hours.amount + minutes.amount),
          .contada = estadia,
          .reglasMinutos = lists.minutos.size(),
          .reglasHoras = lists.horas.size(),
          .reglasDias = lists.dias.size(),
          .lineaMinutos = minutes.linea,
          .lineaHoras = hours.linea,
          .lineaDias = days.linea};
}

}  // namespace vintoral
