// What brings the frames of one camera: made, let run and taken down by one thread, which may have to wait.
#pragma once

#include <gst/gst.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/Camera.h"
#include "platform/desktop/camera/CameraAddress.h"
#include "platform/desktop/camera/CameraFault.h"
#include "platform/desktop/camera/Gst.h"

namespace vintoral {

/// Whom it tells, from threads of GStreamer's own.
struct CameraEars {
  std::function<void(GstOwned<GstSample>)> frame;
  std::function<void()> expect;           ///< the camera has answered: frames are on their way
  std::function<void(CameraFault)> over;  ///< nothing more comes; may be said more than once
};

class CameraPipeline {
 public:
  explicit CameraPipeline(CameraEars ears);
  /// Takes down what runs; a device that hangs keeps the caller.
  ~CameraPipeline();
  CameraPipeline(const CameraPipeline&) = delete;
  CameraPipeline& operator=(const CameraPipeline&) = delete;

  /// `source` is an element of a device that has not been used yet. Nothing runs when it gives `mode` no
  /// more: it is then as the device has it.
  CameraFault StartDevice(GstOwned<GstElement> source, const std::optional<CameraMode>& mode);
  CameraFault StartNetwork(const CameraAddress& address);

 private:
  bool AddEnd();
  GstElement* Add(const char* element);
  bool AddDecoder();
  bool AddRtsp(const CameraAddress& address);
  bool AddHttp(const CameraAddress& address);
  CameraFault Play();
  void CountBytes(GstBuffer* buffer);
  void OnHttpHeaders(GstEvent* event);

  static GstFlowReturn OnFrame(GstElement* sink, CameraPipeline* self);
  static GstBusSyncReply OnMessage(GstBus* bus, GstMessage* message, gpointer self);
  static void OnPad(GstElement* from, GstPad* pad, GstElement* to);
  static void OnElement(GstBin* bin, GstBin* in, GstElement* element, gpointer self);
  static gboolean OnStream(GstElement* source, guint number, GstCaps* caps, CameraPipeline* self);
  static GstPadProbeReturn OnHttp(GstPad* pad, GstPadProbeInfo* info, gpointer self);

  CameraEars ears_;
  GstOwned<GstElement> pipeline_;
  GstElement* sink_ = nullptr;  ///< these belong to the pipeline
  GstElement* source_ = nullptr;
  GstElement* decoder_ = nullptr;
  GstElement* parts_ = nullptr;
  std::atomic<std::uint64_t> bytes_ = 0;  ///< that came since the last frame
  std::atomic<bool> streamChosen_ = false;
};

}  // namespace vintoral
