#include "platform/desktop/camera/DeviceModes.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace vintoral {

namespace {

using Rates = std::set<int, std::greater<>>;

int RateOf(const GValue* fraction) {
  const int numerator = gst_value_get_fraction_numerator(fraction);
  const int denominator = gst_value_get_fraction_denominator(fraction);
  return denominator > 0 ? (numerator + denominator / 2) / denominator : 0;
}

void AddRates(const GValue* rates, Rates& all) {
  if (rates == nullptr) return;
  if (GST_VALUE_HOLDS_FRACTION(rates)) all.insert(RateOf(rates));
  if (GST_VALUE_HOLDS_FRACTION_RANGE(rates)) all.insert(RateOf(gst_value_get_fraction_range_max(rates)));
  if (!GST_VALUE_HOLDS_LIST(rates)) return;
  for (guint i = 0; i < gst_value_list_get_size(rates); ++i)
    AddRates(gst_value_list_get_value(rates, i), all);
}

bool IsPicture(const GstStructure* structure) {
  return gst_structure_has_name(structure, "video/x-raw") || gst_structure_has_name(structure, "image/jpeg");
}

}  // namespace

std::vector<CameraMode> ModesOf(const GstCaps* caps) {
  std::map<std::pair<int, int>, Rates> sizes;
  for (guint i = 0; caps != nullptr && i < gst_caps_get_size(caps); ++i) {
    const GstStructure* const structure = gst_caps_get_structure(caps, i);
    int width = 0, height = 0;
    if (!IsPicture(structure) || !gst_structure_get_int(structure, "width", &width) ||
        !gst_structure_get_int(structure, "height", &height))
      continue;
    AddRates(gst_structure_get_value(structure, "framerate"), sizes[{width, height}]);
  }
  // By how many faster ones its size has, so that those that are left out stand at the end.
  std::vector<std::pair<int, CameraMode>> ranked;
  for (const auto& [size, rates] : sizes) {
    int rank = 0;
    for (const int rate : rates)
      if (rate > 0) ranked.push_back({rank++, {size.first, size.second, rate}});
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  if (ranked.size() > kMostModes) ranked.resize(kMostModes);
  std::vector<CameraMode> modes;
  modes.reserve(ranked.size());
  for (const auto& [rank, mode] : ranked)
    modes.push_back(mode);
  const auto key = [](const CameraMode& mode) {
    return std::tie(mode.width, mode.height, mode.framesPerSecond);
  };
  std::sort(modes.begin(), modes.end(),
            [&](const CameraMode& a, const CameraMode& b) { return key(a) < key(b); });
  return modes;
}

GstCaps* CapsOf(const CameraMode& mode) {
  GstCaps* const caps = gst_caps_new_empty();
  // Half a frame around the whole number: 30 stands for 30000/1001 too.
  const int rate = mode.framesPerSecond;
  for (const char* const kind : {"video/x-raw", "image/jpeg"}) {
    gst_caps_append_structure(
        caps,
        gst_structure_new(kind, "width", G_TYPE_INT, mode.width, "height", G_TYPE_INT, mode.height,
                          "framerate", GST_TYPE_FRACTION_RANGE, 2 * rate - 1, 2, 2 * rate + 1, 2, nullptr));
  }
  return caps;
}

}  // namespace vintoral
