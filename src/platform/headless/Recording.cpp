#include "platform/headless/Recording.h"

#include <algorithm>
#include <cerrno>

#include "platform/DesktopEntry.h"

namespace vintoral {
namespace {

/// The station waits for as long as this lives: a wait that is broken off by an exception is over too.
class Raised {
 public:
  Raised(std::vector<Waiting>& waits, const Waiting& waiting) : waits_(waits) { waits_.push_back(waiting); }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;
  ~Raised() { waits_.pop_back(); }

 private:
  std::vector<Waiting>& waits_;
};

}  // namespace

void RecordingScreen::Loop(const Waiting& waiting, const std::function<bool(const Waiting&)>& over) {
  const std::size_t depth = waits_.size();
  const Raised raised(waits_, waiting);
  while (!over(waits_[depth]) && !closed_ && OnWait)
    OnWait();
}

vintoral::Answer RecordingScreen::Show(const Box& box) {
  std::optional<vintoral::Answer> answer;
  Loop({.box = &box}, [&answer](const Waiting& waiting) { return (answer = waiting.answer).has_value(); });
  return answer && !closed_ ? *answer : HarmlessAnswer(box);
}

void RecordingScreen::ShowModal(const ScreenForm& form) {
  Loop({.form = &form}, [](const Waiting& waiting) { return !waiting.form->Shown(); });
}

void RecordingScreen::Wait(std::int64_t milliseconds) {
  Loop({.until = clock_.Ticks() + milliseconds},
       [this](const Waiting& waiting) { return clock_.Ticks() >= waiting.until; });
}

namespace {

/// The innermost that holds the operator: no wait for time, under which all is still there to be used, and no
/// box that has its answer.
template <class Waits>
auto* Holding(Waits& waits) {
  const auto found = std::find_if(waits.rbegin(), waits.rend(), [](const Waiting& waiting) {
    return (waiting.box != nullptr && !waiting.answer) || waiting.form != nullptr;
  });
  return found == waits.rend() ? nullptr : &*found;
}

}  // namespace

const Box* RecordingScreen::Shown() const {
  const Waiting* const holding = Holding(waits_);
  return holding == nullptr ? nullptr : holding->box;
}

bool RecordingScreen::Answer(vintoral::Answer answer) {
  const Box* const box = Shown();
  if (box == nullptr) return false;
  if (std::find(box->buttons.begin(), box->buttons.end(), answer) == box->buttons.end()) return false;
  Holding(waits_)->answer = answer;
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
