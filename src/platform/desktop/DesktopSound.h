// Sounds through GStreamer, on a thread of their own: whatever the sound device does, no key waits for it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Sound.h"

namespace vintoral {

class DesktopSound : public Sound {
 public:
  using FileOf = std::function<std::string(std::string_view)>;
  /// `fileOf` turns a station path into a path of this system (UTF-8). Silent until Begin.
  explicit DesktopSound(FileOf fileOf);
  DesktopSound(const DesktopSound&) = delete;
  DesktopSound& operator=(const DesktopSound&) = delete;
  /// Ends what plays; a device that hangs is left behind, not waited for.
  ~DesktopSound() override;

  void Play(std::string_view file, bool found) override;

  /// From here on sounds play; the newest of those asked for before plays now. Until then nothing is loaded,
  /// so that a start is not slowed down.
  void Begin();
  /// The device of the next sounds, as GStreamer names it. Of the tests.
  void UseSink(const std::string& sink);

 private:
  class Player;
  FileOf fileOf_;
  std::shared_ptr<Player> player_;
};

}  // namespace vintoral
