// Categories and their rules, line by line and as the function that prices stays meets them.
#include <algorithm>
#include <optional>

#include "tariffs/Categoria.h"
#include "tariffs/Reglas.h"
#include "tariffs/Reparos.h"
#include "tariffs/Revision.h"
#include "tariffs/Tablas.h"
#include "tariffs/Valor.h"

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

std::optional<std::size_t> HeadAbove(const Block& block, std::size_t at) {
  while (at-- > block.begin)
    if (IsHead(block, at)) return at;
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
  const std::optional<std::size_t> above = HeadAbove(block, at);
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
  if (!HeadAbove(block, at)) return "Nunca se aplica: falta el nombre de la categoría encima."_w;
  String reparo = ReparoDeRegla(block.lineas[at]);
  if (!reparo.Empty()) return reparo;
  if (ChargesNoHour(block, at)) return "No cobra la primera hora: ponga debajo las reglas de horas."_w;
  return {};
}

/// A price changes its line only at these stays: each minute, each hour, and either side of each key of days.
std::vector<Estadia> TellingStays(const std::vector<String>& category) {
  std::vector<Estadia> stays;
  for (std::int32_t minute = 0; minute < 60; ++minute) {
    stays.push_back({0, 0, minute});
    stays.push_back({0, 1, minute});
  }
  for (std::int32_t hour = 2; hour < 24; ++hour)
    stays.push_back({0, hour, 0});
  for (const String& linea : category) {
    const auto key = static_cast<std::int32_t>(LeerRegla(linea).clave);
    stays.push_back({key, 0, 0});
    stays.push_back({key + 1, 0, 0});
  }
  return stays;
}

/// Adds the lines that price some stay of the category at `head`.
void AddReached(const Block& block, std::size_t head, std::vector<bool>& reached) {
  const std::vector<String> own = LineasDeCategoria(block.tabla, head);
  for (const Estadia& stay : TellingStays(own)) {
    const Valor valor = CalcularValorDe(own, own.front(), stay);
    for (const auto& linea : {valor.lineaMinutos, valor.lineaHoras, valor.lineaDias})
      if (linea) reached[head + *linea] = true;
  }
}

/// Marks the rules of the block that price no stay, where nothing else is said of them.
void ReviewReach(const Block& block, std::vector<String>& reparos) {
  std::vector<bool> reached(block.tabla.size());
  std::size_t first = block.end;
  for (std::size_t head = block.end; head-- > block.begin;) {
    if (!IsHead(block, head) || IsRepeated(block, head)) continue;
    AddReached(block, head, reached);
    first = head;
  }
  for (std::size_t at = first; at < block.end; ++at) {
    const bool rule = EsRegla(block.tabla[at]) && !MarcaPrimeraHora(LeerRegla(block.tabla[at]));
    if (rule && !reached[at] && reparos[at].Empty()) reparos[at] = "Ninguna estadía llega a esta regla."_w;
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
