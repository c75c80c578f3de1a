#include "platform/desktop/camera/CameraPipeline.h"

#include <string>
#include <utility>

#include "platform/desktop/camera/DeviceModes.h"

namespace vintoral {

namespace {

/// The largest pictures of cameras there are, lying or standing. Who says that it sends larger ones would
/// otherwise be given the memory for them.
constexpr const char* kFrames =
    "video/x-raw, width=(int)[1,7680], height=(int)[1,4320]; "
    "video/x-raw, width=(int)[1,4320], height=(int)[1,7680]";
/// More than one picture takes, at whatever size: what comes has no pictures in it, and would be kept
/// forever.
constexpr std::uint64_t kTooMuch = 16 << 20;
/// A network that says nothing for so long, in seconds, is as good as gone.
constexpr int kPatience = 5;
constexpr guint64 kMicroseconds = 1'000'000;

bool Has(GstElement* element, const char* property) {
  return g_object_class_find_property(G_OBJECT_GET_CLASS(element), property) != nullptr;
}

}  // namespace

CameraPipeline::CameraPipeline(CameraEars ears)
    : ears_(std::move(ears)), pipeline_(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr)))) {
  GstBus* const bus = gst_element_get_bus(pipeline_.get());
  gst_bus_set_sync_handler(bus, &CameraPipeline::OnMessage, this, nullptr);
  gst_object_unref(bus);
  g_signal_connect(pipeline_.get(), "deep-element-added", G_CALLBACK(&CameraPipeline::OnElement), this);
}

CameraPipeline::~CameraPipeline() {
  gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
}

GstElement* CameraPipeline::Add(const char* element) {
  GstElement* const made = gst_element_factory_make(element, nullptr);
  if (made != nullptr) gst_bin_add(GST_BIN(pipeline_.get()), made);
  return made;
}

bool CameraPipeline::AddEnd() {
  sink_ = Add("appsink");
  if (sink_ == nullptr) return false;
  const GstOwned<GstCaps> caps(gst_caps_from_string(kFrames));
  // The newest frame alone is kept, by whoever is told of it.
  g_object_set(sink_, "caps", caps.get(), "sync", FALSE, "max-buffers", 1U, "drop", TRUE, "emit-signals",
               TRUE, "enable-last-sample", FALSE, "qos", FALSE, nullptr);
  g_signal_connect(sink_, "new-sample", G_CALLBACK(&CameraPipeline::OnFrame), this);
  return true;
}

bool CameraPipeline::AddDecoder() {
  decoder_ = Add("decodebin");
  if (decoder_ == nullptr) return false;
  g_signal_connect(decoder_, "pad-added", G_CALLBACK(&CameraPipeline::OnPad), sink_);
  return true;
}

CameraFault CameraPipeline::StartDevice(GstOwned<GstElement> source, const std::optional<CameraMode>& mode) {
  GstElement* const filter = Add("capsfilter");
  if (filter == nullptr || !AddEnd() || !AddDecoder()) return CameraFault::kMissing;
  source_ = source.get();
  // Its own buffers go back to the device at once, which has few of them.
  if (Has(source_, "always-copy")) g_object_set(source_, "always-copy", TRUE, nullptr);
  gst_bin_add(GST_BIN(pipeline_.get()), source_);  // which keeps it by a reference of its own
  const GstOwned<GstCaps> caps(mode ? CapsOf(*mode) : gst_caps_from_string("video/x-raw; image/jpeg"));
  g_object_set(filter, "caps", caps.get(), nullptr);
  if (!gst_element_link_many(source_, filter, decoder_, nullptr)) return CameraFault::kGarbage;
  ears_.expect();
  return Play();
}

CameraFault CameraPipeline::StartNetwork(const CameraAddress& address) {
  const bool made = AddEnd() && (address.http ? AddHttp(address) : AddRtsp(address));
  return made ? Play() : CameraFault::kMissing;
}

bool CameraPipeline::AddRtsp(const CameraAddress& address) {
  source_ = Add("rtspsrc");
  if (source_ == nullptr || !AddDecoder()) return false;
  constexpr unsigned kByTcp = 4;      // one connection, through whatever stands between
  constexpr unsigned kLatency = 100;  // milliseconds
  g_object_set(source_, "location", address.place.c_str(), "protocols", kByTcp, "latency", kLatency,
               "tcp-timeout", kPatience * kMicroseconds, "timeout", kPatience * kMicroseconds, nullptr);
  if (!address.user.empty())
    g_object_set(source_, "user-id", address.user.c_str(), "user-pw", address.password.c_str(), nullptr);
  g_signal_connect(source_, "select-stream", G_CALLBACK(&CameraPipeline::OnStream), this);
  g_signal_connect(source_, "pad-added", G_CALLBACK(&CameraPipeline::OnPad), decoder_);
  return true;
}

