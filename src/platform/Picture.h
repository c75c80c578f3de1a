// A picture as a value: what a control shows and what a camera gives.
#pragma once

#include <memory>
#include <utility>

#include "camera/cImage/cImage.h"
#include "common/String.h"
#include "platform/FileMark.h"

namespace vintoral {

class Picture {
 public:
  /// Nothing.
  Picture() = default;
  /// The file at this station path; an empty path is nothing. A path is a picture wherever one is asked for.
  Picture(String path) : path_(std::move(path)) {}
  /// The file as it stood under its name when it was looked at: another photo of that name is another
  /// picture.
  Picture(String path, FileMark mark) : path_(std::move(path)), mark_(mark) {}
  /// Pixels that nobody changes any more, so that a live frame can be shown, stamped and stored without a
  /// copy; null is nothing.
  Picture(std::shared_ptr<const cImage> pixels) : pixels_(std::move(pixels)) {}

  bool Empty() const { return path_.Empty() && pixels_ == nullptr; }
  /// Empty unless the picture is a file.
  const String& Path() const { return path_; }
  /// All zeros where nobody looked.
  const FileMark& Mark() const { return mark_; }
  /// Null unless the picture is pixels.
  const std::shared_ptr<const cImage>& Pixels() const { return pixels_; }

  /// The same path with the same mark, or the very same pixels: comparing them one by one would cost more
  /// than showing them again.
  friend bool operator==(const Picture&, const Picture&) = default;

 private:
  String path_;
  FileMark mark_;
  std::shared_ptr<const cImage> pixels_;
};

}  // namespace vintoral
