#include "platform/desktop/camera/DeviceList.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/desktop/camera/DeviceModes.h"
#include "platform/desktop/camera/SystemDevices.h"
#include "platform/desktop/camera/VideoNodes.h"

namespace vintoral {

namespace {

/// Longer than a service takes that works; Devices are to be told of within two seconds.
constexpr std::chrono::milliseconds kPatience{1500};

std::string FileOf(GstDevice* device) {
  const GstOwned<GstStructure> properties(gst_device_get_properties(device));
  for (const char* const key : {"device.path", "api.v4l2.path"}) {
    const gchar* const file = properties ? gst_structure_get_string(properties.get(), key) : nullptr;
    if (file != nullptr) return file;
  }
  return {};
}

std::string NameOf(GstDevice* device) {
  gchar* const name = gst_device_get_display_name(device);
  std::string copy = name != nullptr ? name : "";
  g_free(name);
  return copy;
}

/// Two devices of one make are told apart by their order.
template <class List>
std::string Unlike(const List& others, const std::string& name) {
  const auto taken = [&](const std::string& wanted) {
    return std::any_of(others.begin(), others.end(), [&](const auto& other) { return other.name == wanted; });
  };
  std::string own = name;
  for (int number = 2; taken(own); ++number)
    own = name + " (" + std::to_string(number) + ")";
  return own;
}

}  // namespace

void DeviceList::Begin(std::function<void()> changed) {
  {
    const std::lock_guard lock(mutex_);
    changed_ = std::move(changed);
    begun_ = std::chrono::steady_clock::now();
  }
  std::thread([self = shared_from_this()] { self->Run(); }).detach();
}

void DeviceList::Stop() {
  const std::lock_guard lock(mutex_);
  stop_ = true;
  wake_.notify_all();
}

void DeviceList::Poke() {
  const std::lock_guard lock(mutex_);
  news_ = true;
  wake_.notify_all();
}

void DeviceList::Add(const String& name, const std::string& description) {
  const std::lock_guard lock(mutex_);
  added_.push_back({name.ToUtf8(), nullptr, {}, description});
}

void DeviceList::Run() {
  std::vector<Device> plugged;
  for (const VideoNode& node : VideoNodes())
    plugged.push_back({Unlike(plugged, node.name), nullptr, node.file, {}});
  {
    const std::lock_guard lock(mutex_);
    plugged_ = std::move(plugged);
  }
  gst_init(nullptr, nullptr);
  SystemDevices::Instance().Listen([list = weak_from_this()] {
    if (const std::shared_ptr<DeviceList> self = list.lock()) self->Poke();
  });
  std::unique_lock lock(mutex_);
  while (!stop_) {
    news_ = false;
    lock.unlock();
    ReadAnew();
    lock.lock();
    wake_.wait(lock, [this] { return stop_ || news_; });
  }
}

void DeviceList::ReadAnew() {
  std::vector<Device> devices;
  for (const std::shared_ptr<GstDevice>& device : SystemDevices::Instance().Read())
    devices.push_back({Unlike(devices, NameOf(device.get())), device, FileOf(device.get()), {}});
  {
    const std::lock_guard lock(mutex_);
    devices_ = std::move(devices);
    told_ = true;
  }
  changed_();
}

std::vector<DeviceList::Device> DeviceList::Known() const {
  std::vector<Device> known = told_ ? devices_ : plugged_;
  known.insert(known.end(), added_.begin(), added_.end());
  return known;
}

std::optional<std::vector<String>> DeviceList::Names() const {
  const std::lock_guard lock(mutex_);
  const bool begun = begun_ != std::chrono::steady_clock::time_point();
  const bool late = begun && std::chrono::steady_clock::now() - begun_ > kPatience;
  if (!told_ && !late) return std::nullopt;
  std::vector<String> names;
  for (const Device& device : Known())
    names.push_back(String::FromUtf8(device.name));
  return names;
}

std::optional<DeviceList::Device> DeviceList::Find(const std::string& name) const {
  const std::lock_guard lock(mutex_);
  for (Device& device : Known())
    // A name may have lost letters on its way over the screen.
    if (String::FromUtf8(device.name) == String::FromUtf8(name)) return std::move(device);
  return std::nullopt;
}

bool DeviceList::Has(const std::string& name) const {
  return Find(name).has_value();
}

std::vector<CameraMode> DeviceList::Modes(const std::string& name) const {
  const std::optional<Device> device = Find(name);
  if (!device || !device->device) return {};
  const GstOwned<GstCaps> caps(gst_device_get_caps(device->device.get()));
  return ModesOf(caps.get());
}

std::string DeviceList::File(const std::string& name) const {
  const std::optional<Device> device = Find(name);
  return device ? device->file : std::string();
}

GstOwned<GstElement> DeviceList::MakeSource(const std::string& name) const {
  const std::optional<Device> device = Find(name);
  GstElement* source = nullptr;
  if (device && device->device) {
    source = gst_device_create_element(device->device.get(), nullptr);
  } else if (device && !device->description.empty()) {
    source = gst_parse_bin_from_description_full(device->description.c_str(), TRUE, nullptr,
                                                 GST_PARSE_FLAG_FATAL_ERRORS, nullptr);
  } else if (device) {
    source = gst_element_factory_make("v4l2src", nullptr);
    if (source != nullptr) g_object_set(source, "device", device->file.c_str(), nullptr);
  }
  return GstOwned<GstElement>(source == nullptr ? nullptr : GST_ELEMENT(gst_object_ref_sink(source)));
}

}  // namespace vintoral
