#include "driver/Driver.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "common/Numbers.h"
#include "driver/Mailing.h"
#include "driver/Operation.h"
#include "driver/Properties.h"
#include "platform/headless/PassTime.h"

namespace vintoral {

Driver::Driver(std::function<std::optional<std::string>()> read,
               std::function<void(const std::string&)> write)
    : read_(std::move(read)), write_(std::move(write)) {}

namespace {

/// Leaves the station where it stands, under whatever box: nothing more of it runs, as if the power had been
/// cut.
struct Stopped {};

}  // namespace

void Driver::Run() {
  try {
    for (;;)
      Step();
  } catch (const Stopped&) {
    Reply();
  }
}

void Driver::Step() {
  if (until_) return LetTimePass();
  Reply();
  const std::optional<std::string> line = read_();
  if (!line) throw Stopped();
  Execute(*line);
}

void Driver::Reply() {
  if (!reply_) return;
  Json reply = *std::exchange(reply_, std::nullopt);
  reply["now"] = nullptr;
  reply["waiting"] = nullptr;
  reply["events"] = Json::array();
  if (station_) {
    HeadlessPlatform& platform = station_->platform;
    reply["now"] = MomentText(platform.Clock.Now());
    reply["waiting"] = WaitingJson(platform.Screen.Innermost(), platform.Clock.Ticks());
    for (const DeviceEvent& event : platform.Events.Take())
      reply["events"].push_back(EventJson(event));
  }
  write_(reply.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Driver::LetTimePass() {
  // Taken first: a tick that opens a box or waits is answered from within, and the rest passes when that is
  // over.
  const std::int64_t until = *std::exchange(until_, std::nullopt);
  until_ = PassTime(station_->platform.Clock, station_->forms, station_->platform.Screen.Innermost(), until);
}

void Driver::Execute(const std::string& line) {
  reply_ = Json{{"ok", true}};
  try {
    Dispatch(ParseOperation(line));
  } catch (const std::exception& failure) {
    reply_ = Json{{"ok", false}, {"error", failure.what()}};
  }
}

void Driver::RequireNoBox() const {
  if (const Box* box = station_->platform.Screen.Shown()) {
    throw std::runtime_error("the box '" + box->title.ToUtf8() + "' is on screen");
  }
}

void Driver::RequireReach(const Form& form) const {
  if (!form.Shown()) throw std::runtime_error("form '" + form.Name() + "' is not on screen");
  if (station_->forms.Reaches(form)) return;
  throw std::runtime_error("form '" + station_->forms.Active().Name() + "' holds form '" + form.Name() + "'");
}

void Driver::Dispatch(const Json& operation) {
  const std::string name = Field<std::string>(operation, "op");
  if (name == "quit") throw Stopped();
  if (name == "start") return Start(operation);
  RequireKnown(name);
  if (!station_) throw std::runtime_error("no station is started");
  if (station_->form.Terminado()) throw std::runtime_error("the program has ended");
  if (name == "answer") return AnswerBox(operation);
  if (name == "advance") return Advance(operation);
  if (name == "devices") return SetDevices(operation);
  if (name == "camera") return SetCamera(operation);
  if (name == "clock") return station_->platform.Clock.Set(ParseMoment(Field<std::string>(operation, "now")));
  if (name == "fare") return Fare(operation);
  if (name == "get" || name == "state" || name == "view") return Look(name, operation);
  RequireNoBox();
  Drive(name, operation);
}

void Driver::Start(const Json& operation) {
  if (station_ && station_->platform.Screen.Innermost() != nullptr) {
    RequireNoBox();
    throw std::runtime_error("the station is waiting");
  }
  const std::string folder = Field<std::string>(operation, "dir");
  const Moment before = station_ ? station_->platform.Clock.Now() : DefaultMoment();
  const Moment now = Has(operation, "now") ? ParseMoment(Field<std::string>(operation, "now")) : before;
  auto station = std::make_unique<Station>(MakeFolders(folder));
  station->platform.Clock.Set(now);
  if (Has(operation, "seed")) station->platform.Chance.Seed(Field<std::uint64_t>(operation, "seed"));
  station->platform.System.Instances = FieldOr(operation, "instances", 1);
  station->platform.System.Desktop = FieldOr(operation, "desktop", std::string());
  RequirePath(station->platform.System.Desktop);
  station->platform.Screen.OnWait = [this] { Step(); };
  station->platform.System.Pictures = String::FromUtf8(FieldOr(operation, "pictures", std::string()));
  RequirePath(station->platform.System.Pictures.Bytes());
  station->platform.Printer.Installed = PrintersOf(operation, {});
  station->platform.Camera.Installed = NamesOf(operation, "cameras", {});
  MailingOf(operation, station->folder).ApplyTo(station->platform.Mail);
  station_ = std::move(station);
  station_->form.Form_Load();
}

void Driver::SetDevices(const Json& operation) {
  HeadlessPlatform& platform = station_->platform;
  const PrinterList printers = PrintersOf(operation, platform.Printer.Installed);
  const std::vector<String> cameras = NamesOf(operation, "cameras", platform.Camera.Installed);
  MailingOf(operation, station_->folder).ApplyTo(platform.Mail);
  platform.Printer.Installed = printers;
  platform.Camera.Installed = cameras;
}

void Driver::SetCamera(const Json& operation) {
  GivenCamera::Given& camera =
      station_->platform.Camera.Cameras[String::FromUtf8(Field<std::string>(operation, "name"))];
  camera = CameraOf(operation, camera);
}

void Driver::AnswerBox(const Json& operation) {
  const std::string button = Field<std::string>(operation, "button");
  if (station_->platform.Screen.Shown() == nullptr) throw std::runtime_error("no box is on screen");
  const std::optional<Answer> answer = AnswerNamed(button);
  if (!answer || !station_->platform.Screen.Answer(*answer)) {
    throw std::runtime_error("the box has no button '" + button + "'");
  }
}

void Driver::Advance(const Json& operation) {
  constexpr std::int64_t kMonth = 31LL * 24 * 3600 * 1000;
  const auto milliseconds = Field<std::int64_t>(operation, "ms");
  if (milliseconds < 0 || milliseconds > kMonth) throw std::runtime_error("field 'ms' is out of range");
  until_ = station_->platform.Clock.Ticks() + milliseconds;
}

Form* Driver::FindForm(const std::string& name) const {
  return station_->forms.Find(name);
}

Control& Driver::FindControl(const Json& operation) const {
  const auto name = Field<std::string>(operation, "control");
  if (Control* control = FindNamed(station_->forms, name)) return *control;
  throw std::runtime_error("unknown control '" + name + "'");
}

void Driver::Drive(const std::string& name, const Json& operation) {
  if (name == "key") return station_->input.Key(Field<int>(operation, "code"), FieldOr(operation, "mask", 0));
  if (name == "type") {
    const String text = String::FromUtf8(Field<std::string>(operation, "text"));
    for (const char character : text.Bytes()) {
      station_->input.Character(character == '\n' ? '\r' : character);
      if (station_->form.Terminado()) return;
    }
    return;
  }
  if (name == "close") {
    RequireReach(station_->form);
    return station_->input.CloseBox(station_->form);
  }
  if (name == "unload") return DriveForm(name, operation);
  if (name == "hover" && FindForm(Field<std::string>(operation, "control")) != nullptr)
    return DriveForm(name, operation);
  Control& control = FindControl(operation);
  RequireReach(*control.Owner);
  if (name == "hover") return station_->input.Hover(control);
  RequireUsable(control);
  if (name == "click") return station_->input.Click(control);
  if (name == "dblclick") return station_->input.DoubleClick(control);
  DriveControl(name, control, operation);
}

void Driver::DriveForm(const std::string& name, const Json& operation) {
  const bool hover = name == "hover";
  const auto named = Field<std::string>(operation, hover ? "control" : "form");
  Form* const form = FindForm(named);
  if (form == nullptr) throw std::runtime_error("form '" + named + "' is not loaded");
  RequireReach(*form);
  if (hover) return station_->input.Leave(*form);
  if (form == &station_->form) throw std::runtime_error("form '" + named + "' is no dialog");
  station_->input.CloseBox(*form);
}

void Driver::DriveControl(const std::string& name, Control& control, const Json& operation) {
  Input& input = station_->input;
  if (name == "focus") {
    if (!control.CanFocus) throw std::runtime_error("control '" + control.Name + "' takes no focus");
    return input.Focus(control);
  }
  if (name == "set") {
    RequireText(control);
    return input.ReplaceText(control, String::FromUtf8(Field<std::string>(operation, "text")));
  }
  if (name == "select" && !input.Select(control, ItemIndex(control, operation))) {
    throw std::runtime_error("control '" + control.Name + "' has no such item");
  }
  if (name == "check" && !input.Check(control, Field<int>(operation, "value"))) {
    throw std::runtime_error("control '" + control.Name + "' takes no such value");
  }
  if (name == "tick" &&
      !input.Tick(control, Field<int>(operation, "index"), Field<int>(operation, "value"))) {
    throw std::runtime_error("control '" + control.Name + "' has no such tick");
  }
  if (name == "scroll" && !input.Scroll(control, Field<int>(operation, "top"))) {
    throw std::runtime_error("control '" + control.Name + "' has no such row");
  }
}

void Driver::Look(const std::string& name, const Json& operation) {
  if (name == "state") {
    (*reply_)["state"] = StateOf(station_->form);
    return;
  }
  if (name == "view") {
    Json view = Json::array();
    for (const RegistroFicha& record : station_->form.VistaFichas)
      view.push_back(FieldsOf(record));
    (*reply_)["view"] = std::move(view);
    return;
  }
  Json values = Json::object();
  for (const auto& control : Field<std::vector<std::string>>(operation, "controls")) {
    values[control] = PropertiesOf(FindControl(Json{{"control", control}}));
  }
  (*reply_)["values"] = std::move(values);
}

void Driver::Fare(const Json& operation) {
  const auto text = [&](const char* field) { return String::FromUtf8(Field<std::string>(operation, field)); };
  (*reply_)["fare"] = FareJson(station_->form, text("category"), text("entry"), text("exit"));
}

}  // namespace vintoral
