// A disk over another one that fails as it is told: full, read-only, torn, unplugged.
#pragma once

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <optional>

#include "platform/Disk.h"

namespace vintoral::test {

/// What goes wrong. May be changed at any time, files that are open already included. Counts go down as the
/// operations pass; each is 1 for "the next one" and 0 for "none".
struct Faults {
  int failWrite = 0;           ///< this WriteAt, Replace or CreateNew fails once
  bool failAllWrites = false;  ///< every WriteAt, Replace, CreateNew and Reserve fails
  int writeError = ENOSPC;
  /// A WriteAt that fails has put this many of its bytes, as on a disk that filled up on the way.
  std::size_t tornBytes = 0;
  int failRead = 0;  ///< this ReadAt or ReadAll fails once with EIO
  bool failReserve = false;
  bool failSync = false;
  bool failLength = false;
  std::optional<bool> existsSays = {};  ///< whatever is really there
  bool openReadOnly = false;            ///< files open for reading alone, and may not be replaced or made
  /// Files seem to end here.
  std::uint64_t cutAt = std::numeric_limits<std::uint64_t>::max();
  /// After this many more operations of any kind, the folder is gone: everything fails with ENOTCONN until
  /// this is set anew.
  int goneAfter = std::numeric_limits<int>::max();
};

class FaultyDisk final : public Disk {
 public:
  explicit FaultyDisk(Disk& disk) : disk_(disk) {}

  Faults& Set() { return *faults_; }
  /// Operations of any kind so far, those that failed included.
  int Operations() const { return *operations_; }
  /// Nothing fails from here on.
  void Repair() { *faults_ = {}; }

  String CurrentFolder() const override { return disk_.CurrentFolder(); }
  bool Exists(std::string_view path) const override {
    if (Gone()) return false;
    return faults_->existsSays.value_or(disk_.Exists(path));
  }
  std::optional<FileMark> Look(std::string_view path) const override {
    if (Gone() || !faults_->existsSays.value_or(true)) return std::nullopt;
    return disk_.Look(path);
  }
  bool BeingWritten(std::string_view path) const override { return disk_.BeingWritten(path); }
  Result<std::unique_ptr<DiskFile>> Open(std::string_view path, OpenMode mode) override {
    if (Gone()) return Error(ENOTCONN);
    if (faults_->openReadOnly && mode != OpenMode::kRead) return Error(EACCES);
    Result<std::unique_ptr<DiskFile>> file = disk_.Open(path, mode);
    if (!file) return file;
    return Result<std::unique_ptr<DiskFile>>(std::make_unique<File>(file.Take(), faults_, operations_));
  }
  Result<String> ReadAll(std::string_view path) override {
    if (Gone()) return Error(ENOTCONN);
    if (Due(faults_->failRead)) return Outcome::Failed("read", path, EIO);
    const Result<String> bytes = disk_.ReadAll(path);
    if (!bytes) return bytes;
    return Left(*bytes, static_cast<std::size_t>(faults_->cutAt));
  }
  Outcome Replace(std::string_view path, std::string_view bytes) override {
    const Outcome refused = RefusesNew();
    return refused ? disk_.Replace(path, bytes) : refused;
  }
  Outcome ReplaceUnsynced(std::string_view path, std::string_view bytes) override {
    const Outcome refused = RefusesNew();
    return refused ? disk_.ReplaceUnsynced(path, bytes) : refused;
  }
  bool LeavesOldOrNew(std::string_view path) const override { return disk_.LeavesOldOrNew(path); }
  String BootId() const override { return disk_.BootId(); }
  Outcome CreateNew(std::string_view path, std::string_view bytes) override {
    const Outcome refused = RefusesNew();
    return refused ? disk_.CreateNew(path, bytes) : refused;
  }
  Outcome CreateFolder(std::string_view path) override {
    if (Gone()) return Error(ENOTCONN);
    return faults_->failAllWrites ? Error(faults_->writeError) : disk_.CreateFolder(path);
  }
  Outcome Remove(std::string_view path) override { return Gone() ? Error(ENOTCONN) : disk_.Remove(path); }
  bool FolderExists(std::string_view path) const override { return !Gone() && disk_.FolderExists(path); }
  Outcome Move(std::string_view from, std::string_view to) override {
    if (Gone()) return Error(ENOTCONN);
    return faults_->failAllWrites ? Error(faults_->writeError) : disk_.Move(from, to);
  }
  Outcome CopyFolder(std::string_view from, std::string_view to) override {
    if (Gone()) return Error(ENOTCONN);
    return faults_->failAllWrites ? Error(faults_->writeError) : disk_.CopyFolder(from, to);
  }
  Outcome RemoveFolder(std::string_view path) override {
    return Gone() ? Error(ENOTCONN) : disk_.RemoveFolder(path);
  }
  bool IsLink(std::string_view path) const override { return disk_.IsLink(path); }
  Outcome ClearReadOnly(std::string_view path) override {
    return Gone() ? Error(ENOTCONN) : disk_.ClearReadOnly(path);
  }
  void BeginTogether() override {
    ++together_;
    disk_.BeginTogether();
  }
  /// Something that was written may still be on its way to the disk.
  bool Pending() const { return together_ > 0; }
  Outcome EndTogether() override {
    --together_;
    Outcome ended = disk_.EndTogether();
    if (Gone()) return Error(ENOTCONN);
    return faults_->failSync ? Error(EIO) : ended;
  }
  std::vector<String> List(std::string_view folder, std::string_view ending) const override {
    return Gone() ? std::vector<String>{} : disk_.List(folder, ending);
  }
  std::vector<String> ListFolders(std::string_view folder) const override {
    return Gone() ? std::vector<String>{} : disk_.ListFolders(folder);
  }

