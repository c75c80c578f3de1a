// Reading one operation, and the small pieces of a reply.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/Screen.h"
#include "platform/headless/GivenCamera.h"
#include "platform/headless/Recording.h"
#include "station/form1/Form1.h"

namespace vintoral {

using Json = nlohmann::ordered_json;

/// All of these throw std::exception with a text that names the culprit; the driver turns it into a reply.

/// One line of input: a JSON object.
Json ParseOperation(const std::string& line);

/// The whole number of a field; a fraction is none, and neither is what 64 bits can't hold.
std::int64_t WholeNumber(const Json& value, const char* name);

template <class T>
T Field(const Json& operation, const char* name) {
  if (!operation.contains(name)) throw std::runtime_error(std::string("field '") + name + "' is missing");
  if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
    const std::int64_t number = WholeNumber(operation[name], name);
    if (!std::in_range<T>(number))
      throw std::runtime_error(std::string("field '") + name + "' is out of range");
    return static_cast<T>(number);
  }
  try {
    return operation[name].get<T>();
  } catch (const nlohmann::json::exception&) {
    throw std::runtime_error(std::string("field '") + name + "' has the wrong type");
  }
}

/// A null stands for a field that was left out.
inline bool Has(const Json& operation, const char* name) {
  return operation.contains(name) && !operation[name].is_null();
}

template <class T>
T FieldOr(const Json& operation, const char* name, const T& otherwise) {
  return Has(operation, name) ? Field<T>(operation, name) : otherwise;
}

void RequireKnown(const std::string& name);
void RequireUsable(const Control& control);
void RequireText(const Control& control);
/// Refuses what can't be a path.
void RequirePath(const std::string& path);
/// Makes the station's folder with all above it; returns its absolute path.
std::string MakeFolders(const std::string& folder);

/// "yyyy-MM-dd hh:mm:ss", with or without ".mmm".
Moment ParseMoment(const std::string& text);
/// Where a session starts that names no time.
Moment DefaultMoment();
/// "yyyy-MM-dd hh:mm:ss.mmm".
std::string MomentText(Moment moment);

std::optional<Answer> AnswerNamed(const std::string& name);
/// By screen name: "TxtCampo(0)" of the main form, "Form4.LstArticulo" of any loaded one. Null for no
/// control.
Control* FindNamed(const Forms& forms, const std::string& name);
/// The item that "index" or "text" names; -1 for none.
int ItemIndex(const Control& control, const Json& operation);

Json BoxJson(const Box& box);
/// What the station waits for, `now` in Clock::Ticks; null when it waits for nothing.
Json WaitingJson(const Waiting* waiting, std::int64_t now);
Json EventJson(const DeviceEvent& event);
/// What "printers" and "printer" tell of the printers; what they don't tell stays as it was. Where a list
/// doesn't hold the current printer, the first one is it.
PrinterList PrintersOf(const Json& operation, PrinterList before);
/// The texts of a list, those of `before` where the field is left out.
std::vector<String> NamesOf(const Json& operation, const char* field, const std::vector<String>& before);
/// What "frame" and "state" tell of a camera, and "modes" ("width", "height", "rate") and "controls" ("id",
/// "label", "least", "most", "value") of its settings; what is left out, but for the state, stays as it was.
GivenCamera::Given CameraOf(const Json& operation, GivenCamera::Given before);
Json FareJson(const Form1& station, const String& category, const String& entry, const String& exit);

}  // namespace vintoral
