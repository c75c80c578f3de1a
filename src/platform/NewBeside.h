// A file that is written beside another one and then takes its place.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Descriptor.h"
#include "platform/PosixFile.h"

namespace vintoral {

/// What the new file is to hold: `before`, all of the old file where it is to be kept, and `after`. The texts
/// belong to somebody who outlives the file.
struct Content {
  std::string_view before;
  bool keepOld = false;
  std::string_view after;
};

/// Its steps may be taken on different threads, one after the other. A file that doesn't get as far as
/// TakePlace leaves nothing behind.
class NewBeside {
 public:
  /// `path` is the native path of the file itself: renaming over a link would put a file in its place.
  NewBeside(std::string path, const Content& content);
  NewBeside(const NewBeside&) = delete;
  NewBeside& operator=(const NewBeside&) = delete;
  /// What the old file took on the disk is freed here at the latest.
  ~NewBeside();

  /// Written and synced, with the permissions of the old file; refuses one that may not be written. Nobody
  /// sees it yet.
  Outcome Write();
  /// From here on readers see the new file.
  Outcome TakePlace();
  /// From here on a power cut leaves the new file, too.
  void SyncName() const;

 private:
  int OpenOld();
  int WriteUnnamed();
  int WriteNamed();
  /// Fills the file behind `descriptor`, which it takes, and syncs it.
  int Fill(int descriptor);
  Outcome WriteContent();
  bool GiveName();

  std::string path_, folder_, temporary_;
  Content content_;
  std::optional<Descriptor> old_;
  PendingSyncs none_;
  int descriptor_ = -1;            ///< of file_
  std::optional<PosixFile> file_;  ///< the new one
  bool named_ = false;             ///< it stands at temporary_
};

/// The path without links and relative parts; as given when it can't be followed.
std::string RealPath(const std::string& path);

}  // namespace vintoral
