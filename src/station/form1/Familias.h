// Names for the members of the control families: PctBoton[boton::kGuardar].
#pragma once

#include <cstddef>

namespace vintoral {

/// The tool bar, PctBoton.
namespace boton {
enum Index : std::size_t {
  kCamara,
  kRetroceder,
  kAvanzar,
  kImprimir,
  kBuscar,
  kGuardar,
  kRetirar,
  kUltimosEnIngresar,
  kTiempoDePermanencia,
  kUltimosEnSalir,
  kTiquetes,
  kCancelar,
  kExtras,
  kMenu,
  kFacturas,
  kCount
};
}  // namespace boton

/// The signs of what is on, ImgIndicador.
namespace indicador {
enum Index : std::size_t {
  kBloqueo,
  kTurno,
  kMemoriaRostros,
  kFotosAdicionales,
  kCamaraDesactivada,
  kImprimirFactura,
  kCount
};
}  // namespace indicador

}  // namespace vintoral
