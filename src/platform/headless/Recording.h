// Devices that do nothing but write down what the station asked of them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Screen.h"
#include "platform/Sound.h"
#include "platform/System.h"

namespace vintoral {

/// One thing that the station did to the outside.
struct DeviceEvent {
  enum class Kind { kSound, kBeep, kLaunch, kEnd };
  Kind kind = Kind::kBeep;
  String text;          ///< the sound's file, the launched command
  bool played = false;  ///< of a sound: the file was there

  friend bool operator==(const DeviceEvent&, const DeviceEvent&) = default;
};

class Recording {
 public:
  void Add(DeviceEvent event) { events_.push_back(std::move(event)); }
  /// All events since the last call, in order.
  std::vector<DeviceEvent> Take() { return std::exchange(events_, {}); }

 private:
  std::vector<DeviceEvent> events_;
};

class RecordingSound : public Sound {
 public:
  explicit RecordingSound(Recording& recording) : recording_(recording) {}
  void Play(std::string_view file, bool found) override {
    recording_.Add({DeviceEvent::Kind::kSound, String(file), found});
  }

 private:
  Recording& recording_;
};

/// Boxes are answered from outside: while one is up, `OnWait` is called again and again, and may call Answer.
class RecordingScreen : public Screen {
 public:
  explicit RecordingScreen(Recording& recording) : recording_(recording) {}

  vintoral::Answer Show(const Box& box) override;
  void Beep() override { recording_.Add({DeviceEvent::Kind::kBeep, {}, false}); }
  void Busy(bool) override {}

  /// The box on screen, the innermost when one opened over another; null when there is none.
  const Box* Shown() const { return boxes_.empty() ? nullptr : boxes_.back(); }
  /// False when no box is up or it has no such button.
  bool Answer(vintoral::Answer answer);
  /// The program ends: every box answers the least harmful way.
  void Close() { closed_ = true; }

  std::function<void()> OnWait;

 private:
  Recording& recording_;
  std::vector<const Box*> boxes_;
  std::optional<vintoral::Answer> answer_;
  bool closed_ = false;
};

class RecordingSystem : public System {
 public:
  /// Shortcuts are real files in `desktop` (a native path), where one is given.
  RecordingSystem(Recording& recording, RecordingScreen& screen) : recording_(recording), screen_(screen) {}

  int CountInstances() override { return Instances; }
  bool HasShortcut(std::string_view name) override;
  Outcome CreateShortcut(const Shortcut& shortcut) override;
  void Launch(std::string_view command) override {
    recording_.Add({DeviceEvent::Kind::kLaunch, String(command), false});
  }
  void End() override;

  int Instances = 1;
  std::string Desktop;

 private:
  Recording& recording_;
  RecordingScreen& screen_;
};

}  // namespace vintoral
