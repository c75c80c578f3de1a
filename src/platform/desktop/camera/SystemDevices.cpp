#include "platform/desktop/camera/SystemDevices.h"

#include <utility>

namespace vintoral {

SystemDevices& SystemDevices::Instance() {
  // Never destroyed: its threads run until the process is gone.
  static auto& instance = *new SystemDevices;
  return instance;
}

bool SystemDevices::Start() {
  if (started_) return true;
  if (monitor_ == nullptr) {
    monitor_ = gst_device_monitor_new();
    gst_device_monitor_add_filter(monitor_, "Video/Source", nullptr);
    const GstOwned<GstBus> bus(gst_device_monitor_get_bus(monitor_));
    gst_bus_set_sync_handler(bus.get(), &SystemDevices::OnMessage, this, nullptr);
  }
  started_ = gst_device_monitor_start(monitor_);
  return started_;
}

std::vector<std::shared_ptr<GstDevice>> SystemDevices::Read() {
  const std::lock_guard lock(watchMutex_);
  GList* const list = Start() ? gst_device_monitor_get_devices(monitor_) : nullptr;
  std::vector<std::shared_ptr<GstDevice>> devices;
  for (GList* entry = list; entry != nullptr; entry = entry->next)
    devices.emplace_back(GST_DEVICE(entry->data), GstUnref());
  g_list_free(list);
  return devices;
}

void SystemDevices::Listen(std::function<void()> changed) {
  const std::lock_guard lock(newsMutex_);
  changed_ = std::move(changed);
}

GstBusSyncReply SystemDevices::OnMessage(GstBus* /*bus*/, GstMessage* message, gpointer self) {
  auto& devices = *static_cast<SystemDevices*>(self);
  const std::lock_guard lock(devices.newsMutex_);
  if (devices.changed_) devices.changed_();
  gst_message_unref(message);
  return GST_BUS_DROP;
}

}  // namespace vintoral
