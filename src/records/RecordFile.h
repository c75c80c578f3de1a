// A file of fixed-length records as bytes: what Register<R> does for every R, written once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "common/Outcome.h"
#include "common/Result.h"
#include "platform/Disk.h"

namespace vintoral {

/// Records `number`s count from 1. `blank` is an empty record as it stands on disk: its length is the record
/// length, and it gives the bytes that a torn or missing record lacks. It must outlive the file.
///
/// What is known of the file's length is not asked for again: on a mount that is a trip to the server. No
/// whole record is ever taken from the end of a register.
class RecordFile {
 public:
  RecordFile(DiskFile& file, std::span<const char> blank) : file_(file), blank_(blank) {}

  Result<std::int64_t> Count() const;
  /// Fills `record`. A `number` below 1 is refused.
  Outcome Read(std::int64_t number, std::span<char> record) const;
  /// Fills the gap with blank records when `number` lies beyond the end of the file.
  Outcome Write(std::int64_t number, std::span<const char> record);
  /// The number that the next appended record gets.
  Result<std::int64_t> NextRow() const;
  /// Whether the file ends in a part of a record, at the end of a page: what a process leaves that is killed
  /// while it writes a record across two pages. Such a row was never confirmed.
  Result<bool> EndsInACutRow() const;
  /// Removes such a part, under the append lock. Any other incomplete record stays.
  Outcome DropCutRow();

  /// No register is as long; what lies beyond is a damaged number.
  static constexpr std::int64_t kMostRecords = std::int64_t{1} << 40;
  /// A gap longer than this comes from a damaged number, and filling it would only fill the disk.
  static constexpr std::uint64_t kLongestGap = std::uint64_t{256} << 20;

 private:
  /// Fills the gap up to `offset` where there is one.
  Outcome ReachTo(std::uint64_t offset);
  Outcome FillGap(std::uint64_t until);
  /// The file's length now.
  Result<std::uint64_t> Measure() const;

  DiskFile& file_;
  std::span<const char> blank_;
  mutable std::uint64_t reaches_ = 0;  ///< bytes that the file is known to have, at least
};

/// Records `first` to `last` in blocks, forward or from the last one back.
class BlockReader {
 public:
  BlockReader(DiskFile& file, std::span<const char> blank, std::int64_t first, std::int64_t last);

  /// Reads the next records of the range; false when there are no more, or `Failure` tells why.
  bool Next();
  /// Reads the records before those of the last call, beginning at the end of the range.
  bool Previous();
  /// Done while the system has not failed.
  const Outcome& Failure() const { return failure_; }

  /// The records of the block, whole: what a torn one lacks is blank.
  std::int64_t First() const { return blockFirst_; }
  std::size_t Count() const { return count_; }
  const char* Record(std::size_t index) const { return bytes_.get() + index * blank_.size(); }

  /// Large enough that calls don't count, small enough to stay in the processor's own memory. As much as a
  /// mount asks its server for in one trip: 32 pages, into which this fits wherever in a page it begins.
  static constexpr std::size_t kBlock = 31 * kPage;

 private:
  bool Load(std::int64_t first, std::size_t count);

  DiskFile& file_;
  std::span<const char> blank_;
  std::int64_t first_;
  std::int64_t last_;
  std::size_t capacity_;
  std::unique_ptr<char[]> bytes_;
  std::int64_t blockFirst_ = 0;
  std::size_t count_ = 0;
  bool ended_ = false;
  Outcome failure_ = Outcome::Done();
};

/// Holds the append lock as long as it lives.
class AppendLock {
 public:
  explicit AppendLock(DiskFile& file) : file_(file) { file_.LockAppend(); }
  ~AppendLock() { file_.UnlockAppend(); }
  AppendLock(const AppendLock&) = delete;
  AppendLock& operator=(const AppendLock&) = delete;

 private:
  DiskFile& file_;
};

}  // namespace vintoral
