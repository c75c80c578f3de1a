#include "unit/camera/LibJpeg.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

// After <cstdio>, whose types it needs.
#include <jpeglib.h>

namespace vintoral::made {

namespace {

void Collect(j_common_ptr info, int level) {
  if (level >= 0) return;  // -1 is a warning, the rest tracing
  char text[JMSG_LENGTH_MAX];
  info->err->format_message(info, text);
  static_cast<std::vector<std::string>*>(info->client_data)->push_back(text);
}

[[noreturn]] void Fail(j_common_ptr info) {
  char text[JMSG_LENGTH_MAX];
  info->err->format_message(info, text);
  throw std::runtime_error(text);
}

// Owns a decompressor that has read the header of a file.
class Decompressor {
 public:
  Decompressor(const std::vector<std::uint8_t>& file, std::vector<std::string>& complaints) {
    info.err = jpeg_std_error(&errors_);
    errors_.error_exit = Fail;
    errors_.emit_message = Collect;
    info.client_data = &complaints;
    jpeg_create_decompress(&info);
    info.client_data = &complaints;
    jpeg_save_markers(&info, JPEG_COM, 0xFFFF);
    jpeg_mem_src(&info, file.data(), file.size());
    jpeg_read_header(&info, TRUE);
  }
  ~Decompressor() { jpeg_destroy_decompress(&info); }
  Decompressor(const Decompressor&) = delete;
  Decompressor& operator=(const Decompressor&) = delete;

  jpeg_decompress_struct info{};

 private:
  jpeg_error_mgr errors_{};
};

void ReadPixels(jpeg_decompress_struct& info, DecodedJpeg& decoded) {
  info.dct_method = JDCT_ISLOW;
  if (info.num_components == 3) info.out_color_space = JCS_EXT_BGR;
  jpeg_start_decompress(&info);
  const std::size_t row = std::size_t{info.output_width} * static_cast<std::size_t>(info.output_components);
  decoded.pixels.resize(row * info.output_height);
  while (info.output_scanline < info.output_height) {
    JSAMPROW to = decoded.pixels.data() + row * info.output_scanline;
    jpeg_read_scanlines(&info, &to, 1);
  }
  jpeg_finish_decompress(&info);
}

}  // namespace

DecodedJpeg DecodeWithLibJpeg(const std::vector<std::uint8_t>& file) {
  DecodedJpeg decoded;
  try {
    Decompressor decompressor(file, decoded.complaints);
    jpeg_decompress_struct& info = decompressor.info;
    decoded.width = static_cast<int>(info.image_width);
    decoded.height = static_cast<int>(info.image_height);
    decoded.components = info.num_components;
    for (auto* marker = info.marker_list; marker != nullptr; marker = marker->next) {
      decoded.comments.emplace_back(reinterpret_cast<const char*>(marker->data), marker->data_length);
    }
    ReadPixels(info, decoded);
  } catch (const std::runtime_error& error) {
    decoded.complaints.emplace_back(error.what());
  }
  return decoded;
}

std::vector<std::vector<std::int16_t>> CoefficientsByLibJpeg(const std::vector<std::uint8_t>& file) {
  std::vector<std::string> complaints;
  Decompressor decompressor(file, complaints);
  jpeg_decompress_struct& info = decompressor.info;
  jvirt_barray_ptr* arrays = jpeg_read_coefficients(&info);
  std::vector<std::vector<std::int16_t>> components;
  for (int i = 0; i < info.num_components; ++i) {
    const jpeg_component_info& component = info.comp_info[i];
    auto& values = components.emplace_back();
    for (JDIMENSION y = 0; y < component.height_in_blocks; ++y) {
      JBLOCKARRAY row =
          info.mem->access_virt_barray(reinterpret_cast<j_common_ptr>(&info), arrays[i], y, 1, FALSE);
      for (JDIMENSION x = 0; x < component.width_in_blocks; ++x) {
        values.insert(values.end(), row[0][x], row[0][x] + DCTSIZE2);
      }
    }
  }
  if (!complaints.empty()) throw std::runtime_error(complaints.front());
  return components;
}

std::size_t EncodeWithLibJpeg(const MadePicture& picture, const LibJpegSettings& settings,
                              std::vector<std::uint8_t>& room) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  errors.error_exit = Fail;
  jpeg_create_compress(&info);
  unsigned char* start = room.data();
  auto size = static_cast<unsigned long>(room.size());
  jpeg_mem_dest(&info, &start, &size);
  info.image_width = static_cast<JDIMENSION>(picture.width);
  info.image_height = static_cast<JDIMENSION>(picture.height);
  info.input_components = 3;
  info.in_color_space = JCS_EXT_BGR;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, settings.quality, TRUE);
  info.optimize_coding = TRUE;
  info.dct_method = JDCT_ISLOW;
  info.comp_info[0].h_samp_factor = settings.h1;
  info.comp_info[0].v_samp_factor = settings.v1;
  jpeg_start_compress(&info, TRUE);
  while (info.next_scanline < info.image_height) {
    JSAMPROW row = const_cast<JSAMPROW>(picture.At(0, static_cast<int>(info.next_scanline)));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  if (start != room.data()) {
    room.assign(start, start + size);
    std::free(start);
  }
  return size;
}

std::vector<std::uint8_t> EncodeWithLibJpeg(const MadePicture& picture, const LibJpegSettings& settings) {
  std::vector<std::uint8_t> file(picture.pixels.size() + 65536);
  file.resize(EncodeWithLibJpeg(picture, settings, file));
  return file;
}

PictureError ErrorOf(const MadePicture& picture, const std::vector<std::uint8_t>& decoded) {
  PictureError error;
  const std::size_t row = 3 * static_cast<std::size_t>(picture.width);
  for (int y = 0; y < picture.height; ++y) {
    for (std::size_t i = 0; i < row; ++i) {
      const int difference = picture.At(0, y)[i] - decoded[static_cast<std::size_t>(y) * row + i];
      error.meanSquare += difference * difference;
      error.largest = std::max(error.largest, std::abs(difference));
    }
  }
  error.meanSquare /= static_cast<double>(decoded.size());
  return error;
}

}  // namespace vintoral::made
