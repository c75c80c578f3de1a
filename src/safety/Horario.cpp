#include "safety/Horario.h"

#include <array>

#include "common/Numbers.h"
#include "safety/Diario.h"

namespace vintoral {
namespace {

constexpr std::string_view kFinDeLinea = "\r\n";
constexpr std::string_view kTitulo = " Vintoral                             HORARIO P";
constexpr std::string_view kRaya = " ------------------------------------------------";
constexpr std::string_view kCabeza = " FECHA       FUNCION          H.INI  H.FIN TIEMPO";
constexpr std::size_t kAnchoNombre = 15, kAnchoFecha = 13;

/// By code.
constexpr std::array<std::string_view, 27> kNombres = {
    "EN_EJECUCION",    "MONITOR_F1",      "MONITOR_F2",      "MONITOR_F3",      "CONECTAR_WEBCAM",
    "IMPRIMIR_REGIST", "BUSQUEDA_REGIST", "GENERA_TIQUETES", "GENERA_FACTURAS", "SELECCIO_EXTRAS",
    "GENERAD_TARIFAS", "CONFIGUR_WEBCAM", "ACCESO_PASSWORD", "DESACT_PASSWORD", "MEMORIA_ROSTROS",
    "CODIGO_BARRAS",   "WEBCAM_TABLETS",  "BOTON_PANICO",    "FORMATO_TIQUETE", "FORMATO_FACTURA",
    "REINICIO_EXTRAS", "REINICIO_HISTOR", "COMENZAR_TURNO",  "TERMINAR_TURNO",  "CAMBIAR_HORA",
    "ABRIR_PROGRAMA",  "CERRAR_PROGRAMA"};

String Filled(String text, std::size_t width) {
  if (text.Size() < width) text += String(width - text.Size(), ' ');
  return text;
}

/// What stands between the head and the last rule. A record whose code nobody knows keeps the name of the one
/// before it, so this remembers it.
class Renglones {
 public:
  explicit Renglones(std::string_view porteria) : digito_(porteria.empty() ? '\0' : porteria.back()) {}

  /// False where the log ends for this station.
  bool Agregar(const RegistroFuncion& registro) {
    const String number = registro.CodigoFuncion.Plain();
    // One digit alone is compared: station "10" has no record of its own.
    if (number.Empty() || number[0] != digito_ || registro.HoraFin == RegistroFuncion::kSinFin) return false;
    Nombrar(Mid(number, 2, number.Size()));
    const String date = Left(registro.FechaHora, RegistroFuncion::kLargoFecha);
    const bool sameDay = !primero_ && EqualNoCase(date, fecha_);
    texto_ += (sameDay ? String(kAnchoFecha, ' ') : " "_w + date + "  "_w) + Filled(nombre_, kAnchoNombre) +
              Mid(registro.FechaHora, RegistroFuncion::kTrasFecha, registro.FechaHora.Size());
    if (!sameDay) texto_ += Fin(registro);
    texto_ += String(kFinDeLinea);
    fecha_ = date;
    primero_ = false;
    return true;
  }
  const String& Texto() const { return texto_; }

 private:
  void Nombrar(const String& code) {
    for (std::size_t i = 0; i < kNombres.size(); ++i) {
      if (Digits(static_cast<std::int64_t>(i)) == code) nombre_ = String(kNombres[i]);
    }
  }
  static String Fin(const RegistroFuncion& registro) {
    return "  "_w + Digits(registro.HoraFin, 2) + ":"_w + Digits(registro.MinutoFin, 2) + "  "_w +
           registro.Tiempo;
  }

  const char digito_;
  bool primero_ = true;
  String fecha_, nombre_, texto_;
};

String Linea(const String& text) {
  return text + String(kFinDeLinea);
}

}  // namespace

String TextoHorario(std::string_view porteria, const String* diario) {
  const String rule = Linea(String(kRaya)), empty = Linea({});
  String text =
      empty + Linea(String(kTitulo) + String(porteria)) + rule + Linea(String(kCabeza)) + rule + empty;
  if (diario != nullptr) {
    const Diario log(diario->Bytes(), {});
    Renglones rows(porteria);
    for (std::size_t number = 1; number <= Diario::kRegistros && rows.Agregar(log.Leer(number)); ++number) {
    }
    text += rows.Texto();
  }
  return text + rule + empty + empty + empty;
}

}  // namespace vintoral
