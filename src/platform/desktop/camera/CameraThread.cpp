// What the thread of one camera does.
#include <atomic>
#include <cstdio>
#include <utility>

#include "platform/desktop/camera/CameraPipeline.h"
#include "platform/desktop/camera/CameraRunner.h"
#include "platform/desktop/camera/DeviceControls.h"
#include "platform/desktop/camera/Retry.h"

namespace vintoral {

namespace {

/// A station that stops a camera and starts it again has changed nothing.
constexpr std::chrono::milliseconds kSecondThoughts{200};
/// Without a picture for so long, a camera is asked anew; the first one takes longer.
constexpr std::chrono::seconds kSilence{5}, kFirstPicture{10};
/// Pictures for so long, and the camera is as good as new.
constexpr std::chrono::seconds kSteady{10};
/// An address that gives one picture at a time is asked so often.
constexpr std::chrono::seconds kSingles{1};

}  // namespace

struct CameraRunner::Memory {
  Retry retry;
  std::set<CameraFault> told;
  bool modeFails = false;  ///< the device does not give the mode that is kept for it
};

/// Shared with the pipeline's threads, which may say a last word while it is taken down.
struct CameraRunner::Connection {
  Frames::Run run = 0;
  CameraFormat format;
  Clock::time_point since;
  bool over = false;
  CameraFault fault = CameraFault::kNone;
  std::atomic<Clock::time_point> first{}, last{};  ///< of its pictures; of no time when there are none

  bool Filmed() const { return last.load() != Clock::time_point(); }
  Clock::time_point Patience() const { return Filmed() ? last.load() + kSilence : since + kFirstPicture; }
};

void CameraRunner::Serve(const CameraSource& source) {
  gst_init(nullptr, nullptr);
  Memory memory;
  Lock lock(mutex_);
  while (Wanted(lock, source))
    Connect(lock, source, memory);
  served_.erase(KeyOf(source));
  // Nobody asks for its last picture any more.
  if (!wish_) Pictures.Renew();
  news_.notify_all();
}

bool CameraRunner::IsWish(const CameraSource& source) const {
  return wish_ && Same(*wish_, source);
}

bool CameraRunner::Wanted(Lock& lock, const CameraSource& source) {
  if (!wish_) news_.wait_until(lock, stoppedAt_ + kSecondThoughts, [this] { return wish_ || ended_; });
  return !ended_ && IsWish(source);
}

void CameraRunner::Connect(Lock& lock, const CameraSource& source, Memory& memory) {
  const auto connection = std::make_shared<Connection>();
  connection->run = run_;
  connection->format = wish_->format;
  connection->since = Clock::now();
  lock.unlock();
  {
    CameraPipeline pipeline(EarsOf(connection));
    Open(pipeline, source, connection, memory);
    lock.lock();
    if (source.address.Empty()) Turn(lock, source, *connection);
    Watch(lock, source, *connection);
    lock.unlock();
  }
  lock.lock();
  if (connection->over) Recover(lock, source, *connection, memory);
}

CameraEars CameraRunner::EarsOf(const std::shared_ptr<Connection>& connection) {
  return {[this, connection](GstOwned<GstSample> sample) {
            connection->last = Clock::now();
            if (connection->first.load() == Clock::time_point()) connection->first = connection->last.load();
            Pictures.Deliver(connection->run, std::move(sample));
          },
          [this, connection] { Pictures.Expect(connection->run); },
          [this, connection](CameraFault fault) {
            const std::lock_guard lock(mutex_);
            if (std::exchange(connection->over, true)) return;
            connection->fault = fault;
            news_.notify_all();
          }};
}

void CameraRunner::Open(CameraPipeline& pipeline, const CameraSource& source,
                        const std::shared_ptr<Connection>& connection, const Memory& memory) {
  CameraFault fault = CameraFault::kGone;
  if (!source.address.Empty()) {
    fault = pipeline.StartNetwork(AddressOf(source.address));
  } else if (GstOwned<GstElement> element = devices_->MakeSource(source.name.ToUtf8())) {
    fault =
        pipeline.StartDevice(std::move(element), memory.modeFails ? std::nullopt : connection->format.mode);
  }
  if (fault != CameraFault::kNone) EarsOf(connection).over(fault);
}

void CameraRunner::Watch(Lock& lock, const CameraSource& source, Connection& connection) {
  const bool device = source.address.Empty();
  const auto end = [&](CameraFault fault) {
    connection.over = true;
    connection.fault = fault;
  };
  while (!connection.over && Wanted(lock, source) && connection.run == run_ &&
         connection.format.mode == wish_->format.mode) {
    if (device && !devices_->Has(source.name.ToUtf8())) return end(CameraFault::kGone);
    if (connection.format.controls != wish_->format.controls) {
      connection.format.controls = wish_->format.controls;
      Turn(lock, source, connection);
      continue;
    }
    if (Clock::now() >= connection.Patience()) return end(CameraFault::kSilent);
    news_.wait_until(lock, connection.Patience());
  }
}

void CameraRunner::Turn(Lock& lock, const CameraSource& source, const Connection& connection) {
  const std::map<std::string, int> values = connection.format.controls;
  lock.unlock();
  const DeviceControls device(devices_->File(source.name.ToUtf8()));
  device.Write(values);
  std::vector<CameraControl> controls = device.Read();
  lock.lock();
  if (connection.run == run_) controls_ = std::move(controls);
}

void CameraRunner::Recover(Lock& lock, const CameraSource& source, const Connection& connection,
                           Memory& memory) {
  const bool device = source.address.Empty();
  if (connection.Filmed() && connection.last.load() - connection.first.load() >= kSteady) {
    memory.retry.Reset();
    memory.told.clear();
  }
  const bool single = connection.fault == CameraFault::kEnded && connection.Filmed();
  if (!single) Tell(lock, source, connection.fault, memory);
  memory.modeFails = !connection.Filmed() && connection.format.mode && !memory.modeFails;

  const Clock::time_point until = Clock::now() + (single ? kSingles : memory.retry.Next());
  bool there = !device || devices_->Has(source.name.ToUtf8());
  while (Clock::now() < until && Wanted(lock, source) && connection.run == run_) {
    news_.wait_until(lock, until);
    const bool gone = !std::exchange(there, !device || devices_->Has(source.name.ToUtf8()));
    // Plugged in again: nobody wants to stand and wait for it.
    if (gone && there) return memory.retry.Reset();
  }
}

void CameraRunner::Tell(Lock& lock, const CameraSource& source, CameraFault fault, Memory& memory) {
  if (!memory.told.insert(fault).second) return;
  lock.unlock();  // nobody knows who reads it, and how fast
  // The name and no more: whatever else there is to say may hold the address.
  std::fprintf(stderr, "camera: %s: %s\n", source.name.ToUtf8().c_str(), Words(fault));
  lock.lock();
}

}  // namespace vintoral
