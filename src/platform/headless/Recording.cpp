#include "platform/headless/Recording.h"

#include <algorithm>
#include <cerrno>

#include "platform/DesktopEntry.h"

namespace vintoral {
namespace {

/// A box is up for as long as this lives: a wait that is broken off by an exception takes it down too.
class Raised {
 public:
  Raised(std::vector<const Box*>& boxes, const Box& box) : boxes_(boxes) { boxes_.push_back(&box); }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { boxes_.pop_back(); }

 private:
  std::vector<const Box*>& boxes_;
};

}  // namespace

vintoral::Answer RecordingScreen::Show(const Box& box) {
  const Raised raised(boxes_, box);
  answer_.reset();
  while (!answer_ && !closed_ && OnWait)
    OnWait();
  if (answer_ && !closed_) return *std::exchange(answer_, std::nullopt);
  return HarmlessAnswer(box);
}

bool RecordingScreen::Answer(vintoral::Answer answer) {
  if (boxes_.empty()) return false;
  const auto& buttons = boxes_.back()->buttons;
  if (std::find(buttons.begin(), buttons.end(), answer) == buttons.end()) return false;
  answer_ = answer;
  return true;
}

bool RecordingSystem::HasShortcut(std::string_view name) {
  return !Desktop.empty() && DesktopEntryExists(Desktop, String(name).ToUtf8());
}

Outcome RecordingSystem::CreateShortcut(const Shortcut& shortcut) {
  if (Desktop.empty()) return Outcome::Failed("create shortcut on", "the desktop", ENOENT);
  return WriteDesktopEntry(Desktop, {.name = shortcut.name.ToUtf8(),
                                     .executable = "vintoral",
                                     .workingFolder = shortcut.workingFolder.ToUtf8(),
                                     .icon = shortcut.icon.ToUtf8()});
}

void RecordingSystem::End() {
  recording_.Add({DeviceEvent::Kind::kEnd, {}, false});
  screen_.Close();
}

}  // namespace vintoral
