// What a slip says, gathered before it is printed: from here on neither the screen nor the clock can change
// it.
#pragma once

#include <array>
#include <optional>

#include "common/Moment.h"
#include "common/Money.h"
#include "common/String.h"
#include "platform/Picture.h"
#include "records/RegistroFactura.h"
#include "records/RegistroTiquete.h"

namespace vintoral {

/// One of the fields 1 to 5.
struct CampoImpreso {
  bool imprimir = false;
  String etiqueta, valor;
};

/// How long a ticket is good for.
struct Validez {
  String numero;   ///< as it stands in its box
  int unidad = 0;  ///< kEntradas, kDias; any other says nothing
  Moment hoy;      ///< the first day
  static constexpr int kEntradas = 0, kDias = 1;
};

struct DatosTiquete {
  RegistroTiquete formato;
  String ficha;     ///< the number as shown
  String porteria;  ///< "01"
  String marca;     ///< the entry stamp
  std::array<CampoImpreso, 5> campos;
  String categoria;
  Picture foto;                  ///< may be nothing
  std::optional<String> codigo;  ///< of the bar code; nothing in ficha mode
  Validez validez;
  String direccion;  ///< the product's web address
};

/// The cash line of the screen.
struct Efectivo {
  String entregado;  ///< as typed
  String cambio;     ///< as shown
};

struct DatosFactura {
  RegistroFactura formato;  ///< with the number of this invoice
  String porteria;          ///< "01"
  String moneda;
  Money valor;
  String detalle;  ///< of a stay with kMarca ahead of its closing lines, of a sale without
  float porcentaje = 0;
  std::optional<Efectivo> efectivo;
  Moment ahora;
  String direccion;  ///< the product's web address
};

}  // namespace vintoral
