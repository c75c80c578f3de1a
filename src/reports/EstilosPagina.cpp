#include "reports/EstilosPagina.h"

#include <array>
#include <string>
#include <string_view>

namespace vintoral {
namespace {

struct Letra {
  std::string_view color, tamano, grosor, decoracion, familia;
};

/// Text, and the name of the photo, which is a link.
constexpr Letra kTexto = {"windowtext", "12.0pt", "700", "text-decoration:none",
                          "\"Courier New\", monospace"};
constexpr Letra kEnlace = {"blue", "10.0pt", "400",
                           "text-decoration:underline;\r\n\ttext-underline-style:single",
                           "Arial;\r\n\tmso-generic-font-family:auto"};

/// Which sides of a cell have a line.
struct Bordes {
  bool arriba, derecha, abajo, izquierda;
};
constexpr Bordes kNinguno = {false, false, false, false};
constexpr Bordes kLados = {false, true, false, true};
constexpr Bordes kDerecha = {false, true, false, false};
constexpr Bordes kIzquierda = {false, false, false, true};
constexpr Bordes kSinDerecha = {true, false, true, true};
constexpr Bordes kSinIzquierda = {true, true, true, false};
constexpr Bordes kTodos = {true, true, true, true};

struct Clase {
  std::string_view nombre, alineacion;
  Bordes bordes;
  bool cabeza;  ///< centred vertically, on the colour of the heads
  bool enlace;
};

constexpr std::array<Clase, 10> kClases = {{
    {"xl2425893", "general", kNinguno, false, false},
    {"xl2525893", "center", kLados, false, false},
    {"xl2525894", "right", kLados, false, false},
    {"xl2625893", "center", kLados, false, true},
    {"xl2725893", "left", kDerecha, false, false},
    {"xl2825893", "center", kIzquierda, false, false},
    {"xl2925893", "center", kSinDerecha, true, false},
    {"xl3025893", "left", kSinIzquierda, true, false},
    {"xl3125893", "center", kTodos, true, false},
    {"xl3125894", "right", kTodos, true, false},
}};

void Poner(std::string& text, std::string_view property, std::string_view value) {
  text.append("\t").append(property).append(":").append(value).append(";\r\n");
}

void PonerLetra(std::string& text, const Letra& letra) {
  Poner(text, "color", letra.color);
  Poner(text, "font-size", letra.tamano);
  Poner(text, "font-weight", letra.grosor);
  Poner(text, "font-style", "normal");
  text.append("\t").append(letra.decoracion).append(";\r\n");
  Poner(text, "font-family", letra.familia);
  Poner(text, "mso-font-charset", "0");
  Poner(text, "mso-number-format", "General");
}

void PonerBordes(std::string& text, const Bordes& bordes) {
  const auto side = [](bool line) { return line ? "1.0pt solid windowtext" : "none"; };
  const bool none = !bordes.arriba && !bordes.derecha && !bordes.abajo && !bordes.izquierda;
  if (none) return;
  Poner(text, "border-top", side(bordes.arriba));
  Poner(text, "border-right", side(bordes.derecha));
  Poner(text, "border-bottom", side(bordes.abajo));
  Poner(text, "border-left", side(bordes.izquierda));
}

void PonerFondo(std::string& text, bool cabeza) {
  Poner(text, cabeza ? "background" : "mso-background-source", cabeza ? "#FFCC99" : "auto");
  Poner(text, "mso-pattern", cabeza ? "auto none" : "auto");
}

void PonerClase(std::string& text, const Clase& clase) {
  text.append(".").append(clase.nombre).append("\r\n\t{padding-top:1px;\r\n");
  Poner(text, "padding-right", "1px");
  Poner(text, "padding-left", "1px");
  Poner(text, "mso-ignore", "padding");
  PonerLetra(text, clase.enlace ? kEnlace : kTexto);
  Poner(text, "text-align", clase.alineacion);
  Poner(text, "vertical-align", clase.cabeza ? "middle" : "bottom");
  PonerBordes(text, clase.bordes);
  PonerFondo(text, clase.cabeza);
  text.append("\twhite-space:nowrap;}\r\n");
}

}  // namespace

String EstilosPagina() {
  std::string text;
  for (const Clase& clase : kClases)
    PonerClase(text, clase);
  return String(std::move(text));
}

}  // namespace vintoral
