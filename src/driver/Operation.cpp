#include "driver/Operation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/pictures/PictureFile.h"
#include "tariffs/Tasacion.h"

namespace vintoral {
namespace {

constexpr std::array<std::string_view, 22> kOperations = {
    "key",   "type", "set",    "focus",   "click",   "dblclick", "hover", "select",
    "check", "tick", "scroll", "answer",  "unload",  "close",    "get",   "state",
    "view",  "fare", "clock",  "advance", "devices", "camera"};

constexpr std::array<std::pair<Answer, const char*>, 4> kAnswers = {
    {{Answer::kOk, "ok"}, {Answer::kYes, "yes"}, {Answer::kNo, "no"}, {Answer::kCancel, "cancel"}}};

const char* NameOf(Answer answer) {
  return std::find_if(kAnswers.begin(), kAnswers.end(),
                      [&](const auto& each) { return each.first == answer; })
      ->second;
}

const char* NameOf(Icon icon) {
  switch (icon) {
    case Icon::kInformation:
      return "information";
    case Icon::kQuestion:
      return "question";
    case Icon::kExclamation:
      return "exclamation";
    case Icon::kCritical:
      return "critical";
    case Icon::kNone:
      break;
  }
  return "none";
}

const std::vector<String>* ItemsOf(const Control& control) {
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) return &combo->List();
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) return &list->List;
  return nullptr;
}

/// A 0 of `shape` stands for any digit, every other character for itself.
bool HasShape(std::string_view text, std::string_view shape) {
  return std::equal(text.begin(), text.end(), shape.begin(), shape.end(), [](char character, char wanted) {
    return wanted == '0' ? character >= '0' && character <= '9' : character == wanted;
  });
}

}  // namespace

Json ParseOperation(const std::string& line) {
  Json operation = Json::parse(line, nullptr, false);
  if (operation.is_discarded()) throw std::runtime_error("malformed line");
  if (!operation.is_object()) throw std::runtime_error("the line is no object");
  return operation;
}

std::int64_t WholeNumber(const Json& value, const char* name) {
  constexpr double kExact = 9007199254740992;  // 2^53: below it a floating-point number tells each whole one
  if (value.is_number_float()) {
    const auto number = value.get<double>();
    if (number > -kExact && number < kExact && number == std::trunc(number))
      return static_cast<std::int64_t>(number);
  }
  if (!value.is_number_integer())
    throw std::runtime_error(std::string("field '") + name + "' is no whole number");
  if (value.is_number_unsigned() && !std::in_range<std::int64_t>(value.get<std::uint64_t>()))
    throw std::runtime_error(std::string("field '") + name + "' is out of range");
  return value.get<std::int64_t>();
}

void RequireKnown(const std::string& name) {
  if (std::find(kOperations.begin(), kOperations.end(), name) == kOperations.end()) {
    throw std::runtime_error("unknown operation '" + name + "'");
  }
}

void RequireUsable(const Control& control) {
  if (!control.Visible) throw std::runtime_error("control '" + control.Name + "' is hidden");
  if (!control.Enabled) throw std::runtime_error("control '" + control.Name + "' is disabled");
}

void RequireText(const Control& control) {
  if (dynamic_cast<const TextBox*>(&control) == nullptr &&
      dynamic_cast<const ComboBox*>(&control) == nullptr) {
    throw std::runtime_error("control '" + control.Name + "' has no property 'Text'");
  }
}

void RequirePath(const std::string& path) {
  // The system would take the path up to there, which is another one.
  if (path.find('\0') != std::string::npos) throw std::runtime_error("a path holds a zero byte");
}

std::string MakeFolders(const std::string& folder) {
  RequirePath(folder);
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  const std::filesystem::path canonical = std::filesystem::canonical(folder, error);
  if (error || !std::filesystem::is_directory(canonical)) {
    throw std::runtime_error("folder '" + folder + "' can't be made");
  }
  return canonical.string();
}

Moment ParseMoment(const std::string& text) {
  Civil civil;
  const bool time = HasShape(text, "0000-00-00 00:00:00") || HasShape(text, "0000-00-00 00:00:00.000");
  if (time) {
    std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d.%3d", &civil.year, &civil.month, &civil.day,
                &civil.hour, &civil.minute, &civil.second, &civil.millisecond);
  }
  const std::optional<Moment> moment = Moment::From(civil);
  if (!time || !moment) throw std::runtime_error("'" + text + "' is no time");
  return *moment;
}

