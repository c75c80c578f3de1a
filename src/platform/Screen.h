// What the station asks of the screen beyond the controls: boxes, dialogs, waits, the beep, the wait cursor.
//
// A box, a modal form and a wait are three reasons to stay in one nested loop: timers tick and the screen is
// alive in each of them, and the end of the program ends them all.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "common/String.h"

namespace vintoral {

enum class Icon { kNone, kInformation, kQuestion, kExclamation, kCritical };
enum class Answer { kOk, kYes, kNo, kCancel };

/// A message box: the operator is held by it until one of `buttons` is chosen.
struct Box {
  String title;
  String text;
  Icon icon = Icon::kNone;
  std::vector<Answer> buttons{Answer::kOk};  ///< in screen order
  Answer preselected = Answer::kOk;

  friend bool operator==(const Box&, const Box&) = default;
};

/// What a screen knows of a form.
class ScreenForm {
 public:
  virtual ~ScreenForm() = default;
  virtual const std::string& Name() const = 0;
  /// It is on the screen: neither hidden nor closed.
  virtual bool Shown() const = 0;
};

/// The answer that changes nothing, of Esc, of a box's close button and of a program that ends: kCancel where
/// there is such a button, else kNo, else kOk.
inline Answer HarmlessAnswer(const Box& box) {
  for (const Answer answer : {Answer::kCancel, Answer::kNo}) {
    if (std::find(box.buttons.begin(), box.buttons.end(), answer) != box.buttons.end()) return answer;
  }
  return Answer::kOk;
}

class Screen {
 public:
  virtual ~Screen() = default;
  /// Shows the box and waits; timers go on ticking meanwhile. When the program ends under the box, the answer
  /// is the harmless one.
  virtual Answer Show(const Box& box) = 0;
  /// Shows the form over all others and returns when it is no longer shown or the program ends.
  virtual void ShowModal(const ScreenForm& form) = 0;
  /// Returns when the time has passed or the program ends; what hands do meanwhile is served.
  virtual void Wait(std::int64_t milliseconds) = 0;
  virtual void Beep() = 0;
  /// The hourglass over the main window, or the ordinary pointer again.
  virtual void Busy(bool busy) = 0;
  /// `what` is being done, and so much of it is done, 0 to 1. Once that has taken more than half a second it
  /// is shown, with a way to end it; timers tick and nothing else is taken. False when the operator or the
  /// end of the program ends it. To be called several times a second, until Worked.
  virtual bool Working(const String& /*what*/, double /*done*/) { return true; }
  virtual void Worked() {}
};

}  // namespace vintoral
