// What the station lets the operator hear, by what it means.
#pragma once

#include <string_view>

namespace vintoral {

namespace sonido {
inline constexpr std::string_view kConectando = "Sonidos\\Vintoral-1.wav";
inline constexpr std::string_view kFoto = "Sonidos\\Vintoral-2.wav";
inline constexpr std::string_view kHistorialReiniciado = "Sonidos\\Vintoral-3.wav";
inline constexpr std::string_view kHecho = "Sonidos\\Vintoral-4.wav";
inline constexpr std::string_view kClic = "Sonidos\\Vintoral-5.wav";
inline constexpr std::string_view kCelda = "Sonidos\\Vintoral-6.wav";
inline constexpr std::string_view kOlvidada = "Sonidos\\Vintoral-7.wav";
inline constexpr std::string_view kExtrasReiniciados = "Sonidos\\Vintoral-8.wav";
inline constexpr std::string_view kContador = "Sonidos\\Vintoral-9.wav";
inline constexpr std::string_view kGenerador = "Sonidos\\Vintoral-10.wav";
}  // namespace sonido

namespace voz {
inline constexpr std::string_view kMonitorActivado = "ABRiL\\ABRiL-1.wav";
inline constexpr std::string_view kMonitorDesactivado = "ABRiL\\ABRiL-2.wav";
inline constexpr std::string_view kTiquetesActivados = "ABRiL\\ABRiL-3.wav";
inline constexpr std::string_view kFacturasActivadas = "ABRiL\\ABRiL-4.wav";
inline constexpr std::string_view kRostrosDesactivados = "ABRiL\\ABRiL-5.wav";
inline constexpr std::string_view kRostrosActivados = "ABRiL\\ABRiL-6.wav";
inline constexpr std::string_view kBarrasActivadas = "ABRiL\\ABRiL-7.wav";
inline constexpr std::string_view kBarrasDesactivadas = "ABRiL\\ABRiL-8.wav";
inline constexpr std::string_view kAlertaActivada = "ABRiL\\ABRiL-10.wav";
inline constexpr std::string_view kTurnoIniciado = "ABRiL\\ABRiL-11.wav";
inline constexpr std::string_view kTurnoTerminado = "ABRiL\\ABRiL-12.wav";
inline constexpr std::string_view kBusquedaActivada = "ABRiL\\ABRiL-13.wav";
inline constexpr std::string_view kBusquedaDesactivada = "ABRiL\\ABRiL-14.wav";
}  // namespace voz

}  // namespace vintoral
