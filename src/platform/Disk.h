// The file services that the registers need. One interface, so that tests can put a failing disk under a
// station.
//
// Paths are the station's own: Windows-1252 text, relative to the station's folder or absolute, with
// backslashes where a text shows one. The implementation turns them into paths of this system; names are
// found whatever their case, since the folders of customers come from systems that ignore it.
#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "common/Outcome.h"
#include "common/Result.h"
#include "common/String.h"
#include "platform/FileMark.h"

namespace vintoral {

/// The smallest piece that file systems give room for. A write inside one page is done whole or not at all;
/// one that goes on into another page can end between the two, when the disk is full or the process is
/// killed.
inline constexpr std::uint64_t kPage = 4096;

/// One open file. Closed when destroyed. Not shared between threads.
class DiskFile {
 public:
  virtual ~DiskFile() = default;
  /// Reads up to `into.size()` bytes at `offset`: the count read, fewer only at the end of the file.
  virtual Result<std::size_t> ReadAt(std::uint64_t offset, std::span<char> into) = 0;
  /// Writes all bytes or fails.
  virtual Outcome WriteAt(std::uint64_t offset, std::span<const char> bytes) = 0;
  /// In bytes.
  virtual Result<std::uint64_t> Length() = 0;
  /// Returns when all that was written would survive a power cut.
  virtual Outcome Sync() = 0;
  /// Makes room for the file to grow to `length` bytes without changing its length; done where the file
  /// system can't say.
  virtual Outcome Reserve(std::uint64_t length) = 0;
  /// Makes the file shorter. Refused without the append lock: another station may be in the middle of a row.
  virtual Outcome Cut(std::uint64_t length) = 0;
  /// Takes the append lock: an open-file-description lock beyond any data, waited for 100 ms, on a mount of
  /// a server 15 s. Without locks there, or when the wait runs out, the caller goes on; nothing is reported.
  virtual void LockAppend() = 0;
  virtual void UnlockAppend() = 0;
};

/// A file that is to take the place of another one. Destroyed without Commit it changes nothing.
class Replacement {
 public:
  virtual ~Replacement() = default;
  /// The new file is to hold `before`, all that the old one holds, and `after`. Once.
  virtual void PutAround(std::string_view before, std::string_view after) = 0;
  /// Once, behind PutAround; without it the error is EINVAL. Whatever failed so far is told here. A reader
  /// sees the old file before it and the new one after it, never half. What is seen has been synced; a power
  /// cut soon after may bring the old file back, whole, until Settle has returned.
  virtual Outcome Commit() = 0;

