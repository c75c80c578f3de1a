// Station paths and the paths of this system.
#pragma once

#include <string>
#include <string_view>

#include "common/String.h"

namespace vintoral {

/// The station's text as a path of this system: UTF-8, slashes, no two of them in a row and none at the end.
/// Pure: looks at no disk. A text with a zero byte names nothing and gives "".
std::string NativePath(std::string_view stationPath);

/// The folder that holds the file at an absolute `path`; "/" for what lies in it.
std::string FolderOf(const std::string& path);

/// Whether the last name of `path` begins with a digit. Such a file is a photo: it has one spelling, and its
/// folder is too long to be searched.
bool HasOneSpelling(std::string_view path);

/// A file name of this system as station text. Names that are no UTF-8 come from a folder that another system
/// wrote, and are Windows-1252 already.
String StationName(std::string_view nativeName);

/// `path` if it exists, else the path with the same names in other case that does. Names are compared as the
/// station sees them, so a "?" finds the character that Windows-1252 lacks. Where nothing fits, the rest of
/// `path` stays as it is. Of several names that differ in case alone, the first in the order of their bytes.
/// What has one spelling is not searched for.
std::string FindIgnoringCase(const std::string& path);
/// The same for a path that is known to be missing as written.
std::string FindOtherCase(const std::string& path);

}  // namespace vintoral
