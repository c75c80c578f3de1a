// Answers questions about tariffs on standard output, one line each, in the form that tariff_reference.py
// tells; so that another reading of the tariff language can be held against this one.
#include <iostream>
#include <sstream>

#include "common/Numbers.h"
#include "tariffs/Estadia.h"
#include "tariffs/Tablas.h"
#include "tariffs/TextoTabla.h"
#include "tariffs/Valor.h"

namespace vintoral {
namespace {

String FromHex(const std::string& word) {
  std::string bytes;
  for (std::size_t at = 0; at + 1 < word.size(); at += 2)
    bytes += static_cast<char>(std::stoi(word.substr(at, 2), nullptr, 16));
  return String(std::move(bytes));
}

std::string ToHex(const String& text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string word;
  for (const char byte : text.Bytes()) {
    word += kDigits[static_cast<unsigned char>(byte) >> 4];
    word += kDigits[static_cast<unsigned char>(byte) & 15];
  }
  return word.empty() ? "-" : word;
}

void AnswerTable(const std::string& file, std::vector<String>& tabla) {
  tabla.clear();
  for (const String& record : DecodificarLineas(FromHex(file))) {
    tabla.push_back(LineaTarifa(record));
    std::cout << (tabla.size() == 1 ? "" : " ") << ToHex(tabla.back()) << ':' << EsCategoria(record);
  }
  std::cout << (tabla.empty() ? "-" : "");
}

void AnswerPrice(std::istream& question, const std::vector<String>& tabla) {
  Estadia estadia;
  std::string categoria;
  question >> estadia.dias >> estadia.horas >> estadia.minutos >> categoria;
  const Valor valor = CalcularValorDe(tabla, FromHex(categoria), estadia);
  std::cout << valor.encontrada << ' ' << valor.conPrecio << ' ' << valor.valor.Raw() << ' '
            << valor.contada.dias << ' ' << valor.contada.horas << ' ' << valor.contada.minutos << ' '
            << valor.reglasMinutos << ' ' << valor.reglasHoras << ' ' << valor.reglasDias;
}

void AnswerStay(std::istream& question) {
  std::string entrada, salida;
  question >> entrada >> salida;
  const std::optional<Estadia> estadia = EstadiaEntre(FromHex(entrada), FromHex(salida));
  if (!estadia) {
    std::cout << "??";
    return;
  }
  std::cout << ToHex(TextoEstadia(*estadia)) << ' ' << estadia->dias << ' ' << estadia->horas << ' '
            << estadia->minutos << ' ' << PuntosDe(*estadia);
}

void AnswerEdit(const std::string& text) {
  const std::vector<String> lines = LineasDeTexto(FromHex(text));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::cout << (i == 0 ? "" : " ") << ToHex(LineaExtraEditada(lines[i])) << ':'
              << ToHex(LineaPrepagoEditada(lines[i]));
  }
  std::cout << (lines.empty() ? "-" : "");
}

void AnswerAll() {
  std::vector<String> tabla;
  for (std::string line; std::getline(std::cin, line); std::cout << '\n') {
    std::istringstream question(line);
    std::string kind, text;
    question >> kind;
    if (kind == "T" && question >> text) AnswerTable(text, tabla);
    if (kind == "V") AnswerPrice(question, tabla);
    if (kind == "E") AnswerStay(question);
    if (kind == "I") std::cout << ToHex(TextoDeTabla(tabla));
    if (kind == "P" && question >> text) AnswerEdit(text);
    if (kind == "X" && question >> text) std::cout << ToHex(LineaExtra(FromHex(text)));
  }
}

}  // namespace
}  // namespace vintoral

int main() {
  vintoral::AnswerAll();
}
