#include "platform/desktop/camera/DeviceControls.h"

#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace vintoral {

namespace {

struct Known {
  std::uint32_t number;
  const char* id;
  const char* label;
};

constexpr std::array<Known, 12> kKnown = {{
    {V4L2_CID_BRIGHTNESS, "brightness", "Brillo"},
    {V4L2_CID_CONTRAST, "contrast", "Contraste"},
    {V4L2_CID_SATURATION, "saturation", "Saturación"},
    {V4L2_CID_HUE, "hue", "Tono"},
    {V4L2_CID_GAMMA, "gamma", "Gamma"},
    {V4L2_CID_SHARPNESS, "sharpness", "Nitidez"},
    {V4L2_CID_GAIN, "gain", "Ganancia"},
    {V4L2_CID_BACKLIGHT_COMPENSATION, "backlight_compensation", "Contraluz"},
    {V4L2_CID_EXPOSURE_ABSOLUTE, "exposure", "Exposición"},
    {V4L2_CID_WHITE_BALANCE_TEMPERATURE, "white_balance", "Balance de blancos"},
    {V4L2_CID_FOCUS_ABSOLUTE, "focus", "Enfoque"},
    {V4L2_CID_ZOOM_ABSOLUTE, "zoom", "Zoom"},
}};

/// False for a control that the device lacks, or that can't be turned now.
bool Ask(const DeviceControls::Call& call, const Known& known, v4l2_queryctrl& range) {
  range = {};
  range.id = known.number;
  if (call(VIDIOC_QUERYCTRL, &range) != 0) return false;
  constexpr std::uint32_t kFixed =
      V4L2_CTRL_FLAG_DISABLED | V4L2_CTRL_FLAG_INACTIVE | V4L2_CTRL_FLAG_READ_ONLY;
  return range.type == V4L2_CTRL_TYPE_INTEGER && (range.flags & kFixed) == 0 && range.minimum < range.maximum;
}

}  // namespace

DeviceControls::DeviceControls(const std::string& file) {
  if (!file.empty()) file_ = open(file.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  call_ = [this](unsigned long request, void* argument) {
    return file_ < 0 ? -1 : ioctl(file_, request, argument);
  };
}

DeviceControls::~DeviceControls() {
  if (file_ >= 0) close(file_);
}

std::vector<CameraControl> DeviceControls::Read() const {
  std::vector<CameraControl> controls;
  for (const Known& known : kKnown) {
    v4l2_queryctrl range;
    if (!Ask(call_, known, range)) continue;
    v4l2_control value{};
    value.id = known.number;
    if (call_(VIDIOC_G_CTRL, &value) != 0) continue;
    controls.push_back({known.id, String::FromUtf8(known.label), range.minimum, range.maximum, value.value});
  }
  return controls;
}

void DeviceControls::Write(const std::map<std::string, int>& values) const {
  for (const Known& known : kKnown) {
    const auto wanted = values.find(known.id);
    v4l2_queryctrl range;
    if (wanted == values.end() || !Ask(call_, known, range)) continue;
    v4l2_control value{};
    value.id = known.number;
    value.value = std::clamp(wanted->second, range.minimum, range.maximum);
    call_(VIDIOC_S_CTRL, &value);
  }
}

}  // namespace vintoral
