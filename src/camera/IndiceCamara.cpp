#include "camera/IndiceCamara.h"

#include <array>

#include "records/Coding.h"
#include "station/form1/Archivos.h"

namespace vintoral {
namespace {

constexpr std::size_t kSize = sizeof(std::int32_t);

}  // namespace

std::optional<std::int32_t> LeerIndiceCamara(Disk& disk) {
  if (!disk.Exists(archivo::kCamara)) return std::nullopt;
  const std::optional<String> bytes = disk.ReadAll(archivo::kCamara).PassOver();
  if (!bytes || bytes->Bytes().size() < kSize) return std::nullopt;
  return coding::Get<std::int32_t>(bytes->Bytes().data());
}

Outcome EscribirIndiceCamara(Disk& disk, std::int32_t indice) {
  disk.ClearReadOnly(archivo::kCamara).PassOver();
  Result<std::unique_ptr<DiskFile>> opened = disk.Open(archivo::kCamara, OpenMode::kCreate);
  if (!opened) return opened.Why();
  std::array<char, kSize> bytes{};
  coding::Put(bytes.data(), indice);
  return opened.Take()->WriteAt(0, bytes);
}

}  // namespace vintoral
