// Random-access files of fixed-length records, numbered from 1, on top of Disk. Opened, used and closed
// within one operation; nothing is cached between operations.
#pragma once

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "common/Outcome.h"
#include "platform/Disk.h"
#include "records/RecordFile.h"

namespace vintoral {

/// One open register of records of type R (RegistroFicha, RegistroUsuario, …). R brings kSize, Decode and
/// Encode; an R with nothing set is the blank record.
template <class R>
class Register {
 public:
  /// Closed when the file can't be opened: `if (!registro) …`.
  Register(Disk& disk, std::string_view path, OpenMode mode) : file_(disk.Open(path, mode, &opened_)) {}
  explicit operator bool() const { return file_ != nullptr; }
  /// Why it could not be opened.
  const Outcome& Opened() const { return opened_; }

  /// There is no such file, as opposed to one that can't be opened.
  bool Missing() const { return opened_.Error() == ENOENT; }

  /// Whole records in the file; 0 when the system can't say.
  std::int64_t Count() const { return file_ ? Bytes().Count() : 0; }
  /// Record `number` (from 1). A torn last record is read as far as it goes, the rest blank; past the end
  /// gives a blank record. Nothing when the number is below 1 or the system failed.
  std::optional<R> Read(std::int64_t number) const {
    std::array<char, R::kSize> bytes;
    if (!file_ || !Bytes().Read(number, bytes)) return std::nullopt;
    return R::Decode(bytes);
  }
  /// Calls `visit(number, record)` for the records `first` to `last`, read in large blocks, until it returns
  /// false. Ends at the end of the file (a torn last record is still visited). False when the system failed
  /// on the way.
  template <class Visit>
  bool Walk(std::int64_t first, std::int64_t last, Visit visit) const {
    return WalkBytes(first, last, Decoding(visit));
  }
  /// The same from record `last` back to `first`.
  template <class Visit>
  bool WalkBack(std::int64_t last, std::int64_t first, Visit visit) const;
  /// The same as Walk on the raw bytes of each record (`std::span<const char>`, R::kSize long): for searches
  /// that look at one field of very many records.
  template <class Visit>
  bool WalkBytes(std::int64_t first, std::int64_t last, Visit visit) const;

  /// Writes record `number`. With `sync` it is on disk when this returns. A number beyond the end (in a file
  /// that was cut) fills the gap with blank records.
  Outcome Write(std::int64_t number, const R& record, bool sync) {
    if (!file_) return opened_;
    Outcome written = Bytes().Write(number, record.Encode());
    return written && sync ? file_->Sync() : written;
  }
  /// Makes room for one more record, so that a later Append can't fail for a full disk.
  Outcome ReserveRow() {
    return file_ ? file_->Reserve(static_cast<std::uint64_t>(Count() + 1) * R::kSize) : opened_;
  }
  /// See RecordFile.
  bool EndsInACutRow() const { return file_ && Bytes().EndsInACutRow(); }
  Outcome DropCutRow() { return file_ ? Bytes().DropCutRow() : opened_; }
  /// Appends at length / size + 1 under the append lock: `fill(number)` gives the record once the row is
  /// known. A torn last record is overwritten. Synced, after the lock is given back: the row is taken as soon
  /// as it is written, and no other station waits for this one's disk.
  template <class Fill>
  Outcome Append(Fill fill) {
    if (!file_) return opened_;
    Outcome written = AppendLocked(fill);
    return written ? file_->Sync() : written;
  }

 private:
  using Record = std::span<const char, R::kSize>;

  static std::span<const char> Blank() {
    static const std::array<char, R::kSize> blank = R{}.Encode();
    return blank;
  }
  RecordFile Bytes() const { return RecordFile(*file_, Blank()); }

  template <class Visit>
  static auto Decoding(Visit& visit) {
    return [&visit](std::int64_t number, Record bytes) -> bool { return visit(number, R::Decode(bytes)); };
  }
  template <class Fill>
  Outcome AppendLocked(Fill& fill) {
    const AppendLock lock(*file_);
    const std::int64_t number = Bytes().NextRow();
    if (number == 0) return Outcome::Failed("measure", "a register", EIO);
    const R record = fill(number);
    return Bytes().Write(number, record.Encode());
  }

  Outcome opened_ = Outcome::Done();  // set while file_ is made
  std::unique_ptr<DiskFile> file_;
};

template <class R>
template <class Visit>
bool Register<R>::WalkBytes(std::int64_t first, std::int64_t last, Visit visit) const {
  if (!file_) return false;
  BlockReader block(*file_, Blank(), first, last);
  while (block.Next()) {
    for (std::size_t i = 0; i < block.Count(); ++i) {
      const auto number = block.First() + static_cast<std::int64_t>(i);
      if (!visit(number, Record(block.Record(i), R::kSize))) return true;
    }
  }
  return !block.Failed();
}

template <class R>
template <class Visit>
bool Register<R>::WalkBack(std::int64_t last, std::int64_t first, Visit visit) const {
  if (!file_) return false;
  // Without the bound, a walk from far behind the end would read nothing for very long.
  BlockReader block(*file_, Blank(), first, std::min(last, Count() + 1));
  while (block.Previous()) {
    for (std::size_t i = block.Count(); i-- > 0;) {
      const auto number = block.First() + static_cast<std::int64_t>(i);
      if (!visit(number, R::Decode(Record(block.Record(i), R::kSize)))) return true;
    }
  }
  return !block.Failed();
}

}  // namespace vintoral
