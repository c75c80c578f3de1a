// film: does with the cameras of this machine what standard input says, one JSON object a line, as a station
// would, and tells of each call how long it took.
//   {"do": "list"}                                       {"names": [...] or null, "ms": 0.1}
//   {"do": "start", "name": "...", "address": "..."}     {"ms": 0.1}
//   {"do": "stop"}                                       {"ms": 0.1}
//   {"do": "snap", "points": [[x, y], ...]}              {"width": 640, "height": 480, "colours": [[b, g, r],
//   ...], "ms": 1.5}
//   {"do": "snaps", "count": 100}                        {"times": [...]}
//   {"do": "show", "width": 100, "height": 100}          {"ms": 0.1}
//   {"do": "live"}                                       {"width": 100, "height": 75, "news": 3, "ms": 0.1}
//   {"do": "options"}                                    {"modes": [[640, 480, 30], ...], "mode": [...],
//   "ms": 0.1}
//   {"do": "set", "mode": [640, 480, 30]}                {"ms": 0.1}
// A width of 0 says that there was no picture. At the end of the input the cameras end:  {"end": 12.5}
#include <atomic>
#include <chrono>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "platform/desktop/DesktopCamera.h"

namespace vintoral {
namespace {

using Json = nlohmann::json;

class Film {
 public:
  Film() { camera_->Begin(); }

  Json Do(const Json& line) {
    Json answer = Json::object();
    answer["ms"] = Milliseconds([&] { Answer(line, answer); });
    return answer;
  }
  double End() {
    return Milliseconds([&] { camera_.reset(); });
  }

 private:
  template <class Work>
  static double Milliseconds(Work work) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
  }

  void Answer(const Json& line, Json& answer) {
    const std::string what = line.at("do");
    if (what == "list") return List(answer);
    if (what == "start") return camera_->Start(SourceOf(line));
    if (what == "stop") return camera_->Stop();
    if (what == "snap") return Snap(line, answer);
    if (what == "snaps") return Snaps(line.at("count"), answer);
    if (what == "show") return camera_->Show(line.at("width"), line.at("height"), [this] { ++news_; });
    if (what == "live") return Live(answer);
    if (what == "options") return Options(answer);
    if (what == "set") return camera_->Set(SourceOf(line).format);
    throw std::runtime_error("film does not know " + what);
  }

  static CameraSource SourceOf(const Json& line) {
    CameraSource source{
        String::FromUtf8(line.value("name", "")), String::FromUtf8(line.value("address", "")), {}};
    if (line.contains("mode"))
      source.format.mode = CameraMode{line["mode"][0], line["mode"][1], line["mode"][2]};
    return source;
  }

  void List(Json& answer) {
    const auto names = camera_->Devices();
    answer["names"] = names ? Json::array() : Json();
    for (const String& name : names.value_or(std::vector<String>()))
      answer["names"].push_back(name.ToUtf8());
  }

  void Snap(const Json& line, Json& answer) {
    const std::shared_ptr<const cImage> still = camera_->Snap();
    answer["width"] = still ? still->Width() : 0;
    answer["height"] = still ? still->Height() : 0;
    answer["colours"] = Json::array();
    if (!still) return;
    for (const Json& point : line.value("points", Json::array())) {
      const int x = point.at(0), y = point.at(1);
      const std::uint8_t* const pixel =
          still->DIBitsPtr() + static_cast<std::size_t>(still->Height() - 1 - y) * still->BytesPerScanLine() +
          3 * x;
      answer["colours"].push_back({pixel[0], pixel[1], pixel[2]});
    }
  }

  void Snaps(int count, Json& answer) {
    for (int i = 0; i < count; ++i)
      answer["times"].push_back(Milliseconds([&] { camera_->Snap(); }));
  }

  void Live(Json& answer) {
    const std::shared_ptr<const LivePicture> live = camera_->Live();
    answer["width"] = live ? live->width : 0;
    answer["height"] = live ? live->height : 0;
    answer["news"] = news_.load();
  }

  void Options(Json& answer) {
    const CameraOptions options = camera_->Options();
    const auto row = [](const CameraMode& mode) {
      return Json{mode.width, mode.height, mode.framesPerSecond};
    };
    answer["modes"] = Json::array();
    for (const CameraMode& mode : options.modes)
      answer["modes"].push_back(row(mode));
    answer["mode"] = options.mode ? row(*options.mode) : Json();
  }

  std::atomic<int> news_ = 0;
  std::optional<DesktopCamera> camera_{std::in_place};
};

}  // namespace
}  // namespace vintoral

int main() {
  vintoral::Film film;
  for (std::string line; std::getline(std::cin, line);)
    std::cout << film.Do(vintoral::Json::parse(line)) << std::endl;
  std::cout << vintoral::Json{{"end", film.End()}} << std::endl;
}
