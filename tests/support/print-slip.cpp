// print-slip FOLDER: prints documents that stand on standard input, one JSON object a line, as a station in
// FOLDER would, and tells of each call how long it took.
//   {"do": "list"}                             {"names": [...], "current": "...", "ms": 1.5}
//   {"do": "print", "printer": "...", "steps": [...]}       {"ms": 0.1}
//   {"do": "rest", "ms": 100}                               {}
// A step is an object with one of: size, font, bold, x, y, print (a text), addFont and removeFont (a station
// path), picture (a station path, with x, y, width and height). At the end of the input the printer ends:
//                                              {"end": 12.5}
#include <QGuiApplication>
#include <chrono>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <thread>

#include "platform/desktop/DesktopPlatform.h"

namespace vintoral {
namespace {

using Json = nlohmann::json;

template <class Work>
double Milliseconds(Work work) {
  const auto begun = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
}

String TextOf(const Json& text) {
  return String::FromUtf8(text.get<std::string>());
}

void Step(PrintDocument& document, const Json& step) {
  const auto twips = [&](const char* name) { return step.at(name).get<Twips>(); };
  if (step.contains("picture"))
    return document.PaintPicture(TextOf(step["picture"]), twips("x"), twips("y"), twips("width"),
                                 twips("height"));
  if (step.contains("size")) document.FontSize = step["size"];
  if (step.contains("font")) document.FontName = TextOf(step["font"]);
  if (step.contains("bold")) document.FontBold = step["bold"];
  if (step.contains("x")) document.CurrentX = twips("x");
  if (step.contains("y")) document.CurrentY = twips("y");
  if (step.contains("print")) document.Print(TextOf(step["print"]));
  if (step.contains("addFont")) document.AddFontResource(TextOf(step["addFont"]));
  if (step.contains("removeFont")) document.RemoveFontResource(TextOf(step["removeFont"]));
}

Json List(Printer& printer) {
  PrinterList list;
  const double taken = Milliseconds([&] { list = printer.Printers(); });
  Json names = Json::array();
  for (const String& name : list.names)
    names.push_back(name.ToUtf8());
  return {{"names", names}, {"current", list.current.ToUtf8()}, {"ms", taken}};
}

Json Print(Printer& printer, const Json& line) {
  PrintDocument document(TextOf(line.at("printer")));
  for (const Json& step : line.at("steps"))
    Step(document, step);
  return {{"ms", Milliseconds([&] { printer.EndDoc(std::move(document)); })}};
}

Json Do(Printer& printer, const Json& line) {
  if (line.at("do") == "list") return List(printer);
  if (line.at("do") == "print") return Print(printer, line);
  std::this_thread::sleep_for(std::chrono::milliseconds(line.at("ms").get<int>()));
  return Json::object();
}

}  // namespace
}  // namespace vintoral

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  std::optional<vintoral::DesktopPlatform> platform(argv[1]);
  for (std::string line; std::getline(std::cin, line);)
    std::cout << vintoral::Do(platform->Printer, vintoral::Json::parse(line)) << std::endl;
  const double taken = vintoral::Milliseconds([&] { platform.reset(); });
  std::cout << vintoral::Json{{"end", taken}} << std::endl;
}
