// The second face of the station: operations come in as JSON lines, replies go out as JSON lines.
//
// A reply is written each time the station waits for its operator again. An operation that opens a box is
// therefore answered while the box is still up, and the lines that follow are read from within that
// operation.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "platform/headless/HeadlessPlatform.h"
#include "platform/pictures/PictureDecoder.h"
#include "station/form1/Form1.h"
#include "station/forms/Input.h"

namespace vintoral {

using Json = nlohmann::ordered_json;

class Driver {
 public:
  /// `read` gives the next line, or nothing at the end of the input; `write` takes one reply.
  Driver(std::function<std::optional<std::string>()> read, std::function<void(const std::string&)> write);

  /// Runs until the input ends or "quit" is read.
  void Run();

 private:
  struct Station {
    explicit Station(const std::string& path)
        : folder(path),
          platform(path, pictures),
          form(platform.Devices()),
          forms(form.OpenForms),
          input(forms) {}
    const std::string folder;  ///< absolute
    PictureDecoder pictures;
    HeadlessPlatform platform;
    Form1 form;
    Forms& forms;
    Input input;
  };

  /// Answers the operation before, then reads and carries out the next one.
  void Step();
  void Reply();
  /// Lets time pass that was asked for, as far as the station's innermost wait.
  void LetTimePass();
  void Execute(const std::string& line);
  void Dispatch(const Json& operation);
  void Start(const Json& operation);
  void Drive(const std::string& name, const Json& operation);
  void DriveForm(const std::string& name, const Json& operation);
  void Look(const std::string& name, const Json& operation);
  void SetDevices(const Json& operation);
  void SetCamera(const Json& operation);
  void AnswerBox(const Json& operation);
  void Advance(const Json& operation);
  void DriveControl(const std::string& name, Control& control, const Json& operation);
  void Fare(const Json& operation);
  Control& FindControl(const Json& operation) const;
  Form* FindForm(const std::string& name) const;
  void RequireNoBox() const;
  /// Refuses what another form holds.
  void RequireReach(const Form& form) const;

  std::function<std::optional<std::string>()> read_;
  std::function<void(const std::string&)> write_;
  std::unique_ptr<Station> station_;
  std::optional<std::int64_t> until_;  ///< time is to pass until this moment of Clock::Ticks
  std::optional<Json> reply_;          ///< of the operation under way; written when the station waits again
};

}  // namespace vintoral