Moment DefaultMoment() {
  return ParseMoment("2026-01-01 00:00:00");
}

std::string MomentText(Moment moment) {
  const Civil civil = moment.Parts();
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d.%03d", civil.year, civil.month,
                civil.day, civil.hour, civil.minute, civil.second, civil.millisecond);
  return text.data();
}

std::optional<Answer> AnswerNamed(const std::string& name) {
  for (const auto& [answer, known] : kAnswers) {
    if (name == known) return answer;
  }
  return std::nullopt;
}

Control* FindNamed(const Forms& forms, const std::string& name) {
  const std::size_t point = name.find('.');
  if (point == std::string::npos) return forms.Main().Find(name);
  const Form* const form = forms.Find(std::string_view(name).substr(0, point));
  return form == nullptr ? nullptr : form->Find(std::string_view(name).substr(point + 1));
}

int ItemIndex(const Control& control, const Json& operation) {
  const std::vector<String>* const items = ItemsOf(control);
  if (items == nullptr) return -1;
  if (Has(operation, "index")) return Field<int>(operation, "index");
  const String wanted = String::FromUtf8(Field<std::string>(operation, "text"));
  const auto found =
      std::find_if(items->begin(), items->end(), [&](const String& item) { return item == wanted; });
  if (found != items->end()) return static_cast<int>(found - items->begin());
  const auto alike = std::find_if(items->begin(), items->end(),
                                  [&](const String& item) { return EqualNoCase(Trim(item), Trim(wanted)); });
  return alike == items->end() ? -1 : static_cast<int>(alike - items->begin());
}

Json BoxJson(const Box& box) {
  Json buttons = Json::array();
  for (const Answer button : box.buttons)
    buttons.push_back(NameOf(button));
  return {{"box",
           {{"title", box.title.ToUtf8()},
            {"text", box.text.ToUtf8()},
            {"icon", NameOf(box.icon)},
            {"buttons", buttons},
            {"default", NameOf(box.preselected)}}}};
}

Json WaitingJson(const Waiting* waiting, std::int64_t now) {
  if (waiting == nullptr) return nullptr;
  if (waiting->box != nullptr) return BoxJson(*waiting->box);
  if (waiting->form != nullptr) return {{"form", waiting->form->Name()}};
  return {{"wait", std::max<std::int64_t>(waiting->until - now, 0)}};
}

namespace {

Json PrintJson(const PrintOperation& operation) {
  switch (operation.kind) {
    case PrintOperation::Kind::kPicture:
      return {{"op", "picture"},
              {"x", operation.x},
              {"y", operation.y},
              {"width", operation.width},
              {"height", operation.height}};
    case PrintOperation::Kind::kAddFont:
      return {{"op", "addfont"}, {"file", operation.text.ToUtf8()}};
    case PrintOperation::Kind::kRemoveFont:
      return {{"op", "removefont"}, {"file", operation.text.ToUtf8()}};
    case PrintOperation::Kind::kText:
      break;
  }
  return {{"op", "text"},
          {"text", operation.text.ToUtf8()},
          {"font", operation.fontName.ToUtf8()},
          {"size", operation.fontSize},
          {"bold", operation.fontBold},
          {"x", operation.x},
          {"y", operation.y}};
}

Json PrintedJson(const DeviceEvent& event) {
  Json operations = Json::array();
  for (const PrintOperation& operation : event.printed)
    operations.push_back(PrintJson(operation));
  return {{"event", "print"}, {"printer", event.text.ToUtf8()}, {"ops", std::move(operations)}};
}

Json MailedJson(const DeviceEvent& event) {
  const MailMessage& mail = event.mail;
  Json to = Json::array();
  for (const String& address : mail.to)
    to.push_back(address.ToUtf8());
  return {{"event", "mail"},
          {"server", mail.server.ToUtf8()},
          {"port", mail.port},
          {"user", mail.user.ToUtf8()},
          {"auth", mail.logIn},
          {"ssl", mail.privacy != MailPrivacy::kNone},
          {"from", mail.from.ToUtf8()},
          {"to", std::move(to)},
          {"subject", mail.subject.ToUtf8()},
          {"text", mail.text.ToUtf8()},
          {"attachment", mail.attachment.ToUtf8()},
          {"sent", event.sent}};
}

}  // namespace

