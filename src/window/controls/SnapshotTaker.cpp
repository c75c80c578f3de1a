#include "window/controls/SnapshotTaker.h"

#include <utility>

#include "station/forms/Forms.h"

namespace vintoral {

namespace {

static_assert(kUncolored == kWhite);

/// True when it has changed.
template <class T>
bool Set(T& value, const T& now) {
  return std::exchange(value, now) != now;
}

/// Copies one control into its state, which it makes when there is none yet.
class Copier : public ControlVisitor {
 public:
  explicit Copier(std::unique_ptr<ControlState>& state) : state_(state) {}
  bool Changed() const { return changed_; }

  void Visit(TextBox& box) override {
    auto& state = Of<TextBoxState>(box);
    Tell(state.text.Take(box.Text()));
    Tell(state.locked.Take(box.Locked));
    Tell(state.ground.Take(box.BackColor));
    Tell(state.caret.Take(box.Caret()));
    Tell(state.marks.Take(box.Marks));
    Tell(Set(state.selectionStart, box.SelStart));
    Tell(Set(state.selectionLength, box.SelLength));
    Tell(Set(state.maxLength, box.MaxLength));
    Tell(Set(state.marksOnFocus, box.OnGotFocus != nullptr));
  }
  void Visit(Label& label) override {
    auto& state = Of<LabelState>(label);
    Tell(state.caption.Take(label.Caption));
    Tell(state.ground.Take(label.BackColor));
  }
  void Visit(ComboBox& list) override {
    auto& state = Of<ListState>(list);
    Tell(state.rows.Take(list.List()));
    Tell(state.row.Take(list.ListIndex()));
    Tell(state.text.Take(list.Text()));
    Tell(Set(state.selectionStart, list.SelStart));
    Tell(Set(state.selectionLength, list.SelLength));
    Tell(Set(state.marksOnFocus, list.OnGotFocus != nullptr));
  }
  void Visit(ListBox& list) override {
    static const String kNoRow;
    const auto row = static_cast<std::size_t>(list.ListIndex);
    auto& state = Of<ListState>(list);
    Tell(state.rows.Take(list.List));
    Tell(state.row.Take(list.ListIndex));
    Tell(state.text.Take(row < list.List.size() ? list.List[row] : kNoRow));
    Tell(state.ticks.Take(list.Checked));
    Tell(state.top.Take(list.TopIndex));
  }
  void Visit(CheckBox& tick) override { TakeButton(tick, tick.Caption, tick.Value != 0); }
  void Visit(OptionButton& option) override { TakeButton(option, option.Caption, option.Value); }
  void Visit(CommandButton& button) override { TakeButton(button, button.Caption, false); }
  void Visit(Frame& frame) override { TakeButton(frame, frame.Caption, false); }
  void Visit(PictureBox& box) override {
    auto& state = Of<PictureBoxState>(box);
    Tell(state.picture.Take(box.Picture));
    Tell(state.pressed.Take(box.BorderStyle == 1));
    Tell(state.ground.Take(box.BackColor));
  }
  void Visit(Image& image) override {
    auto& state = Of<ImageState>(image);
    Tell(state.picture.Take(image.Picture));
    Tell(state.caption.Take(image.Caption));
  }
  void Visit(Chart& chart) override {
    auto& state = Of<ChartState>(chart);
    Tell(state.caption.Take(chart.Caption));
    Tell(state.values.Take(chart.Values));
  }
  void Visit(Shape& shape) override { Tell(Of<ShapeState>(shape).cell.Take(shape.Cell)); }
  void Visit(FileList& files) override { Of<ControlState>(files); }
  void Visit(Timer& timer) override { Of<ControlState>(timer); }

 private:
  void Tell(bool changed) { changed_ = changed_ || changed; }
  /// What all controls have is taken here.
  template <class S>
  S& Of(const Control& control) {
    if (state_ == nullptr) state_ = std::make_unique<S>();
    Tell(state_->visible.Take(control.Visible));
    Tell(state_->enabled.Take(control.Enabled));
    Tell(state_->toolTip.Take(control.ToolTipAhead ? control.ToolTipAhead() : control.ToolTipText));
    Tell(Set(state_->takesFocus, control.TakesFocus()));
    return static_cast<S&>(*state_);
  }
  void TakeButton(const Control& control, const String& caption, bool on) {
    auto& state = Of<ButtonState>(control);
    Tell(state.caption.Take(caption));
    Tell(state.on.Take(on));
  }

  std::unique_ptr<ControlState>& state_;
  bool changed_ = false;
};

bool Copy(Control& control, std::unique_ptr<ControlState>& state) {
  Copier copier(state);
  control.Accept(copier);
  return copier.Changed();
}

}  // namespace

SnapshotTaker::SnapshotTaker(Forms& forms, Form& form, FormSnapshot& snapshot)
    : forms_(forms), form_(&form), snapshot_(snapshot) {
  snapshot_.name = form.Name();
  for (Control* const control : form.Controls()) {
    std::unique_ptr<ControlState>& state = snapshot_.controls.emplace_back();
    Copy(*control, state);
    state->id = {snapshot_.name, control->Name};
  }
}

bool SnapshotTaker::Take() {
  const bool loaded = forms_.Find(snapshot_.name) == form_;
  const bool changed = Set(snapshot_.shown, loaded && form_->Shown() && !forms_.Ended());
  return (loaded && TakeControls()) || changed;
}

bool SnapshotTaker::TakeControls() {
  bool changed = Set(snapshot_.modal, forms_.IsModal(*form_));
  changed = Set(snapshot_.focusOnForm, form_->Focus() == nullptr) || changed;
  const ControlState* focus = nullptr;
  for (std::size_t i = 0; i < snapshot_.controls.size(); ++i) {
    Control* const control = form_->Controls()[i];
    changed = Copy(*control, snapshot_.controls[i]) || changed;
    if (control == form_->Focus()) focus = snapshot_.controls[i].get();
  }
  return Set(snapshot_.focus, focus) || changed;
}

}  // namespace vintoral
