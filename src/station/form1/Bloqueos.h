// The functions that can be locked, by their position in FuncionesBloqueadas.
#pragma once

#include <string_view>

namespace vintoral::bloqueo {

enum Posicion : int {
  kTarifas = 1,
  kHistorial,
  kRegistroExtras,
  kDetalleExtras,
  kReiniciarExtras,
  kImprimir,
  kBuscar,
  kTiquetes,
  kFacturas,
  kExtras,
  kFondo,
  kEtiquetas,
  kRostros,
  kCodigoBarras,
  kNuevos,
  kPuntos,
  kReiniciarPuntos,
  kUltima = kReiniciarPuntos
};

inline constexpr char kAbierta = '0', kBloqueada = '1';

/// Is any function of this selection locked?
inline bool HayBloqueadas(std::string_view funciones) {
  return funciones.find(kBloqueada) != std::string_view::npos;
}

}  // namespace vintoral::bloqueo
