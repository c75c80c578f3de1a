// Random-access files of fixed-length records, numbered from 1, on top of Disk. Opened, used and closed
// within one operation; nothing is cached between operations.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "common/Outcome.h"
#include "platform/Disk.h"

namespace vintoral {

/// One open register of records of type R (RegistroFicha, RegistroUsuario, …).
template <class R>
class Registro {
 public:
  /// Closed when the file can't be opened: `if (!registro) …`.
  Registro(Disk& disk, std::string_view path, OpenMode mode);
  explicit operator bool() const { return file_ != nullptr; }
  /// Why it could not be opened.
  const Outcome& Opened() const { return opened_; }

  /// Whole records in the file; 0 when the system can't say.
  std::int64_t Count() const;
  /// Record `number` (from 1). A torn last record is read as far as it goes, the rest blank; past the end
  /// gives a blank record. Nothing when the number is below 1 or the system failed.
  std::optional<R> Read(std::int64_t number) const;
  /// Calls `visit(number, record)` for the records `first` to `last`, read in large blocks, until it returns
  /// false. Ends at the end of the file (a torn last record is still visited). False when the system failed
  /// on the way.
  template <class Visit>
  bool Walk(std::int64_t first, std::int64_t last, Visit visit) const;
  /// The same on the raw bytes of each record (`std::span<const char>`, R::kSize long): for searches that
  /// look at one field of very many records.
  template <class Visit>
  bool WalkBytes(std::int64_t first, std::int64_t last, Visit visit) const;

  /// Writes record `number`. With `sync` it is on disk when this returns.
  Outcome Write(std::int64_t number, const R& record, bool sync);
  /// Makes room for one more record, so that a later Append can't fail for a full disk.
  Outcome ReserveRow();
  /// Appends at length / size + 1 under the append lock: `fill(number)` gives the record once the row is
  /// known. A torn last record is overwritten. Synced.
  template <class Fill>
  Outcome Append(Fill fill);

 private:
  std::unique_ptr<DiskFile> file_;
  Outcome opened_ = Outcome::Done();
};

}  // namespace vintoral
