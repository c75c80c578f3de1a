// Records of the registers of a disk in memory, as another gate would see and leave them.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>

#include "records/Register.h"
#include "support/Bytes.h"
#include "support/MemoryDisk.h"

namespace vintoral::test {

inline constexpr const char* kAct = "Multimedia\\Vintoral.ACT";
inline constexpr const char* kHst = "Multimedia\\Vintoral.HST";
inline constexpr const char* kUsr = "Multimedia\\Vintoral.USR";
inline constexpr const char* kNsr = "Multimedia\\Vintoral.NSR";
inline constexpr const char* kCrd = "Multimedia\\Vintoral.CRD";
inline constexpr const char* kCdb = "Multimedia\\Vintoral.CDB";
inline constexpr const char* kCfr = "Multimedia\\Vintoral.CFR";

/// Whole records; 0 of a file that is missing.
template <class R>
std::size_t CountOf(const MemoryDisk& disk, std::string_view path) {
  return disk.Exists(path) ? disk.Get(path).size() / R::kSize : 0;
}

/// Record `number` from 1; a test that asks for one that isn't there fails.
template <class R>
R RecordOf(const MemoryDisk& disk, std::string_view path, std::size_t number) {
  if (number < 1 || CountOf<R>(disk, path) < number) {
    ADD_FAILURE() << "no record " << number << " in " << path;
    return {};
  }
  const std::string bytes = disk.Get(path);
  return R::Decode(std::span<const char, R::kSize>(bytes.data() + (number - 1) * R::kSize, R::kSize));
}

/// Over record `number`; a register that is shorter or missing grows by blank records. Gates that have it
/// open see it.
template <class R>
void PutRecord(MemoryDisk& disk, std::string_view path, std::size_t number, const R& record) {
  Register<R> records(disk, path, OpenMode::kCreate);
  EXPECT_TRUE(records.Write(static_cast<std::int64_t>(number), record, false)) << path;
}

}  // namespace vintoral::test
