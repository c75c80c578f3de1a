// Files of this system that get their name when they are whole. Paths are native; results are 0 or the
// system's errno, EEXIST when there is anything of that name, a link that leads nowhere included.
#pragma once

#include <string>
#include <string_view>

namespace vintoral {

/// Makes a file that did not exist. One that could not be written whole leaves nothing behind.
int WriteNewFile(const std::string& path, std::string_view bytes);
/// All that `source` holds (a descriptor) as the file at `path`, in place of one that stands there.
int WriteCopy(const std::string& path, int source);

/// A file or a folder gets the name `to`.
int MoveFile(const std::string& from, const std::string& to);

// The steps that it takes, as file systems differ in what they know.

/// Without any name until it is whole: a station that is killed leaves nothing behind either.
int WriteUnnamed(const std::string& path, std::string_view bytes);
/// Under a hidden name beside it until it is whole.
int WriteHidden(const std::string& path, std::string_view bytes);
/// For file systems that can't rename without replacing: looks, then renames. A file that another gate makes
/// in between is replaced.
int RenameUnlessTaken(const std::string& from, const std::string& to);

}  // namespace vintoral
