// Reports as a test looks at them: what was written, and the rows of a page.
#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <vector>

#include "records/RegistroFicha.h"
#include "reports/DatosInforme.h"
#include "reports/Escritor.h"

namespace vintoral::test {

/// Takes whatever is written.
inline Destino En(std::string& texto) {
  return [&texto](std::string_view pieza) {
    texto += pieza;
    return Outcome::Done();
  };
}

/// A disk that is full.
inline Destino Lleno() {
  return [](std::string_view) { return Outcome::Failed("write", "a report", ENOSPC); };
}

/// No photo is there.
inline std::optional<String> SinFotos(std::string_view, std::int64_t) {
  return std::nullopt;
}

/// Each line feed as CR LF: a file as it is written out in a test.
inline std::string ConCrLf(std::string_view lineas) {
  std::string text;
  for (const char character : lineas)
    text += character == '\n' ? "\r\n" : std::string(1, character);
  return text;
}

/// The text of each cell below the heads, the cells of a row with "|" between them.
inline std::vector<std::string> Filas(const std::string& pagina) {
  constexpr std::string_view kFila = " <tr height=22 style='height:16.5pt'>\r\n", kFinFila = " </tr>\r\n";
  constexpr std::string_view kCelda = "  <td class=", kFinCelda = "</td>\r\n";
  std::vector<std::string> rows;
  for (std::size_t at = pagina.find(kFila); at != std::string::npos; at = pagina.find(kFila, at)) {
    std::string row;
    for (at += kFila.size(); pagina.compare(at, kCelda.size(), kCelda) == 0;) {
      const std::size_t begin = pagina.find('>', at) + 1, end = pagina.find(kFinCelda, begin);
      row += pagina.substr(begin, end - begin) + "|";
      at = end + kFinCelda.size();
    }
    rows.push_back(pagina.compare(at, kFinFila.size(), kFinFila) == 0 ? row : "a row without its end");
  }
  return rows;
}

/// A ficha that went out at 16:35 after two hours and a half.
inline RegistroFicha FichaIda(std::string_view fecha = "20/11/2026") {
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.MarcaEntrada = "14:05  (" + std::string(fecha) + ")";
  ficha.MarcaSalida = "16:35  (" + std::string(fecha) + ")";
  ficha.NumeroFicha = "0042";
  ficha.Placa = "ABC123";
  ficha.Nombre = "JUAN";
  ficha.Apellido = "PEREZ";
  ficha.Telefono = "3001234567";
  ficha.Observacion = "CASCO";
  ficha.Categoria = "AUTOMOVIL";
  ficha.PorteriaEntrada = "01";
  ficha.PorteriaSalida = "02";
  ficha.Posicion = 7;
  ficha.ValorCobrado = Money::FromUnits(1500);
  return ficha;
}

/// One that came in then and is still inside.
inline RegistroFicha FichaAdentro(std::string_view fecha = "20/11/2026") {
  RegistroFicha ficha = FichaIda(fecha);
  ficha.MarcaSalida = "??";
  ficha.PorteriaSalida = "??";
  ficha.ValorCobrado = {};
  return ficha;
}

inline DatosInforme Datos() {
  DatosInforme datos;
  datos.cabeza = CabezaDeEstado("18:00  (21/11/2026)"_w, false);
  datos.porteria = "01"_w;
  datos.moneda = " $ "_w;
  datos.etiquetas = {"PLACA"_w, "NOMBRE"_w, "APELLIDO"_w, "TELEFONO"_w, "OBSERVACI"_w};
  datos.categorias = {"AUTOMOVIL"_w, "MOTOCICLETA"_w};
  datos.foto = SinFotos;
  return datos;
}

}  // namespace vintoral::test
