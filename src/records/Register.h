// Random-access files of fixed-length records, numbered from 1, on top of Disk. Opened, used and closed
// within one operation; nothing is cached between operations.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "common/Outcome.h"
#include "common/Result.h"
#include "platform/Disk.h"
#include "records/RecordFile.h"

namespace vintoral {

/// One open register of records of type R (RegistroFicha, RegistroUsuario, …). R brings kSize, Decode and
/// Encode; an R with nothing set is the blank record.
template <class R>
class Register {
 public:
  /// Closed when the file can't be opened: `if (!registro) …`.
  Register(Disk& disk, std::string_view path, OpenMode mode) {
    Result<std::unique_ptr<DiskFile>> file = disk.Open(path, mode);
    opened_ = file.Why();
    if (!file) return;
    file_ = file.Take();
    bytes_.emplace(*file_, Blank());
  }
  explicit operator bool() const { return file_ != nullptr; }
  /// Why it could not be opened.
  const Outcome& Opened() const { return opened_; }

  /// There is no such file, as opposed to one that can't be opened.
  bool Missing() const { return opened_.Missing(); }

  // What is asked of a closed register fails with the reason that closed it.

  /// Whole records in the file.
  Result<std::int64_t> Count() const {
    if (!file_) return opened_;
    return bytes_->Count();
  }
  /// Record `number` (from 1). A torn last record is read as far as it goes, the rest blank; past the end
  /// gives a blank record. A number below 1 is refused.
  Result<R> Read(std::int64_t number) const {
    if (!file_) return opened_;
    std::array<char, R::kSize> bytes;
    Outcome read = bytes_->Read(number, bytes);
    if (!read) return read;
    return R::Decode(bytes);
  }
  /// Calls `visit(number, record)` for the records `first` to `last`, read in large blocks, until it returns
  /// false. Ends at the end of the file (a torn last record is still visited).
  template <class Visit>
  Outcome Walk(std::int64_t first, std::int64_t last, Visit visit) const {
    return WalkBytes(first, last, Decoding(visit));
  }
  /// The same from record `last` back to `first`.
  template <class Visit>
  Outcome WalkBack(std::int64_t last, std::int64_t first, Visit visit) const;
  /// The same as Walk on the raw bytes of each record (`std::span<const char>`, R::kSize long): for searches
  /// that look at one field of very many records.
  template <class Visit>
  Outcome WalkBytes(std::int64_t first, std::int64_t last, Visit visit) const;

  /// Writes record `number`. With `sync` it is on disk when this returns. A number beyond the end (in a file
  /// that was cut) fills the gap with blank records.
  Outcome Write(std::int64_t number, const R& record, bool sync) {
    if (!file_) return opened_;
    Outcome written = bytes_->Write(number, record.Encode());
    return written && sync ? file_->Sync() : written;
  }
  /// Makes room for one more record, so that a later Append can't fail for a full disk.
  Outcome ReserveRow() {
    if (!file_) return opened_;
    const Result<std::int64_t> row = bytes_->NextRow();
    return row ? file_->Reserve(static_cast<std::uint64_t>(*row) * R::kSize) : row.Why();
  }
  /// See RecordFile.
  Result<bool> EndsInACutRow() const {
    if (!file_) return opened_;
    return bytes_->EndsInACutRow();
  }
  Outcome DropCutRow() { return file_ ? bytes_->DropCutRow() : opened_; }
  /// Appends at length / size + 1 under the append lock: `fill(number)` gives the record once the row is
  /// known. A torn last record is overwritten. Synced, after the lock is given back: the row is taken as soon
  /// as it is written, and no other station waits for this one's disk.
  template <class Fill>
  Outcome Append(Fill fill) {
    return UnderLock([this, &fill] {
      const Result<std::int64_t> number = bytes_->NextRow();
      if (!number) return number.Why();
      const R record = fill(*number);
      return bytes_->Write(*number, record.Encode());
    });
  }
  /// Runs `work` under the append lock: a record that others take too is looked at and written before anybody
  /// else comes to it. `work` writes with Write, without a sync of its own and never beyond the next row.
  /// Synced after the lock is given back, where `work` was done.
  template <class Work>
  Outcome UnderLock(Work work) {
    if (!file_) return opened_;
    const auto locked = [this, &work]() -> Outcome {
      const AppendLock lock(*file_);
      return work();
    };
    Outcome done = locked();
    return done ? file_->Sync() : done;
  }

 private:
  using Record = std::span<const char, R::kSize>;

  static std::span<const char> Blank() {
    static const std::array<char, R::kSize> blank = R{}.Encode();
    return blank;
  }

  template <class Visit>
  static auto Decoding(Visit& visit) {
    return [&visit](std::int64_t number, Record bytes) -> bool { return visit(number, R::Decode(bytes)); };
  }

  Outcome opened_ = Outcome::Done();
  std::unique_ptr<DiskFile> file_;
  std::optional<RecordFile> bytes_;  ///< of file_
};

template <class R>
template <class Visit>
Outcome Register<R>::WalkBytes(std::int64_t first, std::int64_t last, Visit visit) const {
  if (!file_) return opened_;
  BlockReader block(*file_, Blank(), first, last);
  while (block.Next()) {
    for (std::size_t i = 0; i < block.Count(); ++i) {
      const auto number = block.First() + static_cast<std::int64_t>(i);
      if (!visit(number, Record(block.Record(i), R::kSize))) return Outcome::Done();
    }
  }
  return block.Failure();
}

template <class R>
template <class Visit>
Outcome Register<R>::WalkBack(std::int64_t last, std::int64_t first, Visit visit) const {
  if (!file_) return opened_;
  // Without the bound, a walk from far behind the end would read nothing for very long.
  const Result<std::int64_t> end = bytes_->NextRow();
  if (!end) return end.Why();
  BlockReader block(*file_, Blank(), first, std::min(last, *end));
  while (block.Previous()) {
    for (std::size_t i = block.Count(); i-- > 0;) {
      const auto number = block.First() + static_cast<std::int64_t>(i);
      if (!visit(number, R::Decode(Record(block.Record(i), R::kSize)))) return Outcome::Done();
    }
  }
  return block.Failure();
}

}  // namespace vintoral