Json EventJson(const DeviceEvent& event) {
  switch (event.kind) {
    case DeviceEvent::Kind::kPrint:
      return PrintedJson(event);
    case DeviceEvent::Kind::kMail:
      return MailedJson(event);
    case DeviceEvent::Kind::kSound:
      return {{"event", "sound"}, {"file", event.text.ToUtf8()}, {"played", event.played}};
    case DeviceEvent::Kind::kLaunch:
      return {{"event", "launch"}, {"command", event.text.ToUtf8()}};
    case DeviceEvent::Kind::kEnd:
      return {{"event", "end"}};
    case DeviceEvent::Kind::kBeep:
      break;
  }
  return {{"event", "beep"}};
}

std::vector<String> NamesOf(const Json& operation, const char* field, const std::vector<String>& before) {
  if (!Has(operation, field)) return before;
  std::vector<String> names;
  for (const auto& name : Field<std::vector<std::string>>(operation, field))
    names.push_back(String::FromUtf8(name));
  return names;
}

PrinterList PrintersOf(const Json& operation, PrinterList before) {
  if (Has(operation, "printers")) {
    before.names = NamesOf(operation, "printers", {});
    const bool kept =
        std::find(before.names.begin(), before.names.end(), before.current) != before.names.end();
    if (!kept) before.current = before.names.empty() ? String() : before.names.front();
  }
  if (Has(operation, "printer")) before.current = String::FromUtf8(Field<std::string>(operation, "printer"));
  return before;
}

namespace {

CameraMode ModeOf(const Json& mode) {
  return {Field<int>(mode, "width"), Field<int>(mode, "height"), Field<int>(mode, "rate")};
}

CameraControl ControlOf(const Json& control) {
  return {Field<std::string>(control, "id"), String::FromUtf8(Field<std::string>(control, "label")),
          Field<int>(control, "least"), Field<int>(control, "most"), Field<int>(control, "value")};
}

CameraOptions OptionsOf(const Json& operation, CameraOptions before) {
  if (Has(operation, "modes")) {
    before.modes.clear();
    for (const Json& mode : Field<std::vector<Json>>(operation, "modes"))
      before.modes.push_back(ModeOf(mode));
  }
  if (Has(operation, "controls")) {
    before.controls.clear();
    for (const Json& control : Field<std::vector<Json>>(operation, "controls"))
      before.controls.push_back(ControlOf(control));
  }
  return before;
}

}  // namespace

GivenCamera::Given CameraOf(const Json& operation, GivenCamera::Given before) {
  const std::string state = FieldOr(operation, "state", std::string("ok"));
  if (state != "ok" && state != "fail" && state != "gone")
    throw std::runtime_error("no camera is '" + state + "': ok, fail, gone");
  before.fails = state == "fail";
  before.gone = state == "gone";
  before.options = OptionsOf(operation, std::move(before.options));
  if (!operation.contains("frame")) return before;
  before.frame = nullptr;
  if (operation["frame"].is_null()) return before;
  const auto file = Field<std::string>(operation, "frame");
  RequirePath(file);
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) throw std::runtime_error("file '" + file + "' can't be read");
  before.frame = DecodePictureFile({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  if (before.frame == nullptr)
    throw std::runtime_error("file '" + file + "' is no picture (" + kPictureKinds + ")");
  return before;
}

Json FareJson(const Form1& station, const String& category, const String& entry, const String& exit) {
  const Duracion stay = DuracionEntre(entry, exit);
  const Tasacion account = Tasar(station.TablaTarifas, category, stay.estadia);
  return {{"stay", stay.texto.ToUtf8()},
          {"days", stay.estadia.dias},
          {"hours", stay.estadia.horas},
          {"minutes", stay.estadia.minutos},
          {"value", account.valor.valor.Format().ToUtf8()},
          {"shown", account.valor.conPrecio},
          {"points", account.puntos}};
}

}  // namespace vintoral
