#include "camera/IndiceCamara.h"

#include <array>

#include "station/form1/Archivos.h"

namespace vintoral {
namespace {

/// One number of 32 bits with its sign, lowest byte first.
constexpr std::size_t kSize = 4;

}  // namespace

std::optional<std::int32_t> LeerIndiceCamara(Disk& disk) {
  if (!disk.Exists(archivo::kCamara)) return std::nullopt;
  const std::optional<String> bytes = disk.ReadAll(archivo::kCamara).PassOver();
  if (!bytes || bytes->Bytes().size() < kSize) return std::nullopt;
  std::uint32_t indice = 0;
  for (std::size_t i = kSize; i-- > 0;)
    indice = indice << 8 | static_cast<std::uint8_t>(bytes->Bytes()[i]);
  return static_cast<std::int32_t>(indice);
}

Outcome EscribirIndiceCamara(Disk& disk, std::int32_t indice) {
  disk.ClearReadOnly(archivo::kCamara).PassOver();
  Result<std::unique_ptr<DiskFile>> opened = disk.Open(archivo::kCamara, OpenMode::kCreate);
  if (!opened) return opened.Why();
  std::array<char, kSize> bytes{};
  for (std::size_t i = 0; i < kSize; ++i)
    bytes[i] = static_cast<char>(static_cast<std::uint32_t>(indice) >> (8 * i) & 0xFF);
  return opened.Take()->WriteAt(0, bytes);
}

}  // namespace vintoral