 private:
  static Outcome Error(int error) { return Outcome::Failed("use", "a faulty disk", error); }
  static bool Due(int& countdown) { return countdown > 0 && --countdown == 0; }
  static bool FailsWrite(Faults& faults) { return Due(faults.failWrite) || faults.failAllWrites; }
  static bool CountDown(Faults& faults, int& operations) {
    ++operations;
    if (faults.goneAfter == std::numeric_limits<int>::max()) return false;
    return faults.goneAfter <= 0 || faults.goneAfter-- <= 0;
  }
  bool Gone() const { return CountDown(*faults_, *operations_); }
  /// Of a whole file that is made or replaced.
  Outcome RefusesNew() {
    if (Gone()) return Error(ENOTCONN);
    if (faults_->openReadOnly) return Error(EACCES);
    return FailsWrite(*faults_) ? Error(faults_->writeError) : Outcome::Done();
  }

  class File final : public DiskFile {
   public:
    File(std::unique_ptr<DiskFile> file, std::shared_ptr<Faults> faults, std::shared_ptr<int> operations)
        : file_(std::move(file)), faults_(std::move(faults)), operations_(std::move(operations)) {}

    Result<std::size_t> ReadAt(std::uint64_t offset, std::span<char> into) override {
      if (Gone()) return Error(ENOTCONN);
      if (Due(faults_->failRead)) return Error(EIO);
      const std::uint64_t left = faults_->cutAt - std::min(offset, faults_->cutAt);
      return file_->ReadAt(offset, into.first(std::min<std::uint64_t>(left, into.size())));
    }
    Outcome WriteAt(std::uint64_t offset, std::span<const char> bytes) override {
      if (Gone()) return Error(ENOTCONN);
      if (!FailsWrite(*faults_)) return file_->WriteAt(offset, bytes);
      const std::size_t torn = std::min(faults_->tornBytes, bytes.size());
      if (torn > 0) file_->WriteAt(offset, bytes.first(torn)).PassOver();
      return Error(faults_->writeError);
    }
    Result<std::uint64_t> Length() override {
      if (Gone()) return Error(ENOTCONN);
      if (faults_->failLength) return Error(EIO);
      const Result<std::uint64_t> length = file_->Length();
      if (!length) return length;
      return std::min(*length, faults_->cutAt);
    }
    Outcome Sync() override {
      if (Gone()) return Error(ENOTCONN);
      return faults_->failSync ? Error(EIO) : file_->Sync();
    }
    Outcome Cut(std::uint64_t length) override {
      return faults_->failAllWrites ? Error(faults_->writeError) : file_->Cut(length);
    }
    Outcome Reserve(std::uint64_t length) override {
      if (Gone()) return Error(ENOTCONN);
      const bool fails = faults_->failReserve || faults_->failAllWrites;
      return fails ? Error(faults_->writeError) : file_->Reserve(length);
    }
    void LockAppend() override { file_->LockAppend(); }
    void UnlockAppend() override { file_->UnlockAppend(); }

   private:
    bool Gone() { return CountDown(*faults_, *operations_); }

    std::unique_ptr<DiskFile> file_;
    std::shared_ptr<Faults> faults_;
    std::shared_ptr<int> operations_;
  };

  Disk& disk_;
  int together_ = 0;
  std::shared_ptr<Faults> faults_ = std::make_shared<Faults>();
  std::shared_ptr<int> operations_ = std::make_shared<int>(0);
};

}  // namespace vintoral::test
