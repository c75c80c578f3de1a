// The disk of this system: POSIX calls below one folder, the station's.
#pragma once

#include <string>

#include "platform/Disk.h"
#include "platform/FilesBehind.h"
#include "platform/PendingSyncs.h"
#include "platform/WorkBeside.h"

namespace vintoral {

class PosixDisk final : public Disk {
 public:
  /// What becomes of the work given to Behind: a window goes on at once; who looks at the folder from outside
  /// after each step needs it done by then.
  enum class Work { kAtOnce, kBeside };
  /// `folder` is a path of this system and is kept as such: it may hold characters that Windows-1252 lacks.
  /// Where station text begins with CurrentFolder(), that part stands for this folder whatever became of such
  /// characters. A relative folder is taken from the process's own, now.
  explicit PosixDisk(std::string folder, Work work = Work::kAtOnce);

  String CurrentFolder() const override;
  /// A regular file, or a link to one; a folder is none.
  bool Exists(std::string_view path) const override;
  std::optional<FileMark> Look(std::string_view path) const override;
  /// The folder is found once for all of them. Where it lies on a server, several are looked at at a time.
  std::vector<std::optional<FileMark>> LookIn(std::string_view folder,
                                              std::span<const String> names) const override;
  bool BeingWritten(std::string_view path) const override;
  /// Refuses whatever is no regular file, without waiting for the other end of a pipe. A file made by it is
  /// synced into its folder with its first Sync.
  Result<std::unique_ptr<DiskFile>> Open(std::string_view path, OpenMode mode) override;
  Result<String> ReadAll(std::string_view path) override;
  /// Keeps the permissions of the file that was there; refuses one that may not be written.
  Outcome Replace(std::string_view path, std::string_view bytes) override;
  Outcome ReplaceUnsynced(std::string_view path, std::string_view bytes) override;
  /// On ext4, which writes the bytes of a file that takes another one's place before its name.
  bool LeavesOldOrNew(std::string_view path) const override;
  String BootId() const override;
  /// Opened, written and synced beside the station's thread, which waits for it in Commit. Left behind that
  /// are the sync of the new file's name and the freeing of the old file; the next Commit waits for them too.
  std::unique_ptr<Replacement> BeginReplacement(std::string_view path) override;
  void Settle() override;
  void Behind(std::vector<String> paths, const std::function<void(Disk&)>& work) override;
  bool NothingBehind() const override;
  /// A link that leads nowhere is something of that name too.
  Outcome CreateNew(std::string_view path, std::string_view bytes) override;
  Outcome Copy(std::string_view from, std::string_view to) override;
  Outcome CreateFolder(std::string_view path) override;
  bool FolderExists(std::string_view path) const override;
  Outcome Move(std::string_view from, std::string_view to) override;
  Outcome CopyFolder(std::string_view from, std::string_view to) override;
  Outcome RemoveFolder(std::string_view path) override;
  bool IsLink(std::string_view path) const override;
  Outcome Remove(std::string_view path) override;
  Outcome ClearReadOnly(std::string_view path) override;
  /// Hidden names (a leading point) are left out. A name with characters that Windows-1252 lacks has "?" for
  /// them, and is found by it.
  std::vector<String> List(std::string_view folder, std::string_view ending) const override;
  std::vector<String> ListFolders(std::string_view folder) const override;

  void BeginTogether() override;
  Outcome EndTogether() override;

  /// The path of this system for station text: exact as the text says, not looked up on the disk.
  std::string PathOf(std::string_view path) const;

 private:
  /// Returns when the file is there that may still be made.
  void AwaitFile(std::string_view path) const;
  void AwaitAllFiles() const;
  /// The file that is meant, whatever the case of its name, and not a link to it.
  std::string FileItself(std::string_view path) const;

  std::string folder_;
  String currentFolder_;  ///< folder_ as station text
  PendingSyncs pending_;
  std::unique_ptr<FilesBehind> behind_;  ///< null where such work is done at once
  WorkBeside beside_;                    ///< the last one, since its work uses the others
};

}  // namespace vintoral
