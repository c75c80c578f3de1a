#include "camera/Retencion.h"

#include <algorithm>

#include "common/Numbers.h"
#include "records/Register.h"
#include "records/RegistroFicha.h"
#include "records/RegistroUsuario.h"
#include "records/TextoAjustes.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

constexpr std::string_view kFile = "Objetos\\Retencion.INI";
constexpr std::string_view kDefault =
    "; Días que se conservan las fotos; 0 las conserva siempre. La portería 01 borra una vez al día las "
    "más\r\n"
    "; antiguas. Las fotos de las fichas que están adentro no se tocan.\r\n"
    "; Fotos de salida:\r\n"
    "DiasFotosSalida = 0\r\n"
    "; Fotos adicionales de fichas que ya salieron:\r\n"
    "DiasFotosAdicionales = 0\r\n"
    "; Fotos de usuarios que no han vuelto desde entonces:\r\n"
    "DiasFotosUsuarios = 0\r\n";

/// Records looked at, and folders deleted, in one slice.
constexpr std::int64_t kSlice = 200;
constexpr std::size_t kFolders = 10;
constexpr std::int64_t kDay = 24LL * 3600 * 1000;

int Dias(std::string_view text, std::string_view name) {
  constexpr std::int64_t kHundredYears = 36525;
  const std::int64_t dias = LeadingInteger(Ajuste(text, name).value_or(String()));
  return dias >= 1 && dias <= kHundredYears ? static_cast<int>(dias) : 0;
}

/// The time of a file, by the clock of the world: up to a day beside the gate's own.
Moment MomentoDe(const FileMark& mark) {
  const std::int64_t epoch = Moment::From({.year = 1970})->Milliseconds();
  return Moment::FromMilliseconds(epoch + mark.changed / 1'000'000);
}

/// Calls `visit(number, ficha)` for whoever is inside; not done when the register can't be read to its end.
template <class Visit>
Outcome ConCadaUnoAdentro(Disk& disk, const String& act, Visit visit) {
  const Register<RegistroFicha> puestos(disk, act, OpenMode::kRead);
  const Result<std::int64_t> count = puestos.Count();
  if (!count) return count.Why();
  return puestos.Walk(1, *count, [&visit](std::int64_t number, const RegistroFicha& ficha) {
    if (ficha.EnUso) visit(number, ficha);
    return true;
  });
}

/// The folders of whoever is inside, in capitals; nothing when the register can't be read.
std::optional<std::unordered_set<std::string>> CarpetasDeAdentro(Disk& disk, const String& act) {
  std::unordered_set<std::string> carpetas;
  const Outcome walked = ConCadaUnoAdentro(disk, act, [&](std::int64_t number, const RegistroFicha& ficha) {
    carpetas.insert(Upper(CarpetaDetalleEn(String(), ficha.Placa.View(), number)).Bytes().substr(1));
  });
  walked.PassOver();
  if (!walked) return std::nullopt;
  return carpetas;
}

}  // namespace

PlazosFotos PlazosDe(std::string_view text) {
  return {Dias(text, "DiasFotosSalida"), Dias(text, "DiasFotosAdicionales"), Dias(text, "DiasFotosUsuarios")};
}

PlazosFotos LeerPlazos(Disk& disk) {
  if (!disk.Exists(kFile)) disk.Replace(kFile, kDefault).PassOver();
  return PlazosDe(disk.ReadAll(kFile).PassOver().value_or(String()));
}

std::optional<Moment> MomentoDeCarpeta(std::string_view nombre) {
  // " P01 20-11-2026 140000"
  constexpr std::string_view kShape = " P00 00-00-0000 000000";
  if (nombre.size() < kShape.size()) return std::nullopt;
  const std::string_view end = nombre.substr(nombre.size() - kShape.size());
  const bool shaped = std::equal(end.begin(), end.end(), kShape.begin(), [](char character, char wanted) {
    return wanted == '0' ? character >= '0' && character <= '9' : character == wanted;
  });
  if (!shaped) return std::nullopt;
  const auto number = [&](std::size_t from, std::size_t width) {
    return static_cast<int>(LeadingInteger(end.substr(from, width)));
  };
  return Moment::From({.year = number(11, 4),
                       .month = number(8, 2),
                       .day = number(5, 2),
                       .hour = number(16, 2),
                       .minute = number(18, 2),
                       .second = number(20, 2)});
}

Retencion::Retencion(Disk& disk, std::function<String(std::string_view)> ruta, const PlazosFotos& plazos,
                     Moment ahora)
    : disk_(disk), ruta_(std::move(ruta)), plazos_(plazos), ahora_(ahora) {}

bool Retencion::Avanzar() {
  switch (fase_) {
    case Fase::kSalidas:
      BorrarSalidas();
      break;
    case Fase::kCarpetas:
      BorrarCarpetas();
      break;
    case Fase::kVistos:
      MirarVistos();
      break;
    case Fase::kAdentro:
      MirarAdentro();
      break;
    case Fase::kUsuarios:
      BorrarUsuarios();
      break;
    case Fase::kHecho:
      break;
  }
  return fase_ != Fase::kHecho;
}

bool Retencion::Pasado(const Moment& momento, int dias) const {
  return ahora_.Milliseconds() - momento.Milliseconds() > dias * kDay;
}

void Retencion::Siguiente() {
  fase_ = static_cast<Fase>(static_cast<int>(fase_) + 1);
  numero_ = 1;
}

