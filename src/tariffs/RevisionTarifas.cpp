// Categories and their rules, line by line and as the function that prices stays meets them.
#include <optional>

#include "tariffs/Alcance.h"
#include "tariffs/Categoria.h"
#include "tariffs/Reglas.h"
#include "tariffs/Reparos.h"
#include "tariffs/Revision.h"
#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

/// The lines between two blank ones, of the text and of the table that it gives.
struct Block {
  const std::vector<String>& lineas;
  const std::vector<String>& tabla;
  std::size_t begin, end;
};

bool IsHead(const Block& block, std::size_t at) {
  return EsCategoria(block.lineas[at]);
}

bool IsRepeated(const Block& block, std::size_t head) {
  return LineaDeCategoria(block.tabla, block.tabla[head]) < head;
}

/// A head that the station finds; it never comes to one that repeats a name.
bool IsLive(const Block& block, std::size_t at) {
  return IsHead(block, at) && !IsRepeated(block, at);
}

bool HasHeadAbove(const Block& block, std::size_t at) {
  while (at-- > block.begin)
    if (IsHead(block, at)) return true;
  return false;
}

std::optional<std::size_t> LiveHeadAbove(const Block& block, std::size_t at) {
  while (at-- > block.begin)
    if (IsLive(block, at)) return at;
  return std::nullopt;
}

/// Some line of the block below `at` is a rule, of the hours alone if asked so.
bool RuleBelow(const Block& block, std::size_t at, bool ofHours) {
  for (++at; at < block.end; ++at)
    if (EsRegla(block.tabla[at]) && (!ofHours || TieneHoras(block.tabla[at]))) return true;
  return false;
}

/// Two names with no blank line between them share the rules below.
String ReviewSecondHead(const Block& block, std::size_t at, std::size_t above) {
  if (RuleBelow(block, at, false))
    return "Sus reglas valen también para "_w + block.tabla[above] + ": falta una línea en blanco encima."_w;
  const char first = block.tabla[at][0];
  return first >= '0' && first <= '9' ? "Sin el signo = es una categoría, no una regla."_w : String();
}

String ReviewHead(const Block& block, std::size_t at) {
  const std::string_view typed = TrimBlanks(block.lineas[at]);
  // Pasted text brings tabs and hard blanks.
  if (typed.find_first_not_of(" \t\xA0") == std::string_view::npos)
    return "Parece en blanco pero es una categoría: lleva un tabulador."_w;
  if (IsRepeated(block, at)) return "Categoría repetida: solo cuenta la primera."_w;
  if (typed.size() > kAnchoTarifa) return "El nombre se corta en 20 caracteres."_w;
  const std::optional<std::size_t> above = LiveHeadAbove(block, at);
  return above ? ReviewSecondHead(block, at, *above) : String();
}

/// Stays of less than an hour find no price in the mark itself: it must make a whole hour of them, and only
/// rules below it charge that hour.
bool ChargesNoHour(const Block& block, std::size_t at) {
  if (!MarcaPrimeraHora(LeerRegla(block.tabla[at]))) return false;
  if (!RuleBelow(block, at, true)) return true;
  return !ValorEsCeroDosEstrellas(block.tabla[at]) && !TieneHoras(block.tabla[at + 1]);
}

String ReviewRule(const Block& block, std::size_t at) {
  if (!HasHeadAbove(block, at)) return "Nunca se aplica: falta el nombre de la categoría encima."_w;
  String reparo = ReparoDeRegla(block.lineas[at]);
  if (!reparo.Empty()) return reparo;
  if (ChargesNoHour(block, at)) return "No cobra la primera hora: ponga debajo las reglas de horas."_w;
  return {};
}

/// The first live head from `at` on; the end of the block when there is none.
std::size_t LiveHeadFrom(const Block& block, std::size_t at) {
  while (at < block.end && !IsLive(block, at))
    ++at;
  return at;
}

/// Marks the rules that price no stay, where nothing else is said of them. Those below a second head wait
/// until the blank line above it is there: until then they belong to both.
void ReviewReach(const Block& block, std::vector<String>& reparos) {
  const std::size_t head = LiveHeadFrom(block, block.begin);
  if (head == block.end || !RuleBelow(block, head, false)) return;
  const std::vector<bool> reached = LineasAlcanzadas(LineasDeCategoria(block.tabla, head));
  const std::size_t second = LiveHeadFrom(block, head + 1);
  for (std::size_t at = head + 1; at < second; ++at) {
    const bool rule = EsRegla(block.tabla[at]) && !MarcaPrimeraHora(LeerRegla(block.tabla[at]));
    if (rule && !reached[at - head] && reparos[at].Empty())
      reparos[at] = "Ninguna estadía llega a esta regla."_w;
  }
}

void ReviewBlock(const Block& block, std::vector<String>& reparos) {
  for (std::size_t at = block.begin; at < block.end; ++at)
    reparos[at] = IsHead(block, at) ? ReviewHead(block, at) : ReviewRule(block, at);
  ReviewReach(block, reparos);
}

}  // namespace

std::vector<String> RevisarTarifas(const std::vector<String>& lineas) {
  const std::vector<String> tabla = TablaEditada(lineas);
  std::vector<String> reparos(lineas.size());
  for (std::size_t at = 0; at < tabla.size(); ++at) {
    const std::size_t begin = at;
    while (at < tabla.size() && !TerminaCategoria(tabla[at]))
      ++at;
    ReviewBlock({lineas, tabla, begin, at}, reparos);
  }
  return reparos;
}

}  // namespace vintoral
