#include "platform/desktop/DesktopSound.h"

#include <gst/gst.h>

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>
#include <utility>

namespace vintoral {

namespace {

struct Unref {
  void operator()(GstElement* element) const { gst_object_unref(element); }
};
using Element = std::unique_ptr<GstElement, Unref>;

}  // namespace

/// The thread and what it is asked to do. Shared with the thread, so that it may outlive the station in a
/// device that hangs.
class DesktopSound::Player : public std::enable_shared_from_this<Player> {
 public:
  void Ask(std::string file);
  void Begin();
  void UseSink(const std::string& sink);
  void Stop();

 private:
  void StartThread();
  void Run();
  void Start(const std::string& file);
  void End();
  void Report(const std::string& problem);
  bool MakePipeline();
  static GstBusSyncReply OnMessage(GstBus* bus, GstMessage* message, gpointer self);

  std::mutex mutex_;
  std::condition_variable news_;
  std::string asked_;  ///< the newest request alone: an older one is stale
  bool over_ = false;  ///< the sound has come to its end, or failed
  bool stop_ = false;
  bool begun_ = false;
  bool started_ = false;
  bool stopped_ = false;
  std::string sink_ = "autoaudiosink";
  std::string problem_;  ///< the last one reported: a missing device is told of once
  Element pipeline_;     ///< of the thread alone
};

void DesktopSound::Player::Ask(std::string file) {
  const std::lock_guard lock(mutex_);
  asked_ = std::move(file);
  StartThread();
}

void DesktopSound::Player::Begin() {
  const std::lock_guard lock(mutex_);
  begun_ = true;
  StartThread();
}

void DesktopSound::Player::StartThread() {
  news_.notify_all();
  if (started_ || !begun_ || asked_.empty()) return;
  started_ = true;
  std::thread([self = shared_from_this()] { self->Run(); }).detach();
}

void DesktopSound::Player::UseSink(const std::string& sink) {
  const std::lock_guard lock(mutex_);
  sink_ = sink;
}

void DesktopSound::Player::Stop() {
  constexpr std::chrono::milliseconds kPatience{300};
  std::unique_lock lock(mutex_);
  stop_ = true;
  news_.notify_all();
  if (started_) news_.wait_for(lock, kPatience, [this] { return stopped_; });
}

void DesktopSound::Player::Run() {
  gst_init(nullptr, nullptr);
  std::unique_lock lock(mutex_);
  while (!stop_) {
    news_.wait(lock, [this] { return stop_ || over_ || !asked_.empty(); });
    const std::string file = std::exchange(asked_, {});
    over_ = false;
    // The device may take its time: whoever asks meanwhile does not wait.
    lock.unlock();
    End();
    if (!file.empty()) Start(file);
    lock.lock();
  }
  lock.unlock();
  End();
  lock.lock();
  stopped_ = true;
  news_.notify_all();
}

bool DesktopSound::Player::MakePipeline() {
  std::string sinkName;
  {
    const std::lock_guard lock(mutex_);
    sinkName = sink_;
  }
  pipeline_.reset(gst_element_factory_make("playbin", nullptr));
  GstElement* const sink = gst_element_factory_make(sinkName.c_str(), nullptr);
  if (!pipeline_ || sink == nullptr) {
    if (sink != nullptr) gst_object_unref(sink);
    Report("no GStreamer element for playing");
    return false;
  }
  g_object_set(pipeline_.get(), "audio-sink", sink, nullptr);
  GstBus* const bus = gst_element_get_bus(pipeline_.get());
  gst_bus_set_sync_handler(bus, &Player::OnMessage, this, nullptr);
  gst_object_unref(bus);
  return true;
}

void DesktopSound::Player::Start(const std::string& file) {
  if (!MakePipeline()) return;
  gchar* const uri = gst_filename_to_uri(file.c_str(), nullptr);
  if (uri == nullptr) return Report("no address for " + file);
  g_object_set(pipeline_.get(), "uri", uri, nullptr);
  g_free(uri);
  if (gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE) End();
}

void DesktopSound::Player::End() {
  if (!pipeline_) return;
  gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
  pipeline_.reset();
}

GstBusSyncReply DesktopSound::Player::OnMessage(GstBus* /*bus*/, GstMessage* message, gpointer self) {
  auto& player = *static_cast<Player*>(self);
  const GstMessageType type = GST_MESSAGE_TYPE(message);
  if (type == GST_MESSAGE_ERROR) {
    GError* error = nullptr;
    gst_message_parse_error(message, &error, nullptr);
    if (error != nullptr) player.Report(error->message);
    g_clear_error(&error);
  }
  if (type == GST_MESSAGE_ERROR || type == GST_MESSAGE_EOS) {
    const std::lock_guard lock(player.mutex_);
    player.over_ = true;
    player.news_.notify_all();
  }
  gst_message_unref(message);
  return GST_BUS_DROP;
}

void DesktopSound::Player::Report(const std::string& problem) {
  const std::lock_guard lock(mutex_);
  if (problem == problem_) return;
  problem_ = problem;
  std::fprintf(stderr, "sound: %s\n", problem.c_str());
}

DesktopSound::DesktopSound(FileOf fileOf) : fileOf_(std::move(fileOf)), player_(std::make_shared<Player>()) {}

DesktopSound::~DesktopSound() {
  player_->Stop();
}

void DesktopSound::Play(std::string_view file, bool found) {
  if (found) player_->Ask(fileOf_(file));
}

void DesktopSound::Begin() {
  player_->Begin();
}

void DesktopSound::UseSink(const std::string& sink) {
  player_->UseSink(sink);
}

}  // namespace vintoral
