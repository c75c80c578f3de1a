// A station in memory: its disk, its clock and its operator are the test's.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/Moment.h"
#include "platform/headless/GivenCamera.h"
#include "platform/headless/Recording.h"
#include "platform/headless/RecordingMail.h"
#include "platform/headless/VirtualClock.h"
#include "platform/pictures/PictureDecoder.h"
#include "station/form1/Form1.h"
#include "station/forms/Input.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"
#include "support/ScriptedRandom.h"

namespace vintoral::test {

inline Moment At(int hour, int minute, int second = 0, int day = 20) {
  return Moment::From(
             {.year = 2026, .month = 11, .day = day, .hour = hour, .minute = minute, .second = second})
      .value();
}

class MemoryStation {
 public:
  explicit MemoryStation(Moment now = At(14, 0)) {
    Clock.Set(now);
    Screen.OnWait = [this] { Serve(); };
    Camera.Installed = {"CAMARA"_w};  // of which no frame comes until a test gives one
  }

  /// The start sequence on whatever the disk holds; the welcome is answered.
  void Start() {
    Answers = {Answer::kOk};
    Form.Form_Load();
    Boxes.clear();
    Events.Take();
  }
  /// The start, and the first tick of the link watch.
  void StartConnected() {
    Start();
    Pass(3000);
    ASSERT_EQ(Form.LblConexion[0].BackColor, kLightGreen);
    Events.Take();
  }

  void Pass(std::int64_t milliseconds) { AdvanceTime(Clock, Form.OpenForms, milliseconds); }
  void Type(std::string_view text) {
    for (const char character : text)
      Hands.Character(character);
  }
  void TypeAndEnter(std::string_view text) {
    Type(text);
    Hands.Key(keys::kEnter, 0);
  }
  /// Number and plate of a new ficha typed, as far as the question of saving. Needs a screen at idle.
  void TypeNew(std::string_view number, std::string_view plate) {
    TypeAndEnter(number);
    TypeAndEnter(plate);
  }
  /// The whole way of one entry, answered with yes.
  void Enter(std::string_view number, std::string_view plate) {
    TypeNew(number, plate);
    Answers.push_back(Answer::kYes);
    Hands.Key(keys::kInsert, 0);
  }

  /// Files that were asked to be heard since the last look.
  std::vector<String> Heard() {
    std::vector<String> files;
    for (const DeviceEvent& event : Events.Take()) {
      if (event.kind == DeviceEvent::Kind::kSound) files.push_back(event.text);
    }
    return files;
  }
  /// Beeps since the last look.
  int Beeps() {
    const auto events = Events.Take();
    return static_cast<int>(std::count_if(events.begin(), events.end(), [](const DeviceEvent& event) {
      return event.kind == DeviceEvent::Kind::kBeep;
    }));
  }
  std::vector<String> Launched() {
    std::vector<String> commands;
    for (const DeviceEvent& event : Events.Take()) {
      if (event.kind == DeviceEvent::Kind::kLaunch) commands.push_back(event.text);
    }
    return commands;
  }

  /// Writes a slot of the register, as another gate would.
  void PutSlot(std::size_t number, const RegistroFicha& ficha) {
    const auto bytes = ficha.Encode();
    std::string act = Disk.Get("Multimedia\\Vintoral.ACT");
    act.replace((number - 1) * bytes.size(), bytes.size(), bytes.data(), bytes.size());
    Disk.Put("Multimedia\\Vintoral.ACT", act);
  }
  RegistroFicha Slot(std::size_t number) const { return Row("Multimedia\\Vintoral.ACT", number); }
  RegistroFicha History(std::size_t row) const { return Row("Multimedia\\Vintoral.HST", row); }
  std::size_t HistoryRows() const {
    return Disk.Get("Multimedia\\Vintoral.HST").size() / RegistroFicha::kSize;
  }

  MemoryDisk Disk;
  FaultyDisk Faulty{Disk};
  VirtualClock Clock;
  Recording Events;
  RecordingScreen Screen{Events, Clock};
  RecordingSystem System{Events, Screen};
  RecordingSound Sound{Events};
  PictureDecoder Pictures;
  RecordingPrinter Printer{Events};
  ScriptedRandom Chance;
  GivenCamera Camera;
  RecordingMail Mail{Events};
  Form1 Form{Platform{Clock, Screen, Sound, System, Faulty, Pictures, Printer, Chance, Camera, Mail}};
  Input Hands{Form.OpenForms};

  /// What the operator will answer, box by box.
  std::deque<vintoral::Answer> Answers;
  /// The boxes that were shown.
  std::vector<Box> Boxes;
  /// Happens once, under the next box, before it is answered.
  std::function<void()> UnderBox;
  /// What the operator will do in a dialog that has opened, step by step.
  std::deque<std::function<void()>> InDialog;
  /// Happens once, under the next wait, before the time passes.
  std::function<void()> UnderWait;
  /// How long the station has waited by itself, wait by wait, in milliseconds.
  std::vector<std::int64_t> Waits;

 private:
  using Answer_t = vintoral::Answer;

  /// One turn of a nested loop: what stands on screen is answered or used, or time passes.
  void Serve() {
    const Waiting waiting = *Screen.Innermost();
    if (waiting.box != nullptr) return Answer();
    if (waiting.form != nullptr) return Use(*waiting.form);
    if (const auto happens = std::exchange(UnderWait, nullptr)) happens();
    Waits.push_back(waiting.until - Clock.Ticks());
    Pass(Waits.back());
  }

  void Use(const ScreenForm& form) {
    if (InDialog.empty()) {
      ADD_FAILURE() << "nobody closes " << form.Name();
      Screen.Close();
      return;
    }
    const auto step = InDialog.front();
    InDialog.pop_front();
    step();
  }

  void Answer() {
    Boxes.push_back(*Screen.Shown());
    if (const auto happens = std::exchange(UnderBox, nullptr)) happens();
    if (Screen.Shown() == nullptr || Form.Terminado()) return;
    if (Answers.empty()) {
      ADD_FAILURE() << "nobody expects the box " << Boxes.back().title.Bytes();
      Screen.Close();
      return;
    }
    const Answer_t answer = Answers.front();
    Answers.pop_front();
    if (!Screen.Answer(answer)) {
      ADD_FAILURE() << "no such button in the box " << Boxes.back().title.Bytes();
      Screen.Close();
    }
  }

  RegistroFicha Row(std::string_view file, std::size_t number) const {
    const std::string bytes = Disk.Get(file);
    const std::size_t from = (number - 1) * RegistroFicha::kSize;
    if (bytes.size() < from + RegistroFicha::kSize) {
      ADD_FAILURE() << "no record " << number << " in " << file;
      return {};
    }
    return RegistroFicha::Decode(
        std::span<const char, RegistroFicha::kSize>(bytes.data() + from, RegistroFicha::kSize));
  }
};

}  // namespace vintoral::test
