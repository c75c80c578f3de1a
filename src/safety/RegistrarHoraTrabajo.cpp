#include <array>
#include <optional>

#include "common/Numbers.h"
#include "safety/Diario.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"

namespace vintoral {
namespace {

constexpr std::int64_t kMinutosPorHora = 60, kMinutosPorDia = 24 * kMinutosPorHora;
constexpr std::size_t kPrimerEvento = 2;

/// Minutes since midnight of "hh:mm"; 0 for what is no time of day.
std::int64_t MinutosDe(std::string_view time) {
  const std::optional<Moment> moment = ParseDateTime("01/01/2000 "_w + String(time) + ":00"_w);
  if (!moment) return 0;
  const Civil parts = moment->Parts();
  return parts.hour * kMinutosPorHora + parts.minute;
}

String TextoDe(std::int64_t minutes) {
  const std::int64_t ofDay = minutes % kMinutosPorDia;
  return Digits(ofDay / kMinutosPorHora, 2) + ":"_w + Digits(ofDay % kMinutosPorHora, 2);
}

String FechaHoraDe(Moment now) {
  return DateText(now) + "  "_w + TimeText(now);
}

Money CodigoDe(const String& station, std::string_view function) {
  return Money::FromUnits(LeadingInteger(station + String(function)));
}

RegistroFuncion Nuevo(const Form1& form, std::string_view function, std::int16_t end) {
  return {.FechaHora = FechaHoraDe(form.Devices().clock.Now()),
          .Tiempo = TextoDe(0),
          .CodigoFuncion = CodigoDe(form.NumeroPorteria, function),
          .HoraFin = end,
          .MinutoFin = end};
}

/// The day's own record, as of now.
void Actualizar(RegistroFuncion& day, std::int64_t minutes) {
  day.Tiempo = TextoDe(minutes);
  const std::int64_t end =
      (MinutosDe(Mid(day.FechaHora, RegistroFuncion::kHora, day.Tiempo.Size())) + MinutosDe(day.Tiempo)) %
      kMinutosPorDia;
  day.HoraFin = static_cast<std::int16_t>(end / kMinutosPorHora);
  day.MinutoFin = static_cast<std::int16_t>(end % kMinutosPorHora);
}

/// True when the other records are where they were.
bool Anotar(Form1& form, std::string_view function, Diario& log, RegistroFuncion& day) {
  const Moment now = form.Devices().clock.Now();
  if (function != funcion::kEnEjecucion) {
    log.Bajar(kPrimerEvento);
    log.Poner(kPrimerEvento, Nuevo(form, function, 0));
    return false;
  }
  if (!EqualNoCase(Left(day.FechaHora, RegistroFuncion::kLargoFecha), DateText(now))) {
    log.Bajar(1);
    day.FechaHora = FechaHoraDe(now);
    form.TiempoEjecucion = 0;
    return false;
  }
  if (form.TiempoEjecucion == 0)
    form.TiempoEjecucion = MinutosDe(day.Tiempo);  // the program has just started
  return true;
}

/// Empty where there is no file yet.
Result<std::string> Contenido(DiskFile* file) {
  if (file == nullptr) return std::string();
  std::string bytes(Diario::kLargo, '\0');
  const Result<std::size_t> got = file->ReadAt(0, bytes);
  if (!got) return got.Why();
  bytes.resize(*got);
  return bytes;
}

}  // namespace

void Form1::RegistrarHoraTrabajo(std::string_view Funcion) {
  Disk& disk = platform_.disk;
  disk.ClearReadOnly(archivo::kFunciones).PassOver();
  Result<std::unique_ptr<DiskFile>> opened = disk.Open(archivo::kFunciones, OpenMode::kReadWrite);
  if (!opened && !opened.Why().Missing()) return opened.Why().PassOver();
  const std::unique_ptr<DiskFile> file = opened ? opened.Take() : nullptr;
  const Result<std::string> held = Contenido(file.get());
  if (!held) return held.Why().PassOver();

  Diario log(*held, Nuevo(*this, funcion::kEnEjecucion, RegistroFuncion::kSinFin));
  RegistroFuncion day = log.Leer(1);
  day.CodigoFuncion = CodigoDe(NumeroPorteria, funcion::kEnEjecucion);
  const bool inPlace = Anotar(*this, Funcion, log, day) && log.Entero();
  Actualizar(day, TiempoEjecucion);
  log.Poner(1, day);
  // One record is written whole or not at all; all of them are not, so they get a file of their own.
  (inPlace ? file->WriteAt(0, log.Primero()) : disk.ReplaceUnsynced(archivo::kFunciones, log.Bytes()))
      .PassOver();
}

}  // namespace vintoral
