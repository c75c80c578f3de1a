// A screen on which Esc is pressed, or something else happens, while some work goes on.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/headless/Recording.h"

namespace vintoral::test {

inline constexpr const char* kSearching = "Buscando en el historial…";
inline constexpr const char* kReporting = "Escribiendo el informe…";

class ImpatientScreen : public RecordingScreen {
 public:
  using RecordingScreen::RecordingScreen;
  bool Working(const String& what, double done) override {
    Shares[what.ToUtf8()].push_back(done);
    if (Meanwhile) Meanwhile();
    return !Ends;
  }
  void Worked() override { ++Ended; }
  bool Ends = false;                                  ///< Esc has been pressed
  std::function<void()> Meanwhile;                    ///< each time that some work tells how far it is
  std::map<std::string, std::vector<double>> Shares;  ///< by what was done
  int Ended = 0;                                      ///< how often some work was over
};

}  // namespace vintoral::test
