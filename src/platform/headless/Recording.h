// Devices that do nothing but write down what the station asked of them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/Mail.h"
#include "platform/MailMessage.h"
#include "platform/Printer.h"
#include "platform/Screen.h"
#include "platform/Sound.h"
#include "platform/System.h"

namespace vintoral {

/// One thing that the station did to the outside.
struct DeviceEvent {
  enum class Kind { kSound, kBeep, kLaunch, kPrint, kMail, kEnd };
  Kind kind = Kind::kBeep;
  String text;          ///< the sound's file, the launched command, the printer
  bool played = false;  ///< of a sound: the file was there
  std::vector<PrintOperation> printed = {};
  MailMessage mail = {};  ///< of a mail, the password left out
  bool sent = false;      ///< of a mail

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

/// Why the station waits: for the answer to a box, for a dialog to go, or for time to pass.
struct Waiting {
  const Box* box = nullptr;
  const ScreenForm* form = nullptr;
  std::int64_t until = 0;          ///< of a wait for time: the moment in Clock::Ticks
  std::optional<Answer> answer{};  ///< of a box
};

/// The nested loop is outside: while the station waits, `OnWait` is called again and again, and may answer
/// the box, use the dialog or let time pass.
class RecordingScreen : public Screen {
 public:
  RecordingScreen(Recording& recording, const Clock& clock) : recording_(recording), clock_(clock) {}

  vintoral::Answer Show(const Box& box) override;
  void ShowModal(const ScreenForm& form) override;
  void Wait(std::int64_t milliseconds) override;
  void Beep() override { recording_.Add({DeviceEvent::Kind::kBeep, {}, false}); }
  void Busy(bool) override {}

  /// What the innermost loop waits for; null when the station is idle.
  const Waiting* Innermost() const { return waits_.empty() ? nullptr : &waits_.back(); }
  /// The box that holds the operator, the innermost when one opened over another; null when there is none, or
  /// when a dialog has opened over it.
  const Box* Shown() const;
  /// False when no box is up or it has no such button.
  bool Answer(vintoral::Answer answer);
  /// The program ends: every box answers the least harmful way, and every dialog and wait is over.
  void Close() { closed_ = true; }

  std::function<void()> OnWait;

 private:
  void Loop(const Waiting& waiting, const std::function<bool(const Waiting&)>& over);

  Recording& recording_;
  const Clock& clock_;
  std::vector<Waiting> waits_;
  bool closed_ = false;
};

/// Prints nothing, but every document that would have found a printer is an event.
class RecordingPrinter : public Printer {
 public:
  explicit RecordingPrinter(Recording& recording) : recording_(recording) {}
  PrinterList Printers() override { return Installed; }
  void EndDoc(PrintDocument document) override {
    if (OnEndDoc) OnEndDoc();
    const String printer = ChoosePrinter(Installed, document.PrinterWanted);
    if (!printer.Empty()) recording_.Add({DeviceEvent::Kind::kPrint, printer, false, document.Operations()});
  }

  PrinterList Installed;
  /// Called when a document is handed over, before anything becomes of it.
  std::function<void()> OnEndDoc;

 private:
  Recording& recording_;
};

class RecordingSystem : public System {
 public:
  /// Shortcuts are real files in `desktop` (a native path), where one is given.
  RecordingSystem(Recording& recording, RecordingScreen& screen) : recording_(recording), screen_(screen) {}

  int CountInstances() override { return Instances; }
  bool HasShortcut(std::string_view name) override;
  Outcome CreateShortcut(const Shortcut& shortcut) override;
  String PicturesFolder() override { return Pictures; }
  void Launch(std::string_view command) override {
    recording_.Add({DeviceEvent::Kind::kLaunch, String(command), false});
  }
  void End() override;

  int Instances = 1;
  std::string Desktop;
  String Pictures;  ///< the user's folder of pictures; empty where he has none

 private:
  Recording& recording_;
  RecordingScreen& screen_;
};

}  // namespace vintoral
