// Logs of functions as tests write them out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "records/RegistroFuncion.h"
#include "safety/Diario.h"
#include "support/MemoryDisk.h"

namespace vintoral::test {

inline constexpr const char* kFdr = "Recursos\\Vintoral.FDR";

/// `code`: "10" for the running time of station "01".
inline RegistroFuncion Entry(std::string_view when, std::int64_t code, std::string_view time = "00:00",
                             std::int16_t hour = 0, std::int16_t minute = 0) {
  return {String(when), String(time), Money::FromUnits(code), hour, minute};
}
inline RegistroFuncion BlankEntry(std::string_view when) {
  return Entry(when, 10, "00:00", -1, -1);
}

inline std::string PlaceOf(const RegistroFuncion& record, char rest = '\0') {
  std::string place(RegistroFuncion::kSize, rest);
  record.EncodeOver(std::span<char, RegistroFuncion::kSize>(place.data(), RegistroFuncion::kSize));
  return place;
}

/// A whole log: the records given, and as many of the last one as there is room for.
inline std::string LogOf(const std::vector<RegistroFuncion>& records) {
  std::string bytes;
  for (std::size_t i = 0; i < Diario::kRegistros; ++i)
    bytes += PlaceOf(records[std::min(i, records.size() - 1)]);
  return bytes;
}

/// A log of a thousand records that all differ: the day, and behind it an event for each minute before.
inline std::string FullLog() {
  std::string bytes = PlaceOf(Entry("20/11/2026  08:00", 10, "06:00", 14, 0));
  for (int i = 1; i < 1000; ++i) {
    const int minute = 7 * 60 + 59 - i % 400;
    bytes +=
        PlaceOf(Entry("20/11/2026  "_w.Bytes() + (minute / 60 < 10 ? "0" : "") + std::to_string(minute / 60) +
                          ":" + (minute % 60 < 10 ? "0" : "") + std::to_string(minute % 60),
                      100 + i % 27));
  }
  return bytes;
}

/// Record `number` of a log, from 1.
inline RegistroFuncion EntryOf(std::string_view log, std::size_t number) {
  return RegistroFuncion::Decode(std::span<const char, RegistroFuncion::kSize>(
      log.data() + (number - 1) * RegistroFuncion::kSize, RegistroFuncion::kSize));
}
inline std::string Records(std::string_view log, std::size_t first, std::size_t last) {
  return std::string(
      log.substr((first - 1) * RegistroFuncion::kSize, (last - first + 1) * RegistroFuncion::kSize));
}

}  // namespace vintoral::test
