// A station whose mails are under way until the test says what became of them.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "support/MemoryStation.h"

namespace vintoral::test {

class SlowMail final : public Mail {
 public:
  bool Connected(std::string_view /*relay*/) override { return true; }
  std::unique_ptr<Sending> Send(const MailMessage& /*message*/) override {
    ++Sent;
    return std::make_unique<UnderWay>(*this);
  }

  int Sent = 0, GivenUp = 0;
  std::optional<bool> Result;

 private:
  class UnderWay final : public Sending {
   public:
    explicit UnderWay(SlowMail& mail) : mail_(mail) {}
    ~UnderWay() override { mail_.GivenUp += mail_.Result ? 0 : 1; }
    std::optional<bool> Result() override { return mail_.Result; }

   private:
    SlowMail& mail_;
  };
};

/// Screen with a record of the hourglass.
class WatchedScreen final : public Screen {
 public:
  explicit WatchedScreen(Screen& screen) : screen_(screen) {}
  vintoral::Answer Show(const Box& box) override { return screen_.Show(box); }
  void ShowModal(const ScreenForm& form) override { screen_.ShowModal(form); }
  void Wait(std::int64_t milliseconds) override {
    Waits.push_back(milliseconds);
    if (OnStep) OnStep(Waits.size());
    screen_.Wait(milliseconds);
  }
  void Beep() override { screen_.Beep(); }
  void Busy(bool busy) override { IsBusy = busy; }

  bool IsBusy = false;
  std::vector<std::int64_t> Waits;
  /// Happens at the start of each wait, the first is 1.
  std::function<void(std::size_t)> OnStep;

 private:
  Screen& screen_;
};

class Lento : public testing::Test {
 protected:
  Lento() {
    around_.Screen.OnWait = [this] { Serve(); };
    Form.Form_Load();
    around_.Events.Take();
    screen_.Waits.clear();
  }

  MemoryStation around_;
  SlowMail mail_;
  WatchedScreen screen_{around_.Screen};
  Form1 Form{Platform{around_.Clock, screen_, around_.Sound, around_.System, around_.Faulty, around_.Pictures,
                      around_.Printer, around_.Chance, around_.Camera, mail_}};
  Input Hands{Form.OpenForms};

 private:
  void Serve() {
    const Waiting waiting = *around_.Screen.Innermost();
    if (waiting.box != nullptr) {
      const vintoral::Answer first = waiting.box->buttons.front();
      around_.Screen.Answer(first);
      return;
    }
    AdvanceTime(around_.Clock, Form.OpenForms, waiting.until - around_.Clock.Ticks());
  }
};

}  // namespace vintoral::test
