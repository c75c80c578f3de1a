// A file that is written beside another one and then takes its place.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Descriptor.h"
#include "platform/PosixFile.h"

namespace vintoral {

/// Its steps may be taken on different threads, one after the other. A file that doesn't get as far as
/// TakePlace leaves nothing behind.
class NewBeside {
 public:
  enum class Old { kDropped, kKept };
  enum class Sync { kWithWrite, kNever };
  /// `path` is the native path of the file itself: renaming over a link would put a file in its place.
  NewBeside(std::string path, Old old, Sync sync = Sync::kWithWrite);
  NewBeside(const NewBeside&) = delete;
  NewBeside& operator=(const NewBeside&) = delete;
  /// What the old file took on the disk is freed here at the latest.
  ~NewBeside();

  /// The new file, empty, with the permissions of the old one; refuses where that may not be written.
  Outcome Open();
  /// `before`, all that the old file holds where it is kept, and `after`; synced where the constructor was
  /// told so. Nobody sees it yet. The texts are not copied, and stay until TakePlace has returned.
  Outcome Write(std::string_view before, std::string_view after);
  /// From here on readers see the new file.
  Outcome TakePlace();
  /// From here on a power cut leaves the new file, too.
  void SyncName() const;

 private:
  int OpenOld();
  int OpenUnnamed();
  int OpenNamed();
  void Take(int descriptor);
  Outcome WriteContent();
  bool GiveName();

  std::string path_, folder_, temporary_;
  Old keeping_;
  Sync syncing_;
  std::optional<Descriptor> old_;
  std::string_view before_, after_;
  PendingSyncs none_;
  int descriptor_ = -1;            ///< of file_
  std::optional<PosixFile> file_;  ///< the new one
  bool named_ = false;             ///< it stands at temporary_
};

/// The path without links and relative parts; as given when it can't be followed.
std::string RealPath(const std::string& path);

}  // namespace vintoral
