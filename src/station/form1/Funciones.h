// The codes of the log of functions, as RegistrarHoraTrabajo takes them, by what the station does.
#pragma once

#include <string_view>

namespace vintoral::funcion {

inline constexpr std::string_view kEnEjecucion = "0";
inline constexpr std::string_view kAbrirContrasena = "12";
inline constexpr std::string_view kDesactivarContrasena = "13";
inline constexpr std::string_view kBotonPanico = "17";
inline constexpr std::string_view kFormatoTiquete = "18";
inline constexpr std::string_view kFormatoFactura = "19";
inline constexpr std::string_view kReinicioExtras = "20";
inline constexpr std::string_view kComenzarTurno = "22";
inline constexpr std::string_view kTerminarTurno = "23";
inline constexpr std::string_view kCambiarHora = "24";
inline constexpr std::string_view kAbrirPrograma = "25";
inline constexpr std::string_view kCerrarPrograma = "26";

}  // namespace vintoral::funcion
