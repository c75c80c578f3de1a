#include "unit/platform/pictures/JpegFiles.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

// After <cstdio>, whose types it needs.
#include <jpeglib.h>

namespace vintoral::test {
namespace {

void Describe(jpeg_compress_struct& info, const JpegFile& wanted) {
  info.image_width = static_cast<JDIMENSION>(wanted.width);
  info.image_height = static_cast<JDIMENSION>(wanted.height);
  info.input_components = wanted.components;
  info.in_color_space = wanted.components == 1 ? JCS_GRAYSCALE : wanted.components == 3 ? JCS_RGB : JCS_CMYK;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 95, TRUE);
  info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
  if (!wanted.adobe) info.write_Adobe_marker = FALSE;
  if (wanted.progressive) jpeg_simple_progression(&info);
}

void WriteRows(jpeg_compress_struct& info, const JpegFile& wanted) {
  const auto components = static_cast<std::size_t>(wanted.components);
  Bytes row(components * static_cast<std::size_t>(wanted.width));
  for (int y = 0; y < wanted.height; ++y) {
    for (int x = 0; x < wanted.width; ++x) {
      const std::array<std::uint8_t, 4> values = wanted.at(x, y);
      for (std::size_t i = 0; i < components; ++i)
        row[static_cast<std::size_t>(x) * components + i] = values[i];
    }
    JSAMPROW from = row.data();
    jpeg_write_scanlines(&info, &from, 1);
  }
}

}  // namespace

Bytes MakeJpeg(const JpegFile& wanted) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* file = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &file, &size);
  Describe(info, wanted);
  jpeg_start_compress(&info, TRUE);
  if (!wanted.app1.empty())
    jpeg_write_marker(&info, JPEG_APP0 + 1, wanted.app1.data(), static_cast<unsigned>(wanted.app1.size()));
  WriteRows(info, wanted);
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  Bytes bytes(file, file + size);
  std::free(file);
  return bytes;
}

Bytes RedAndBlue(JpegFile wanted) {
  wanted.at = [half = wanted.width / 2](int x, int) -> std::array<std::uint8_t, 4> {
    if (x < half) return {255, 0, 0, 0};
    return {0, 0, 255, 0};
  };
  return MakeJpeg(wanted);
}

Bytes ExifOf(std::uint8_t orientation) {
  return {'E',  'x',  'i', 'f', 0, 0, 'I', 'I', 42,          0, 8, 0, 0, 0,  // where the first folder lies
          1,    0,                                                           // of one entry
          0x12, 0x01, 3,   0,   1, 0, 0,   0,   orientation, 0, 0, 0,        // the tag, one short number
          0,    0,    0,   0};                                               // no other folder
}

}  // namespace vintoral::test
