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

bool EsDeHoy(const Form1& form, const RegistroFuncion& day) {
  return EqualNoCase(Left(day.FechaHora, RegistroFuncion::kLargoFecha), DateText(form.Devices().clock.Now()));
}

/// A program that has just started goes on where the one before it ended.
void Continuar(Form1& form, const RegistroFuncion& day) {
  if (form.TiempoEjecucion == 0) form.TiempoEjecucion = MinutosDe(day.Tiempo);
}

/// The day's own record, as of now.
void Actualizar(const Form1& form, RegistroFuncion& day) {
  day.CodigoFuncion = CodigoDe(form.NumeroPorteria, funcion::kEnEjecucion);
  day.Tiempo = TextoDe(form.TiempoEjecucion);
  const std::int64_t end =
      (MinutosDe(Mid(day.FechaHora, RegistroFuncion::kHora, day.Tiempo.Size())) + MinutosDe(day.Tiempo)) %
      kMinutosPorDia;
  day.HoraFin = static_cast<std::int16_t>(end / kMinutosPorHora);
  day.MinutoFin = static_cast<std::int16_t>(end % kMinutosPorHora);
}

/// What is done each minute of the year: the running time of a day that has its record, in a log that has all
/// of them. One record is written whole or not at all. False where there is more to do.
Result<bool> AnotarMinuto(Form1& form, DiskFile& file) {
  const Result<std::uint64_t> length = file.Length();
  if (!length) return length.Why();
  std::array<char, RegistroFuncion::kSize> place{};
  const Result<std::size_t> got = file.ReadAt(0, place);
  if (!got) return got.Why();
  RegistroFuncion day = RegistroFuncion::Decode(place);
  if (*length < Diario::kLargo || !EsDeHoy(form, day)) return false;
  Continuar(form, day);
  Actualizar(form, day);
  day.EncodeOver(place);
  const Outcome written = file.WriteAt(0, place);
  return written ? Result<bool>(true) : written;
}

/// An event, the first minute of a day, or any entry of a log that lacks records.
void Anotar(Form1& form, std::string_view function, Diario& log) {
  RegistroFuncion day = log.Leer(1);
  if (function != funcion::kEnEjecucion) {
    log.Bajar(kPrimerEvento);
    log.Poner(kPrimerEvento, Nuevo(form, function, 0));
  } else if (EsDeHoy(form, day)) {
    Continuar(form, day);
  } else {
    log.Bajar(1);
    day.FechaHora = FechaHoraDe(form.Devices().clock.Now());
    form.TiempoEjecucion = 0;
  }
  Actualizar(form, day);
  log.Poner(1, day);
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
  if (file != nullptr && Funcion == funcion::kEnEjecucion) {
    const std::optional<bool> done = AnotarMinuto(*this, *file).PassOver();
    if (done.value_or(true)) return;
  }
  Result<std::string> held = Contenido(file.get());
  if (!held) return held.Why().PassOver();
  Diario log(held.Take(), Nuevo(*this, funcion::kEnEjecucion, RegistroFuncion::kSinFin));
  Anotar(*this, Funcion, log);
  // A write of all of them could end half way: they get a file of their own.
  disk.ReplaceUnsynced(archivo::kFunciones, log.Bytes()).PassOver();
}

}  // namespace vintoral
