// What a form shows, as values. The views know these and nothing else of the model, so showing never waits
// for the station and never sees it half changed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/Money.h"
#include "common/String.h"
#include "platform/Picture.h"
#include "station/forms/LineMark.h"

namespace vintoral {

/// Which control of which form. Views hand it on; only Hands reaches a control by it.
struct ControlId {
  std::string form;     ///< "Form1"
  std::string control;  ///< "TxtCampo(0)"
};

/// Red in the low byte.
using ModelColor = std::int32_t;
/// Of a control without a colour of its own.
inline constexpr ModelColor kUncolored = 0xFFFFFF;

/// A value of the model that knows whether it has changed since it was last shown.
template <class T>
class Value {
 public:
  /// Copies `now` only when it differs.
  void Take(const T& now) {
    if (value_ == now) return;
    value_ = now;
    news_ = true;
  }
  const T& operator*() const { return value_; }
  const T* operator->() const { return &value_; }
  /// True the first time, and once after each change.
  bool News() { return std::exchange(news_, false); }

 private:
  T value_{};
  bool news_ = true;
};

/// What every control has; of file lists nothing more is shown.
struct ControlState {
  ControlState() = default;
  ControlState(const ControlState&) = delete;
  ControlState& operator=(const ControlState&) = delete;
  virtual ~ControlState() = default;

  ControlId id;
  Value<bool> visible;
  Value<bool> enabled;
  Value<String> toolTip;
  bool takesFocus = false;
};

struct TextBoxState : ControlState {
  Value<String> text;
  Value<bool> locked;
  Value<ModelColor> ground;
  Value<std::vector<LineMark>> marks;
  std::size_t selectionStart = 0;
  std::size_t selectionLength = 0;
  Value<std::size_t> caret;   ///< at the start of the selection, or at its end
  std::size_t maxLength = 0;  ///< 0: no limit
  bool marksOnFocus = false;  ///< it has a say in what is marked when the keyboard comes
};

struct LabelState : ControlState {
  Value<String> caption;
  Value<ModelColor> ground;
};

/// Of a list that opens, and of one that stands open.
struct ListState : ControlState {
  Value<std::vector<String>> rows;
  Value<int> row;  ///< the chosen one, from 0; -1 for none
  Value<String> text;
  Value<std::vector<bool>> ticks;  ///< of its rows, where they have any
  Value<int> top;                  ///< the first row in view
  std::size_t selectionStart = 0;  ///< in a text that is edited
  std::size_t selectionLength = 0;
  bool marksOnFocus = false;  ///< as of a text box

  /// The list shows its text without the blanks around it; this many stand before it.
  std::size_t BlanksBefore() const { return std::min(text->Bytes().find_first_not_of(' '), text->Size()); }
};

/// Of a button, a frame, a tick and an option.
struct ButtonState : ControlState {
  Value<String> caption;
  Value<bool> on;  ///< ticked, or chosen
};

struct ImageState : ControlState {
  Value<Picture> picture;
  Value<String> caption;  ///< painted on it; a picture box has none
};

struct ShapeState : ControlState {
  Value<int> cell;  ///< that it surrounds; -1 for none
};

struct PictureBoxState : ImageState {
  Value<bool> pressed;
  Value<ModelColor> ground;
};

struct ChartState : ControlState {
  Value<String> caption;
  Value<std::vector<Money>> values;
};

/// Of those controls of a form that something shows.
struct FormSnapshot {
  std::string name;
  std::vector<std::unique_ptr<ControlState>> controls;
  bool shown = false;                   ///< the form is on the screen
  bool modal = false;                   ///< it holds all other forms
  bool focusOnForm = false;             ///< no control has the keyboard
  const ControlState* focus = nullptr;  ///< null, too, when the focused control is none of these
};

}  // namespace vintoral