void Retencion::BorrarSalidas() {
  if (plazos_.salida == 0) return Siguiente();
  std::vector<std::int64_t> viejas;
  const std::int64_t last = numero_ + kSlice - 1;
  const Register<RegistroFicha> hst(disk_, ruta_("Vintoral.HST"), OpenMode::kRead);
  const auto count = hst ? hst.Count().PassOver().value_or(0) : 0;
  // All rows: a clock that was wrong for a day must neither keep nor delete the photos of others.
  hst.Walk(numero_, std::min(last, count),
           [&](std::int64_t number, const RegistroFicha& row) {
             const std::optional<Moment> salida = MomentOfStamp(row.MarcaSalida.View());
             if (salida && Pasado(*salida, plazos_.salida)) viejas.push_back(number);
             return true;
           })
      .PassOver();
  Borrar(carpeta_fotos::kHistorial, viejas, 0);
  numero_ = last + 1;
  if (numero_ > count) Siguiente();
}

void Retencion::BorrarCarpetas() {
  if (plazos_.adicionales == 0) return Siguiente();
  const String base = ruta_(carpeta_fotos::kDetalles);
  if (!listadas_) {
    listadas_ = true;
    viejas_ = disk_.ListFolders(base);
    // The plate of a ficha that is inside may look like the end of a final name.
    const std::optional<std::unordered_set<std::string>> adentro =
        CarpetasDeAdentro(disk_, ruta_("Vintoral.ACT"));
    std::erase_if(viejas_, [&](const String& nombre) {
      const std::optional<Moment> momento = MomentoDeCarpeta(nombre);
      const bool vieja = momento && Pasado(*momento, plazos_.adicionales);
      return !vieja || !adentro || adentro->contains(Upper(nombre).Bytes());
    });
    return;
  }
  for (std::size_t i = 0; i < kFolders && !viejas_.empty(); ++i) {
    const Outcome removed = disk_.RemoveFolder(base + "\\"_w + viejas_.back());
    removed.PassOver();
    carpetas_ += removed ? 1 : 0;
    viejas_.pop_back();
  }
  if (viejas_.empty()) Siguiente();
}

void Retencion::MirarVistos() {
  if (plazos_.usuarios == 0) {
    fase_ = Fase::kHecho;
    return;
  }
  const std::int64_t last = numero_ + kSlice - 1;
  const Register<RegistroFicha> hst(disk_, ruta_("Vintoral.HST"), OpenMode::kRead);
  const Result<std::int64_t> count = hst.Count();
  const auto visit = [this](std::int64_t /*number*/, const RegistroFicha& row) {
    const std::optional<Moment> salida = MomentOfStamp(row.MarcaSalida.View());
    if (!salida || !Pasado(*salida, plazos_.usuarios)) vistos_.insert(Upper(row.Placa.Trimmed()).Bytes());
    return true;
  };
  const Outcome walked = count ? hst.Walk(numero_, std::min(last, *count), visit) : count.Why();
  walked.PassOver();
  // Who was seen is unknown: nobody's photo goes.
  if (!walked) {
    fase_ = Fase::kHecho;
    return;
  }
  numero_ = last + 1;
  if (numero_ > *count) Siguiente();
}

void Retencion::MirarAdentro() {
  const Outcome walked = ConCadaUnoAdentro(disk_, ruta_("Vintoral.ACT"),
                                           [this](std::int64_t /*number*/, const RegistroFicha& ficha) {
                                             vistos_.insert(Upper(ficha.Placa.Trimmed()).Bytes());
                                           });
  walked.PassOver();
  Siguiente();
  if (!walked) fase_ = Fase::kHecho;
}

void Retencion::BorrarUsuarios() {
  std::vector<std::int64_t> ausentes;
  const std::int64_t last = numero_ + kSlice - 1;
  const Register<RegistroUsuario> usuarios(disk_, ruta_("Vintoral.USR"), OpenMode::kRead);
  const auto count = usuarios ? usuarios.Count().PassOver().value_or(0) : 0;
  usuarios
      .Walk(numero_, std::min(last, count),
            [&](std::int64_t number, const RegistroUsuario& usuario) {
              if (!vistos_.contains(Upper(usuario.Placa.Trimmed()).Bytes())) ausentes.push_back(number);
              return true;
            })
      .PassOver();
  Borrar(carpeta_fotos::kUsuarios, ausentes, plazos_.usuarios);
  Borrar(carpeta_fotos::kPrimeras, ausentes, plazos_.usuarios);
  numero_ = last + 1;
  if (numero_ > count) Siguiente();
}

void Retencion::Borrar(std::string_view carpeta, std::span<const std::int64_t> numeros, int dias) {
  if (numeros.empty()) return;
  const String folder = ruta_(carpeta);
  std::vector<String> names;
  for (const std::int64_t numero : numeros)
    names.push_back(Digits(numero, 6) + ".jpg"_w);
  const auto marks = disk_.LookIn(folder, names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    // A history that was begun anew knows nothing of those who came before: their photo's own age counts too.
    if (!marks[i] || (dias > 0 && !Pasado(MomentoDe(*marks[i]), dias))) continue;
    const String foto = folder + "\\"_w + names[i];
    fotos_ += QuitarArchivo(disk_, foto) ? 1 : 0;
  }
}

}  // namespace vintoral
