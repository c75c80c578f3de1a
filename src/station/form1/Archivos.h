// The files of a station's own folder, by what they hold. Those of the shared folder are asked for with
// RutaCompartida.
#pragma once

#include <string_view>

namespace vintoral::archivo {

inline constexpr std::string_view kTarifas = "Recursos\\Vintoral.EMP";
inline constexpr std::string_view kExtras = "Recursos\\Vintoral.XTR";
inline constexpr std::string_view kPrepago = "Recursos\\Vintoral.RJE";
inline constexpr std::string_view kMoneda = "Recursos\\Vintoral.DVS";
inline constexpr std::string_view kEstado = "Recursos\\Vintoral.DAT";
inline constexpr std::string_view kTiquete = "Recursos\\Vintoral.TQE";
inline constexpr std::string_view kFactura = "Recursos\\Vintoral.FTA";
/// The invoice log, newest first.
inline constexpr std::string_view kFacturas = "Recursos\\Vintoral.HFC";
/// The extras sold, newest first, and behind them the lock of functions.
inline constexpr std::string_view kVentas = "Recursos\\Vintoral.EXT";
/// What the list may lack after a power cut.
inline constexpr std::string_view kDiarioVentas = "Recursos\\Vintoral.EXT.diario";
/// The page of the report that was made last.
inline constexpr std::string_view kPagina = "Recursos\\Vintoral.HTML";
/// The log of functions; and the text of the report that was made last.
inline constexpr std::string_view kFunciones = "Recursos\\Vintoral.FDR";
inline constexpr std::string_view kHorario = "Recursos\\Vintoral.RGT";
/// Lets a second instance start, for the one restart that registers the capture library.
inline constexpr std::string_view kReinicio = "Recursos\\Vintoral.RLD";
inline constexpr std::string_view kServidor = "Objetos\\Servidor.INI";
inline constexpr std::string_view kWeb = "Objetos\\Web.INI";
/// The relay by which alerts go out.
inline constexpr std::string_view kCorreo = "Objetos\\Correo.INI";
inline constexpr std::string_view kAppCamera = "Objetos\\AppCamera.INI";
/// The place in the list of the camera that the gate uses.
inline constexpr std::string_view kCamara = "Recursos\\Vintoral.WCM";
inline constexpr std::string_view kFuente = "Fuentes\\Vintoral.ttf";
inline constexpr std::string_view kAyuda =
    "Vintoral L\xE9"
    "ame.TXT";
/// The folder of the wallpapers.
inline constexpr std::string_view kFondos = "Fondos";

}  // namespace vintoral::archivo