 protected:
  static Outcome NothingPut() { return Outcome::Failed("put nothing around", "a file", EINVAL); }
};

enum class OpenMode {
  kRead,       ///< must exist
  kReadWrite,  ///< must exist
  kCreate,     ///< made when missing
};

/// Files may be opened for reading, and read, by other threads too; all else belongs to the station's own.
class Disk {
 public:
  virtual ~Disk() = default;
  /// The station's folder as this system writes it.
  virtual String CurrentFolder() const = 0;
  /// A file, not a folder. Any error counts as no.
  virtual bool Exists(std::string_view path) const = 0;
  /// The mark of a file; nothing where Exists says no.
  virtual std::optional<FileMark> Look(std::string_view path) const = 0;
  /// The marks of files of one folder, in the order of `names`, which are looked for as they are written.
  virtual std::vector<std::optional<FileMark>> LookIn(std::string_view folder,
                                                      std::span<const String> names) const;
  /// Some program has the file open for writing. Where the system can't tell, on a share and of a file that
  /// belongs to somebody else, one that was changed within the last ten seconds counts as such.
  virtual bool BeingWritten(std::string_view path) const = 0;
  virtual Result<std::unique_ptr<DiskFile>> Open(std::string_view path, OpenMode mode) = 0;
  /// The whole file.
  virtual Result<String> ReadAll(std::string_view path) = 0;
  /// Replaces the whole file: written beside, synced, renamed over. A reader sees the old or the new, never
  /// half.
  virtual Outcome Replace(std::string_view path, std::string_view bytes) = 0;
  /// The same without waiting for the disk: a power cut soon after may bring the old file back, or leave a
  /// file of no length.
  virtual Outcome ReplaceUnsynced(std::string_view path, std::string_view bytes) {
    return Replace(path, bytes);
  }
  /// Whether such a power cut leaves the old file or the new one, whole: not every file system has a file's
  /// bytes on the disk before its name.
  virtual bool LeavesOldOrNew(std::string_view /*path*/) const { return false; }
  /// Another one each time the machine is started; empty where that is not known.
  virtual String BootId() const { return {}; }
  /// Begins to replace the whole file; one that is missing holds nothing. One at a time for each file, and
  /// the disk outlives it. A real disk never has the whole in memory, and works while the station goes on;
  /// others do all of it in Commit.
  virtual std::unique_ptr<Replacement> BeginReplacement(std::string_view path);
  /// Returns when nothing is left to do behind a Commit, nor of what was given to Behind.
  virtual void Settle() {}
  /// Makes a file that did not exist: readers see none or all of it. Nothing is changed, and the error is
  /// EEXIST, when there is anything of that name. It is not synced: a power cut soon after may lose it.
  virtual Outcome CreateNew(std::string_view path, std::string_view bytes) = 0;
  /// A copy under another name, in place of what stood there: readers see the old or the new, never half. Not
  /// synced, as CreateNew.
  virtual Outcome Copy(std::string_view from, std::string_view to);
  /// Has `work` make the files of `paths`, beside the station where the disk can. It uses CreateNew and Copy,
  /// doesn't throw and tells of its failures itself. Whoever asks for one of the files later by its path, or
  /// for a folder, waits for it; LookIn doesn't.
  // NOLINTNEXTLINE(performance-unnecessary-value-param): the disk that works beside keeps them
  virtual void Behind(std::vector<String> /*paths*/, const std::function<void(Disk&)>& work) { work(*this); }
  /// Nothing is left of such work.
  virtual bool NothingBehind() const { return true; }
  /// Does nothing when the folder is there already.
  virtual Outcome CreateFolder(std::string_view path) = 0;
  /// A folder, or a link to one. Any error counts as no.
  virtual bool FolderExists(std::string_view path) const = 0;
  /// A file or a folder gets another name, in another folder where that says so; refused (EEXIST) where there
  /// is anything of that name. A link is moved itself. Files alone may come from another file system.
  virtual Outcome Move(std::string_view from, std::string_view to) = 0;
  /// A folder with all that lies in it, under a name that nothing has; links are left out. What could not be
  /// copied is missing from the copy, and the first failure is told.
  virtual Outcome CopyFolder(std::string_view from, std::string_view to) = 0;
  /// A folder with all that lies in it; what links in it lead to stays.
  virtual Outcome RemoveFolder(std::string_view path) = 0;
  /// The name leads to a file or a folder elsewhere.
  virtual bool IsLink(std::string_view path) const = 0;
  virtual Outcome Remove(std::string_view path) = 0;
  /// Lets the owner write the file again; done when it is missing.
  virtual Outcome ClearReadOnly(std::string_view path) = 0;
  /// Until EndTogether, Sync of a file opened here only begins to sync it, and EndTogether returns when all
  /// are on disk. A disk that has no such way syncs each when it is asked.
  virtual void BeginTogether() {}
  virtual Outcome EndTogether() { return Outcome::Done(); }
  /// Names of the files in `folder` that end in `ending` (case ignored), in alphabetical order.
  virtual std::vector<String> List(std::string_view folder, std::string_view ending) const = 0;
  /// Names of the folders in `folder`, links to folders left out, in no particular order.
  virtual std::vector<String> ListFolders(std::string_view folder) const = 0;
};

/// The files that belong to one fact (a slot freed, its row in the history) are waited for once instead of
/// one after the other, and what needs no disk is done meanwhile.
class SyncTogether {
 public:
  explicit SyncTogether(Disk& disk) : disk_(&disk) { disk.BeginTogether(); }
  SyncTogether(const SyncTogether&) = delete;
  SyncTogether& operator=(const SyncTogether&) = delete;
  ~SyncTogether() { Finish().PassOver(); }
  /// Returns when all is on disk; the first failure where there is one.
  Outcome Finish() {
    Disk* const disk = std::exchange(disk_, nullptr);
    return disk != nullptr ? disk->EndTogether() : Outcome::Done();
  }

 private:
  Disk* disk_;
};

}  // namespace vintoral
