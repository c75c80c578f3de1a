#include "platform/pictures/JpegReader.h"

#include <csetjmp>
#include <cstdio>
#include <vector>

// After <cstdio>, whose types they need.
#include <jerror.h>
#include <jpeglib.h>

namespace vintoral {

struct JpegState {
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  jpeg_progress_mgr progress{};
  std::jmp_buf giveUp{};
  bool tooLarge = false;
  int mostScans = 0;
  int eighths = kAllEighths;
  std::span<const std::uint8_t> bytes;
  PixelSurface to;
  JSAMPROW inks = nullptr;  ///< room for a row of the four inks, where the picture has them
};

namespace {

constexpr int kExifMarker = JPEG_APP0 + 1;
constexpr unsigned kLongestSegment = 0xFFFF;

JpegState& StateOf(j_common_ptr info) {
  return *static_cast<JpegState*>(info->client_data);
}

[[noreturn]] void GiveUp(j_common_ptr info) {
  JpegState& state = StateOf(info);
  const int code = info->err->msg_code;
  state.tooLarge = state.tooLarge || code == JERR_OUT_OF_MEMORY || code == JERR_NO_BACKING_STORE ||
                   code == JERR_IMAGE_TOO_BIG;
  std::longjmp(state.giveUp, 1);
}

void Complain(j_common_ptr info, int level) {
  if (level < 0) GiveUp(info);  // a warning; the rest is tracing
}

void WatchScans(j_common_ptr info) {
  JpegState& state = StateOf(info);
  if (state.info.input_scan_number <= state.mostScans) return;
  state.tooLarge = true;
  GiveUp(info);
}

/// Takes a step; false when the library gave up.
bool Take(JpegState& state, void (*step)(JpegState&)) {
  if (setjmp(state.giveUp) != 0) return false;
  step(state);
  return true;
}

void HeaderStep(JpegState& state) {
  jpeg_decompress_struct& info = state.info;
  jpeg_create_decompress(&info);
  info.progress = &state.progress;
  jpeg_save_markers(&info, kExifMarker, kLongestSegment);
  jpeg_mem_src(&info, state.bytes.data(), state.bytes.size());
  jpeg_read_header(&info, TRUE);
}

bool HasInks(const jpeg_decompress_struct& info) {
  return info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
}

void ScaleStep(JpegState& state) {
  jpeg_decompress_struct& info = state.info;
  info.scale_num = static_cast<unsigned>(state.eighths);
  info.scale_denom = kAllEighths;
  info.out_color_space = HasInks(info) ? JCS_CMYK : JCS_EXT_BGR;
  jpeg_calc_output_dimensions(&info);
}

/// Paper under ink. Adobe's programs store how much light is left and say so; others how much ink there is.
void MixInks(const jpeg_decompress_struct& info, const JSAMPLE* inks, std::uint8_t* row) {
  const auto light = [&](std::size_t at) { return info.saw_Adobe_marker ? inks[at] : 255 - inks[at]; };
  for (std::size_t x = 0; x < info.output_width; ++x) {
    for (std::size_t channel = 0; channel < 3; ++channel)
      row[3 * x + 2 - channel] = static_cast<std::uint8_t>(light(4 * x + channel) * light(4 * x + 3) / 255);
  }
}

void PixelStep(JpegState& state) {
  jpeg_decompress_struct& info = state.info;
  jpeg_start_decompress(&info);
  while (info.output_scanline < info.output_height) {
    std::uint8_t* const row = state.to.Row(static_cast<int>(info.output_scanline));
    JSAMPROW into = state.inks != nullptr ? state.inks : row;
    jpeg_read_scanlines(&info, &into, 1);
    if (state.inks != nullptr) MixInks(info, state.inks, row);
  }
  jpeg_finish_decompress(&info);  // which reads to the end of the file
}

}  // namespace

JpegReader::JpegReader(std::span<const std::uint8_t> bytes, int mostScans)
    : state_(std::make_unique<JpegState>()) {
  state_->bytes = bytes;
  state_->mostScans = mostScans;
  state_->info.err = jpeg_std_error(&state_->errors);
  state_->info.client_data = state_.get();
  state_->errors.error_exit = GiveUp;
  state_->errors.emit_message = Complain;
  state_->progress.progress_monitor = WatchScans;
}

JpegReader::~JpegReader() {
  jpeg_destroy_decompress(&state_->info);
}

bool JpegReader::ReadHeader() {
  return Take(*state_, HeaderStep);
}

int JpegReader::Width() const {
  return static_cast<int>(state_->info.image_width);
}

int JpegReader::Height() const {
  return static_cast<int>(state_->info.image_height);
}

std::size_t JpegReader::Pixels() const {
  return std::size_t{state_->info.image_width} * state_->info.image_height;
}

std::span<const std::uint8_t> JpegReader::Exif() const {
  const jpeg_marker_struct* const first = state_->info.marker_list;
  if (first == nullptr) return {};
  return {first->data, first->data_length};
}

bool JpegReader::Scale(int eighths) {
  state_->eighths = eighths;
  return Take(*state_, ScaleStep);
}

int JpegReader::ScaledWidth() const {
  return static_cast<int>(state_->info.output_width);
}

int JpegReader::ScaledHeight() const {
  return static_cast<int>(state_->info.output_height);
}

std::size_t JpegReader::ScaledBytes() const {
  return RowSize(ScaledWidth(), 24) * static_cast<std::size_t>(ScaledHeight());
}

bool JpegReader::ReadPixels(const PixelSurface& to, std::size_t memory) {
  std::vector<JSAMPLE> inks(HasInks(state_->info) ? 4 * std::size_t{state_->info.output_width} : 0);
  state_->to = to;
  state_->inks = inks.empty() ? nullptr : inks.data();
  state_->info.mem->max_memory_to_use = static_cast<long>(memory);
  return Take(*state_, PixelStep);
}

PictureFault JpegReader::Fault() const {
  return state_->tooLarge ? PictureFault::kTooLarge : PictureFault::kNoPicture;
}

}  // namespace vintoral
