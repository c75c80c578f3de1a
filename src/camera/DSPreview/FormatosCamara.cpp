#include "camera/DSPreview/FormatosCamara.h"

#include <charconv>
#include <string>

namespace vintoral {
namespace {

constexpr std::string_view kFile = "Recursos\\Vintoral.CFG";
constexpr std::string_view kBeforeName = " | ";

/// The number at the start of `text`, which loses it; nothing when there is none.
std::optional<int> TakeNumber(std::string_view& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

bool TakeCharacter(std::string_view& text, char character) {
  if (!text.starts_with(character)) return false;
  text.remove_prefix(1);
  return true;
}

/// "640x480@30"
std::optional<CameraMode> ModeOf(std::string_view word) {
  const std::optional<int> width = TakeNumber(word);
  if (!width || !TakeCharacter(word, 'x')) return std::nullopt;
  const std::optional<int> height = TakeNumber(word);
  if (!height || !TakeCharacter(word, '@')) return std::nullopt;
  const std::optional<int> rate = TakeNumber(word);
  if (!rate || !word.empty() || *width < 1 || *height < 1 || *rate < 1) return std::nullopt;
  return CameraMode{*width, *height, *rate};
}

/// One word of a line into the format; false when it is none.
bool TakeWord(std::string_view word, CameraFormat& format) {
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos) {
    const std::optional<CameraMode> mode = ModeOf(word);
    const bool first = !format.mode.has_value();
    format.mode = mode;
    return mode && first;
  }
  std::string_view value = word.substr(equals + 1);
  const std::optional<int> number = TakeNumber(value);
  if (equals == 0 || !number || !value.empty()) return false;
  return format.controls.emplace(word.substr(0, equals), *number).second;
}

bool TakeLine(std::string_view line, FormatosCamara& formatos) {
  const std::size_t bar = line.find(kBeforeName);
  if (bar == std::string_view::npos) return false;
  CameraFormat format;
  std::string_view words = line.substr(0, bar);
  while (!words.empty()) {
    const std::size_t blank = words.find(' ');
    if (!TakeWord(words.substr(0, blank), format)) return false;
    words.remove_prefix(blank == std::string_view::npos ? words.size() : blank + 1);
  }
  return formatos.emplace(String(line.substr(bar + kBeforeName.size())), format).second;
}

}  // namespace

std::optional<FormatosCamara> FormatosDe(std::string_view text) {
  FormatosCamara formatos;
  while (!text.empty()) {
    const std::size_t end = text.find("\r\n");
    if (end == std::string_view::npos || !TakeLine(text.substr(0, end), formatos)) return std::nullopt;
    text.remove_prefix(end + 2);
  }
  return formatos;
}

String TextoDe(const FormatosCamara& formatos) {
  std::string text;
  for (const auto& [name, format] : formatos) {
    std::string words;
    const auto add = [&words](const std::string& word) { words += (words.empty() ? "" : " ") + word; };
    if (format.mode)
      add(std::to_string(format.mode->width) + "x" + std::to_string(format.mode->height) + "@" +
          std::to_string(format.mode->framesPerSecond));
    for (const auto& [id, value] : format.controls)
      add(id + "=" + std::to_string(value));
    if (words.empty()) continue;
    text += words + std::string(kBeforeName) + name.Bytes() + "\r\n";
  }
  return String(text);
}

namespace {

/// A damaged file is deleted. Fails only where the file can't be read.
Result<FormatosCamara> Leer(Disk& disk) {
  if (!disk.Exists(kFile)) return FormatosCamara{};
  const Result<String> text = disk.ReadAll(kFile);
  if (!text) return text.Why();
  if (std::optional<FormatosCamara> formatos = FormatosDe(*text)) return *std::move(formatos);
  disk.ClearReadOnly(kFile).PassOver();
  disk.Remove(kFile).PassOver();
  return FormatosCamara{};
}

}  // namespace

FormatosCamara LeerFormatos(Disk& disk) {
  return Leer(disk).PassOver().value_or(FormatosCamara{});
}

Outcome GuardarFormato(Disk& disk, const String& name, const CameraFormat& format) {
  const Result<FormatosCamara> antes = Leer(disk);
  if (!antes) return antes.Why();
  FormatosCamara formatos = *antes;
  formatos[name] = format;
  return disk.Replace(kFile, TextoDe(formatos));
}

}  // namespace vintoral
