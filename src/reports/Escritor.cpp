#include "reports/Escritor.h"

#include <algorithm>
#include <array>

#include "station/form1/Papel.h"

namespace vintoral {
namespace {

/// What HTML takes for its own, and what is written in its place.
struct Entidad {
  char caracter;
  std::string_view texto;
};
constexpr std::array<Entidad, 4> kEntidades = {
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}}};

constexpr std::size_t Indice(char character) {
  return static_cast<unsigned char>(character);
}

/// By the character: nothing of one that stands for itself, as nearly all do.
constexpr std::array<std::string_view, 256> kPorCaracter = [] {
  std::array<std::string_view, 256> texts{};
  for (const Entidad& entity : kEntidades)
    texts[Indice(entity.caracter)] = entity.texto;
  return texts;
}();

}  // namespace

void Escritor::Linea(std::string_view texto) {
  Escribir(texto);
  Escribir(kFinDeLinea);
}

void Escritor::EscribirVisible(std::string_view texto) {
  for (; !texto.empty(); texto.remove_prefix(std::min(texto.size(), kTramo)))
    EscribirTramo(texto.substr(0, kTramo));
}

void Escritor::EscribirTramo(std::string_view texto) {
  constexpr std::size_t kLongest = 6;
  if (kPieza - usado_ < texto.size() * kLongest) Entregar();
  char* at = pieza_.get() + usado_;
  for (const char character : texto) {
    const std::string_view entity = kPorCaracter[Indice(character)];
    *at = character;
    at = entity.empty() ? at + 1 : std::copy(entity.begin(), entity.end(), at);
  }
  usado_ = static_cast<std::size_t>(at - pieza_.get());
}

void Escritor::EscribirLargo(std::string_view texto) {
  while (!texto.empty()) {
    if (usado_ == kPieza) Entregar();
    const std::size_t count = texto.copy(pieza_.get() + usado_, kPieza - usado_);
    usado_ += count;
    texto.remove_prefix(count);
  }
}

void Escritor::Entregar() {
  if (hecho_ && usado_ > 0) hecho_ = destino_({pieza_.get(), usado_});
  usado_ = 0;
}

Outcome Escritor::Terminar() {
  Entregar();
  return hecho_;
}

}  // namespace vintoral
