#include "platform/desktop/camera/DeviceList.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/desktop/camera/DeviceModes.h"
#include "platform/desktop/camera/VideoNodes.h"

namespace vintoral {

namespace {

/// Longer than a service takes that works; Devices are to be told of within two seconds.
constexpr std::chrono::milliseconds kPatience{1500};
constexpr const char* kWake = "vintoral-wake";

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
  const std::string copy = name != nullptr ? name : "";
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
  Wake();
}

void DeviceList::Renew() {
  const std::lock_guard lock(mutex_);
  renew_ = true;
  Wake();
}

void DeviceList::Wake() {
  wake_.notify_all();
  if (bus_ != nullptr)
    gst_bus_post(bus_, gst_message_new_application(nullptr, gst_structure_new_empty(kWake)));
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
  const auto goesOn = [this] {
    const std::lock_guard lock(mutex_);
    renew_ = false;
    return !stop_;
  };
  while (goesOn())
    Watch();
}

void DeviceList::Watch() {
  const GstOwned<GstDeviceMonitor> monitor(gst_device_monitor_new());
  gst_device_monitor_add_filter(monitor.get(), "Video/Source", nullptr);
  const GstOwned<GstBus> bus(gst_device_monitor_get_bus(monitor.get()));
  const bool started = gst_device_monitor_start(monitor.get());
  {
    const std::lock_guard lock(mutex_);
    bus_ = bus.get();
  }
  while (Read(started ? monitor.get() : nullptr))
    AwaitNews(started ? bus.get() : nullptr);
  {
    const std::lock_guard lock(mutex_);
    bus_ = nullptr;
  }
  if (started) gst_device_monitor_stop(monitor.get());
}

void DeviceList::AwaitNews(GstBus* bus) {
  if (bus != nullptr) {
    if (GstMessage* const message = gst_bus_timed_pop(bus, GST_CLOCK_TIME_NONE)) gst_message_unref(message);
    return;
  }
  // Nothing on this machine tells of devices.
  std::unique_lock lock(mutex_);
  wake_.wait(lock, [this] { return stop_ || renew_; });
}

bool DeviceList::Read(GstDeviceMonitor* monitor) {
  GList* const list = monitor != nullptr ? gst_device_monitor_get_devices(monitor) : nullptr;
  std::vector<Device> devices;
  for (GList* entry = list; entry != nullptr; entry = entry->next) {
    const std::shared_ptr<GstDevice> device(GST_DEVICE(entry->data), GstUnref());
    devices.push_back({Unlike(devices, NameOf(device.get())), device, FileOf(device.get()), {}});
  }
  g_list_free(list);
  {
    const std::lock_guard lock(mutex_);
    if (stop_ || renew_) return false;
    devices_ = std::move(devices);
    told_ = true;
  }
  changed_();
  return true;
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
