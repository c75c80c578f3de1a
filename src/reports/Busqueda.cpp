#include "reports/Busqueda.h"

#include <cstring>

#include "common/Moment.h"
#include "records/LayoutFicha.h"
#include "records/RecordFile.h"

namespace vintoral {
namespace {

using R = RegistroFicha;

constexpr std::size_t kEnUso = coding::OffsetOf(kLayoutFicha, &R::EnUso);
constexpr std::size_t kEntrada = coding::OffsetOf(kLayoutFicha, &R::MarcaEntrada);
constexpr std::size_t kSalida = coding::OffsetOf(kLayoutFicha, &R::MarcaSalida);
constexpr std::size_t kFicha = coding::OffsetOf(kLayoutFicha, &R::NumeroFicha);
constexpr std::size_t kCategoria = coding::OffsetOf(kLayoutFicha, &R::Categoria);
constexpr std::array kCampos = {
    coding::OffsetOf(kLayoutFicha, &R::Placa), coding::OffsetOf(kLayoutFicha, &R::Nombre),
    coding::OffsetOf(kLayoutFicha, &R::Apellido), coding::OffsetOf(kLayoutFicha, &R::Telefono),
    coding::OffsetOf(kLayoutFicha, &R::Observacion)};
constexpr std::size_t kAnchoCampo = decltype(R::Placa)::kWidth;
constexpr std::size_t kAnchoFicha = decltype(R::NumeroFicha)::kWidth;
/// Where the date of a stamp begins.
constexpr std::size_t kFechaEnSello = 8;

std::int32_t NumeroDeFecha(const Civil& civil) {
  return (civil.year * 100 + civil.month) * 100 + civil.day;
}

std::size_t SelloDe(SelloBuscado sello) {
  return sello == SelloBuscado::kEntrada ? kEntrada : kSalida;
}

bool EsDigito(char character) {
  return character >= '0' && character <= '9';
}

int DosDigitos(const char* text) {
  return (text[0] - '0') * 10 + (text[1] - '0');
}

/// Of "hh:mm" in exactly this form; nothing of any other.
std::optional<std::int32_t> HoraDe(const char* text) {
  if (!EsDigito(text[0]) || !EsDigito(text[1]) || text[2] != ':' || !EsDigito(text[3]) || !EsDigito(text[4]))
    return std::nullopt;
  const int hour = DosDigitos(text), minute = DosDigitos(text + 3);
  if (hour > 23 || minute > 59) return std::nullopt;
  return hour * 100 + minute;
}

/// Fills it with zeros; a longer one is no ficha's.
String NumeroCompleto(std::string_view ficha) {
  const std::string_view number = TrimBlanks(ficha);
  if (number.size() >= kAnchoFicha) return String(number);
  return String(kAnchoFicha - number.size(), '0') + String(number);
}

std::span<const char> EnBlanco() {
  static const std::array<char, R::kSize> blank = R{}.Encode();
  return blank;
}

PruebaRegistro::Bytes Registro(const BlockReader& block, std::size_t index) {
  return PruebaRegistro::Bytes(block.Record(index), R::kSize);
}

bool EnUso(PruebaRegistro::Bytes registro) {
  bool inUse = false;
  coding::Code<bool>::Read(registro.data() + kEnUso, inUse);
  return inUse;
}

/// From the last record of the block to its first; false when the first one before the range was met.
bool MirarSalidas(const BlockReader& block, PruebaRegistro& prueba, const AlEncontrar& alEncontrar) {
  for (std::size_t i = block.Count(); i-- > 0;) {
    const PruebaRegistro::Bytes registro = Registro(block, i);
    const std::optional<std::int32_t> fecha = prueba.Fecha(registro, SelloBuscado::kSalida);
    if (!fecha) continue;
    if (prueba.AntesDelRango(*fecha)) return false;
    if (prueba.Cumple(registro, SelloBuscado::kSalida, *fecha)) alEncontrar(R::Decode(registro));
  }
  return true;
}

}  // namespace

std::optional<std::int32_t> LectorFechas::Leer(const char* sello) {
  const std::string_view texto(sello + kFechaEnSello, kAncho);
  if (std::memcmp(texto.data(), texto_.data(), kAncho) != 0) {
    const std::optional<Moment> day = ParseDateTime(String(texto) + " 00:00:00"_w);
    fecha_ = day ? NumeroDeFecha(day->Parts()) : 0;
    texto.copy(texto_.data(), kAncho);
  }
  return fecha_ == 0 ? std::nullopt : std::optional(fecha_);
}

ParteDeCampo::ParteDeCampo(std::string_view texto) : mayusculas_(Upper(TrimBlanks(texto))) {
  if (!Busca()) return;
  primera_ = mayusculas_[0];
  primeraMinuscula_ = Lower(mayusculas_)[0];
}

bool ParteDeCampo::EstaEn(const char* campo) const {
  // It neither begins nor ends with a blank, so those around the field make no difference.
  const std::string_view text = mayusculas_;
  for (std::size_t at = 0; at + text.size() <= kAnchoCampo; ++at) {
    if (campo[at] != primera_ && campo[at] != primeraMinuscula_) continue;
    std::size_t same = 1;
    while (same < text.size() && UpperByte(campo[at + same]) == text[same])
      ++same;
    if (same == text.size()) return true;
  }
  return false;
}

PruebaRegistro::PruebaRegistro(const Criterios& criterios)
    : cualquierFicha_(criterios.ficha.Empty()),
      ficha_(NumeroCompleto(criterios.ficha)),
      categoria_(criterios.categoria) {
  const std::optional<Limite> from = LimiteDe(criterios.desdeFecha, criterios.desdeHora);
  const std::optional<Limite> to = LimiteDe(criterios.hastaFecha, criterios.hastaHora);
  legible_ = from && to;
  desde_ = from.value_or(Limite{});
  hasta_ = to.value_or(Limite{});
  for (std::size_t i = 0; i < campos_.size(); ++i)
    campos_[i] = ParteDeCampo(criterios.campos[i]);
}

std::optional<PruebaRegistro::Limite> PruebaRegistro::LimiteDe(std::string_view fecha,
                                                               std::string_view hora) {
  // Each by itself: a time box that holds both makes up for no date.
  const std::optional<Moment> day = ParseDateTime(Trim(fecha) + " 00:00:00"_w);
  const std::optional<Moment> time = ParseDateTime("01/01/2000 "_w + Trim(hora) + ":00"_w);
  if (!day || !time) return std::nullopt;
  const Civil civil = time->Parts();
  return Limite{NumeroDeFecha(day->Parts()), civil.hour * 100 + civil.minute};
}

bool PruebaRegistro::EnHorario(const char* sello) const {
  const std::optional<std::int32_t> hora = HoraDe(sello);
  return hora && *hora >= desde_.hora && *hora <= hasta_.hora;
}

bool PruebaRegistro::CumpleTextos(const char* registro) const {
  if (categoria_.Searches() && !categoria_.Matches(registro + kCategoria)) return false;
  for (std::size_t i = 0; i < campos_.size(); ++i) {
    if (campos_[i].Busca() && !campos_[i].EstaEn(registro + kCampos[i])) return false;
  }
  return true;
}

std::optional<std::int32_t> PruebaRegistro::Fecha(Bytes registro, SelloBuscado sello) {
  return fechas_.Leer(registro.data() + SelloDe(sello));
}

bool PruebaRegistro::Cumple(Bytes registro, SelloBuscado sello, std::int32_t fecha) const {
  if (!legible_ || fecha < desde_.fecha || fecha > hasta_.fecha) return false;
  // The number before the rest: it tells most records apart and costs least.
  if (!cualquierFicha_ && !ficha_.Matches(registro.data() + kFicha)) return false;
  return EnHorario(registro.data() + SelloDe(sello)) && CumpleTextos(registro.data());
}

Outcome BuscarHistorial(Disk& disk, std::string_view ruta, PruebaRegistro& prueba,
                        const AlEncontrar& alEncontrar, const AlAvanzar& alAvanzar) {
  if (!prueba.RangoLegible()) return Outcome::Done();
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(ruta, OpenMode::kRead);
  if (!file) return file.Why();
  const Result<std::int64_t> count = RecordFile(**file, EnBlanco()).Count();
  if (!count) return count.Why();
  constexpr std::int64_t kPrimero = 2;
  BlockReader block(**file, EnBlanco(), kPrimero, *count);
  while (block.Previous()) {
    if (!MirarSalidas(block, prueba, alEncontrar)) return Outcome::Done();
    if (!alAvanzar(block.First() - kPrimero)) return Outcome::Done();
  }
  return block.Failure();
}

Outcome BuscarActivas(Disk& disk, std::string_view ruta, std::int64_t ultima, PruebaRegistro& prueba,
                      const AlEncontrar& alEncontrar) {
  if (!prueba.RangoLegible()) return Outcome::Done();
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(ruta, OpenMode::kRead);
  if (!file) return file.Why();
  BlockReader block(**file, EnBlanco(), 1, ultima);
  while (block.Next()) {
    for (std::size_t i = 0; i < block.Count(); ++i) {
      const PruebaRegistro::Bytes registro = Registro(block, i);
      if (!EnUso(registro)) continue;
      const std::optional<std::int32_t> fecha = prueba.Fecha(registro, SelloBuscado::kEntrada);
      if (fecha && prueba.Cumple(registro, SelloBuscado::kEntrada, *fecha)) alEncontrar(R::Decode(registro));
    }
  }
  return block.Failure();
}

}  // namespace vintoral
