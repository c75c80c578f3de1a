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
  /// Copies `now` only when it differs; true when it does.
  bool Take(const T& now) {
    if (value_ == now) return false;
    value_ = now;
    ++version_;
    news_ = true;
    return true;
  }
  /// As `source` is, the value that this one is a copy of; compares no content.
  void Follow(const Value& source) {
    if (source.version_ == version_) return;
    value_ = source.value_;
    version_ = source.version_;
    news_ = true;
  }
  const T& operator*() const { return value_; }
  const T* operator->() const { return &value_; }
  /// True the first time, and once after each change.
  bool News() { return std::exchange(news_, false); }

 private:
  T value_{};
  std::uint64_t version_ = 0;
  bool news_ = true;
};

/// What every control has; of file lists nothing more is shown.
struct ControlState {
  ControlState() = default;
  ControlState(const ControlState&) = delete;
  ControlState& operator=(const ControlState&) = delete;
  virtual ~ControlState() = default;

  /// Another of its kind, with nothing in it yet.
  virtual std::unique_ptr<ControlState> Another() const { return std::make_unique<ControlState>(); }
  /// As `source` is, of the same kind: the state that this one is a copy of.
  virtual void Follow(const ControlState& source) { FollowAll(source); }

  ControlId id;
  Value<bool> visible;
  Value<bool> enabled;
  Value<String> toolTip;
  bool takesFocus = false;

 protected:
  void FollowAll(const ControlState& source) {
    visible.Follow(source.visible);
    enabled.Follow(source.enabled);
    toolTip.Follow(source.toolTip);
    takesFocus = source.takesFocus;
  }
};

/// What a kind of control has beside that: `S` is the kind, with a FollowOwn of its own.
template <class S, class Base = ControlState>
struct StateOfKind : Base {
  std::unique_ptr<ControlState> Another() const override { return std::make_unique<S>(); }
  void Follow(const ControlState& source) override {
    Base::Follow(source);
    static_cast<S&>(*this).FollowOwn(static_cast<const S&>(source));
  }
};

struct TextBoxState : StateOfKind<TextBoxState> {
  Value<String> text;
  Value<bool> locked;
  Value<ModelColor> ground;
  Value<std::vector<LineMark>> marks;
  Value<std::size_t> caret;  ///< at the start of the selection, or at its end
  std::size_t selectionStart = 0;
  std::size_t selectionLength = 0;
  std::size_t maxLength = 0;  ///< 0: no limit
  bool marksOnFocus = false;  ///< it has a say in what is marked when the keyboard comes

  void FollowOwn(const TextBoxState& source) {
    text.Follow(source.text);
    locked.Follow(source.locked);
    ground.Follow(source.ground);
    marks.Follow(source.marks);
    caret.Follow(source.caret);
    selectionStart = source.selectionStart;
    selectionLength = source.selectionLength;
    maxLength = source.maxLength;
    marksOnFocus = source.marksOnFocus;
  }
};

struct LabelState : StateOfKind<LabelState> {
  Value<String> caption;
  Value<ModelColor> ground;

  void FollowOwn(const LabelState& source) {
    caption.Follow(source.caption);
    ground.Follow(source.ground);
  }
};

/// Of a list that opens, and of one that stands open.
struct ListState : StateOfKind<ListState> {
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

  void FollowOwn(const ListState& source) {
    rows.Follow(source.rows);
    row.Follow(source.row);
    text.Follow(source.text);
    ticks.Follow(source.ticks);
    top.Follow(source.top);
    selectionStart = source.selectionStart;
    selectionLength = source.selectionLength;
    marksOnFocus = source.marksOnFocus;
  }
};

/// Of a button, a frame, a tick and an option.
struct ButtonState : StateOfKind<ButtonState> {
  Value<String> caption;
  Value<bool> on;  ///< ticked, or chosen

  void FollowOwn(const ButtonState& source) {
    caption.Follow(source.caption);
    on.Follow(source.on);
  }
};

struct ImageState : StateOfKind<ImageState> {
  Value<Picture> picture;
  Value<String> caption;  ///< painted on it; a picture box has none

  void FollowOwn(const ImageState& source) {
    picture.Follow(source.picture);
    caption.Follow(source.caption);
  }
};

struct ShapeState : StateOfKind<ShapeState> {
  Value<int> cell;  ///< that it surrounds; -1 for none

  void FollowOwn(const ShapeState& source) { cell.Follow(source.cell); }
};

struct PictureBoxState : StateOfKind<PictureBoxState, ImageState> {
  Value<bool> pressed;
  Value<ModelColor> ground;

  void FollowOwn(const PictureBoxState& source) {
    pressed.Follow(source.pressed);
    ground.Follow(source.ground);
  }
};

struct ChartState : StateOfKind<ChartState> {
  Value<String> caption;
  Value<std::vector<Money>> values;

  void FollowOwn(const ChartState& source) {
    caption.Follow(source.caption);
    values.Follow(source.values);
  }
};

/// Of a form: all controls of one that the station took, those of one that a window shows.
struct FormSnapshot {
  std::string name;
  std::vector<std::unique_ptr<ControlState>> controls;
  bool shown = false;                   ///< the form is on the screen
  bool modal = false;                   ///< it holds all other forms
  bool focusOnForm = false;             ///< no control has the keyboard
  const ControlState* focus = nullptr;  ///< null, too, when the focused control is none of these
};

}  // namespace vintoral
