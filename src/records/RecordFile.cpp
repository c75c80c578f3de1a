#include "records/RecordFile.h"

#include <algorithm>
#include <cerrno>

namespace vintoral {
namespace {

std::uint64_t OffsetOf(std::int64_t number, std::size_t size) {
  return static_cast<std::uint64_t>(number - 1) * size;
}

/// What `record` lacks behind its first `got` bytes is taken from `blank`.
void Complete(std::span<char> record, std::size_t got, std::span<const char> blank) {
  std::copy(blank.begin() + static_cast<std::ptrdiff_t>(got), blank.end(),
            record.begin() + static_cast<std::ptrdiff_t>(got));
}

/// As many blank records as are written at a time.
std::vector<char> BlankRecords(std::span<const char> blank) {
  const std::size_t count = std::max<std::size_t>(BlockReader::kBlock / blank.size(), 1);
  std::vector<char> blanks;
  blanks.reserve(count * blank.size());
  for (std::size_t i = 0; i < count; ++i)
    blanks.insert(blanks.end(), blank.begin(), blank.end());
  return blanks;
}

}  // namespace

Result<std::uint64_t> RecordFile::Measure() const {
  Result<std::uint64_t> length = file_.Length();
  if (length) reaches_ = *length;
  return length;
}

Result<std::int64_t> RecordFile::Count() const {
  const Result<std::uint64_t> length = Measure();
  if (!length) return length.Why();
  return static_cast<std::int64_t>(*length / blank_.size());
}

Outcome RecordFile::Read(std::int64_t number, std::span<char> record) const {
  if (number < 1) return Outcome::Failed("read record", std::to_string(number), EINVAL);
  std::size_t got = 0;
  if (number <= kMostRecords) {
    const Result<std::size_t> read = file_.ReadAt(OffsetOf(number, blank_.size()), record);
    if (!read) return read.Why();
    got = *read;
    if (got > 0) reaches_ = std::max(reaches_, OffsetOf(number, blank_.size()) + got);
  }
  Complete(record, got, blank_);
  return Outcome::Done();
}

Outcome RecordFile::Write(std::int64_t number, std::span<const char> record) {
  if (number < 1 || number > kMostRecords)
    return Outcome::Failed("write record", std::to_string(number), EINVAL);
  const std::uint64_t offset = OffsetOf(number, blank_.size());
  Outcome reached = ReachTo(offset);
  return reached ? file_.WriteAt(offset, record) : reached;
}

Outcome RecordFile::ReachTo(std::uint64_t offset) {
  if (offset <= reaches_) return Outcome::Done();
  const Result<std::uint64_t> length = Measure();
  if (!length) return length.Why();
  return offset > *length ? FillGap(offset) : Outcome::Done();
}

Outcome RecordFile::FillGap(std::uint64_t until) {
  // Under the lock, so that a row that another station appends meanwhile isn't blanked.
  const AppendLock lock(file_);
  const Result<std::uint64_t> length = file_.Length();
  if (!length) return length.Why();
  if (*length >= until) return Outcome::Done();
  if (until - *length > kLongestGap) return Outcome::Failed("write a record far beyond", "a register", EFBIG);
  // The first one may begin inside a torn record.
  const std::vector<char> blanks = BlankRecords(blank_);
  std::size_t from = *length % blank_.size();
  for (std::uint64_t at = *length; at < until;) {
    const std::size_t wanted = std::min<std::uint64_t>(until - at, blanks.size() - from);
    Outcome written = file_.WriteAt(at, std::span(blanks).subspan(from, wanted));
    if (!written) return written;
    at += wanted;
    from = 0;
  }
  return Outcome::Done();
}

Result<std::int64_t> RecordFile::NextRow() const {
  const Result<std::int64_t> count = Count();
  if (!count) return count.Why();
  return *count + 1;
}

Result<bool> RecordFile::EndsInACutRow() const {
  const Result<std::uint64_t> length = file_.Length();
  if (!length) return length.Why();
  return *length % kPage == 0 && *length % blank_.size() != 0;
}

Outcome RecordFile::DropCutRow() {
  // Another station may just be between its two pages.
  const AppendLock lock(file_);
  const Result<bool> cut = EndsInACutRow();
  if (!cut || !*cut) return cut.Why();
  const Result<std::int64_t> whole = Count();
  return whole ? file_.Cut(static_cast<std::uint64_t>(*whole) * blank_.size()) : whole.Why();
}

BlockReader::BlockReader(DiskFile& file, std::span<const char> blank, std::int64_t first, std::int64_t last)
    : file_(file),
      blank_(blank),
      first_(std::max<std::int64_t>(first, 1)),
      last_(std::min(last, RecordFile::kMostRecords)),
      capacity_(std::max<std::size_t>(kBlock / blank.size(), 1)) {
  if (first_ <= last_) {
    capacity_ = static_cast<std::size_t>(
        std::min<std::int64_t>(static_cast<std::int64_t>(capacity_), last_ - first_ + 1));
  }
  bytes_ = std::make_unique_for_overwrite<char[]>(capacity_ * blank.size());
}

bool BlockReader::Next() {
  if (ended_ || !failure_ || first_ > last_) return false;
  const auto count = static_cast<std::size_t>(
      std::min<std::int64_t>(last_ - first_ + 1, static_cast<std::int64_t>(capacity_)));
  if (!Load(first_, count)) return false;
  ended_ = count_ < count;
  first_ += static_cast<std::int64_t>(count);
  return count_ > 0;
}

bool BlockReader::Previous() {
  while (failure_ && first_ <= last_) {
    const auto count = static_cast<std::size_t>(
        std::min<std::int64_t>(last_ - first_ + 1, static_cast<std::int64_t>(capacity_)));
    last_ -= static_cast<std::int64_t>(count);
    if (!Load(last_ + 1, count)) return false;
    // The file may have ended before this block.
    if (count_ > 0) return true;
  }
  return false;
}

bool BlockReader::Load(std::int64_t first, std::size_t count) {
  const std::size_t size = blank_.size();
  const std::span<char> into(bytes_.get(), count * size);
  const Result<std::size_t> got = file_.ReadAt(OffsetOf(first, size), into);
  failure_ = got.Why();
  if (!got) return false;
  blockFirst_ = first;
  count_ = *got / size;
  if (const std::size_t torn = *got % size; torn != 0) {
    Complete(into.subspan(count_ * size, size), torn, blank_);
    ++count_;
  }
  return true;
}

}  // namespace vintoral