bool CameraPipeline::AddHttp(const CameraAddress& address) {
  source_ = Add("souphttpsrc");
  parts_ = Add("multipartdemux");
  decoder_ = Add("jpegdec");
  if (source_ == nullptr || parts_ == nullptr || decoder_ == nullptr) return false;
  constexpr unsigned kBlock = 65'536;
  g_object_set(source_, "location", address.place.c_str(), "timeout", static_cast<unsigned>(kPatience),
               "is-live", TRUE, "retries", 0, "blocksize", kBlock, nullptr);
  if (!address.user.empty()) {
    // Another place that one is sent to would be given the password.
    g_object_set(source_, "user-id", address.user.c_str(), "user-pw", address.password.c_str(),
                 "automatic-redirect", FALSE, nullptr);
  }
  g_signal_connect(parts_, "pad-added", G_CALLBACK(&CameraPipeline::OnPad), decoder_);
  GstPad* const pad = gst_element_get_static_pad(source_, "src");
  const auto kinds =
      static_cast<GstPadProbeType>(GST_PAD_PROBE_TYPE_BUFFER | GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM);
  gst_pad_add_probe(pad, kinds, &CameraPipeline::OnHttp, this, nullptr);
  gst_object_unref(pad);
  return gst_element_link(decoder_, sink_);
}

CameraFault CameraPipeline::Play() {
  const bool plays = gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING) != GST_STATE_CHANGE_FAILURE;
  // What failed has been told as a message.
  if (!plays) ears_.over(CameraFault::kUnreachable);
  return CameraFault::kNone;
}

GstFlowReturn CameraPipeline::OnFrame(GstElement* sink, CameraPipeline* self) {
  GstSample* sample = nullptr;
  g_signal_emit_by_name(sink, "pull-sample", &sample);
  if (sample == nullptr) return GST_FLOW_OK;
  self->bytes_ = 0;
  self->ears_.frame(GstOwned<GstSample>(sample));
  return GST_FLOW_OK;
}

GstBusSyncReply CameraPipeline::OnMessage(GstBus* /*bus*/, GstMessage* message, gpointer self) {
  auto& pipeline = *static_cast<CameraPipeline*>(self);
  if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS) pipeline.ears_.over(CameraFault::kEnded);
  if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR) {
    GError* error = nullptr;
    gst_message_parse_error(message, &error, nullptr);
    pipeline.ears_.over(error != nullptr ? FaultOf(*error) : CameraFault::kGarbage);
    g_clear_error(&error);
  }
  gst_message_unref(message);
  return GST_BUS_DROP;
}

void CameraPipeline::OnPad(GstElement* /*from*/, GstPad* pad, GstElement* to) {
  GstPad* const end = gst_element_get_static_pad(to, "sink");
  if (!gst_pad_is_linked(end)) gst_pad_link(pad, end);
  gst_object_unref(end);
}

void CameraPipeline::OnElement(GstBin* /*bin*/, GstBin* /*in*/, GstElement* element, gpointer /*self*/) {
  // A decoder takes a thread, and frames to keep, for each processor: one camera needs no more than two.
  constexpr int kThreads = 2;
  if (Has(element, "max-threads")) g_object_set(element, "max-threads", kThreads, nullptr);
}

gboolean CameraPipeline::OnStream(GstElement* /*source*/, guint /*number*/, GstCaps* caps,
                                  CameraPipeline* self) {
  const gchar* const media = gst_structure_get_string(gst_caps_get_structure(caps, 0), "media");
  const bool film = g_strcmp0(media, "video") == 0 && !self->streamChosen_.exchange(true);
  if (film) self->ears_.expect();
  return film;
}

GstPadProbeReturn CameraPipeline::OnHttp(GstPad* /*pad*/, GstPadProbeInfo* info, gpointer self) {
  auto& pipeline = *static_cast<CameraPipeline*>(self);
  gpointer const passing = GST_PAD_PROBE_INFO_DATA(info);  // nothing where a block begins to be asked for
  if (GST_IS_BUFFER(passing)) {
    pipeline.CountBytes(GST_BUFFER(passing));
  } else if (GST_IS_EVENT(passing)) {
    pipeline.OnHttpHeaders(GST_EVENT(passing));
  }
  return GST_PAD_PROBE_OK;
}

void CameraPipeline::CountBytes(GstBuffer* buffer) {
  bytes_ += gst_buffer_get_size(buffer);
  if (bytes_ > kTooMuch) ears_.over(CameraFault::kGarbage);
}

void CameraPipeline::OnHttpHeaders(GstEvent* event) {
  if (GST_EVENT_TYPE(event) != GST_EVENT_CUSTOM_DOWNSTREAM_STICKY ||
      !gst_event_has_name(event, "http-headers"))
    return;
  const GValue* const headers = gst_structure_get_value(gst_event_get_structure(event), "response-headers");
  const GstStructure* const answer = headers != nullptr ? gst_value_get_structure(headers) : nullptr;
  const gchar* const type = answer != nullptr ? gst_structure_get_string(answer, "Content-Type") : nullptr;
  // A picture by itself needs nobody who takes a row of them apart.
  const bool single = type != nullptr && g_ascii_strncasecmp(type, "image/", 6) == 0;
  gst_element_link(source_, single ? decoder_ : parts_);
  ears_.expect();
}

}  // namespace vintoral
