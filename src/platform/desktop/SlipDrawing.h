// A slip that has its places becomes a PDF, the one format that every queue takes. Runs on the printer's own
// thread: painting on anything but widgets, and the font database, may be used there.
#pragma once

#include <QByteArray>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Pictures.h"
#include "platform/desktop/SlipLayout.h"

namespace vintoral {

/// The files that a slip is drawn with. Whoever reads may hang in one of them when the station has gone, so
/// both own what they use.
struct SlipFiles {
  /// A station path as a path of this system (UTF-8).
  std::function<std::string(std::string_view)> fileOf;
  /// The picture at a station path.
  std::function<DecodedPicture(std::string_view, const PicturePlace&)> load;
};

/// All that a slip needs beside itself.
struct SlipMaterial {
  std::map<const PrintOperation*, std::shared_ptr<const cImage>> pictures;
  std::map<std::string, QByteArray, std::less<>> types;  ///< the files of the types, by station path
};

/// Reads what the document names; may wait for a share. What can't be read is told of in one line on standard
/// error, and is not there.
SlipMaterial Gather(const PrintDocument& document, const SlipFiles& files);

/// The pages of a slip with their types in them. What is not there leaves its place empty.
QByteArray DrawSlip(const SlipLayout& layout, const SlipMaterial& material);

}  // namespace vintoral
