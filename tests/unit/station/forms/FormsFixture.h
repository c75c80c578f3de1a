// A main form and dialogs of one control of each kind, on a screen that the test serves.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"
#include "station/forms/Forms.h"
#include "station/forms/Input.h"

namespace vintoral::test {

class TestForm : public Form {
 public:
  explicit TestForm(std::string name, std::vector<std::string>* log = nullptr)
      : Form(std::move(name)), log_(log) {
    Add(Texts, "TxtTest");
    Add(List, "LstTest");
    Add(Tick, "ChkTest");
    Add(Options, "OptTest");
    Add(Others, "OptOther");
    Add(Panel, "FraTest");
    Add(Button, "CmdTest");
    Add(Caption, "LblTest");
    Add(Clock, "TmrTest");
    Texts[1].MultiLine = true;
    for (OptionButton& option : Options)
      option.Panel = &Panel;
    Clock.Enabled = false;
  }
  ~TestForm() override { Log("freed"); }

  bool Form_KeyDown(int KeyCode, int Shift) override {
    if (KeyCode != CommandKey) return false;
    Log("command " + std::to_string(Shift));
    if (OnCommand) OnCommand();
    return true;
  }
  void Form_MouseMove() override { Log("left"); }
  bool Form_QueryUnload() override { return !Refuses; }
  void Form_Unload() override { Log("unload"); }

  std::array<TextBox, 2> Texts;
  ListBox List;
  CheckBox Tick;
  std::array<OptionButton, 3> Options;
  std::array<OptionButton, 2> Others;
  Frame Panel;
  CommandButton Button;
  Label Caption;
  Timer Clock;

  int CommandKey = keys::kEscape;
  bool Refuses = false;
  std::function<void()> OnCommand;

 private:
  void Log(const std::string& what) {
    if (log_ != nullptr) log_->push_back(Name() + " " + what);
  }
  std::vector<std::string>* log_;
};

class FormsTest : public testing::Test {
 protected:
  FormsTest() {
    screen_.OnWait = [this] {
      if (steps_.empty()) {
        ADD_FAILURE() << "nobody ends this wait";
        return screen_.Close();
      }
      const auto step = steps_.front();
      steps_.pop_front();
      step();
    };
    for (Timer* timer : main_.Timers())
      timer->UseClock(clock_);
  }
  TestForm& Load(const std::string& name) {
    TestForm& form = forms_.Load(std::make_unique<TestForm>(name, &log_));
    form.Clock.UseClock(clock_);
    return form;
  }
  int Beeps() {
    int beeps = 0;
    for (const DeviceEvent& event : events_.Take())
      beeps += event.kind == DeviceEvent::Kind::kBeep ? 1 : 0;
    return beeps;
  }

  std::vector<std::string> log_;
  Recording events_;
  VirtualClock clock_;
  RecordingScreen screen_{events_, clock_};
  TestForm main_{"Form1", &log_};
  Forms forms_{main_, screen_, clock_};
  Input hands_{forms_};
  /// What happens in the nested loops, one turn each.
  std::deque<std::function<void()>> steps_;
};

}  // namespace vintoral::test
