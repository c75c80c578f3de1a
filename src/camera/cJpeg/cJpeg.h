#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "camera/cImage/Pixels.h"
#include "camera/cJpeg/ColourPlanes.h"
#include "camera/cJpeg/Layout.h"
#include "camera/cJpeg/QuantizationTable.h"

namespace vintoral {

// Makes baseline JPEG files (ITU-T T.81, in the JFIF container of ITU-T T.871), with Huffman tables fitted to
// each picture. A picture whose palette holds greys alone gives one component, any other gives Y, Cb and Cr.
//
// The same picture and settings give the same bytes, on every machine. Misuse is raised as cJpegError
// (cJpegError.h).
class cJpeg {
 public:
  cJpeg() { Quality(75); }

  // 1 to 100; any other value changes nothing.
  int Quality() const { return quality_; }
  void Quality(int quality);

  // Throws "Invalid Sampling Value", and keeps what was set, if one is outside 1 to 4. Where the blocks of a
  // unit, the sum of H times V, are more than the ten that the standard lets be interleaved, the file has a
  // scan for each component, with tables of its own, instead of one for all. A grey picture has no use for
  // factors.
  void SetSamplingFrequencies(int h1, int v1, int h2, int v2, int h3, int v3);

  // Goes into the file as it is, before the encoder's own comment, unless empty. Throws "Illegal Comment
  // Length", and keeps the old one, above 65533 bytes.
  const std::string& Comment() const { return comment_; }
  void Comment(std::string_view comment);

  // Takes the pixels of a rectangle; the picture is not needed afterwards, and settings may still change.
  // False, and nothing is held, if the rectangle has no area, is longer than 65500 on a side or is not wholly
  // inside the picture, or if there is no memory for it.
  [[nodiscard]] bool SampleHDC(const PixelView& picture, int width, int height, int left = 0, int top = 0);

  // Has something been sampled?
  bool HasPicture() const { return !planes_.IsEmpty(); }

  // The whole file; empty if nothing has been sampled or there is no memory for it.
  std::vector<std::uint8_t> Encode() const;

 private:
  int quality_ = 0;
  SamplingFactors factors_ = {{{2, 2}, {1, 1}, {1, 1}}};
  std::string comment_;
  QuantizationTable luminance_, chrominance_;
  ColourPlanes planes_;
};

}  // namespace vintoral
