#include "window/controls/SnapshotTaker.h"

#include <algorithm>

#include "station/forms/Forms.h"

namespace vintoral {

namespace {

static_assert(kUncolored == kWhite);

/// Copies one control into its state, which it makes when there is none yet.
class Copier : public ControlVisitor {
 public:
  explicit Copier(std::unique_ptr<ControlState>& state) : state_(state) {}

  void Visit(TextBox& box) override {
    auto& state = Of<TextBoxState>(box);
    state.text.Take(box.Text());
    state.locked.Take(box.Locked);
    state.ground.Take(box.BackColor);
    state.selectionStart = box.SelStart;
    state.selectionLength = box.SelLength;
    state.caret.Take(box.Caret());
    state.maxLength = box.MaxLength;
    state.marksOnFocus = box.OnGotFocus != nullptr;
    state.marks.Take(box.Marks);
  }
  void Visit(Label& label) override {
    auto& state = Of<LabelState>(label);
    state.caption.Take(label.Caption);
    state.ground.Take(label.BackColor);
  }
  void Visit(ComboBox& list) override {
    auto& state = Of<ListState>(list);
    state.rows.Take(list.List());
    state.row.Take(list.ListIndex());
    state.text.Take(list.Text());
    state.selectionStart = list.SelStart;
    state.selectionLength = list.SelLength;
    state.marksOnFocus = list.OnGotFocus != nullptr;
  }
  void Visit(ListBox& list) override {
    static const String kNoRow;
    const auto row = static_cast<std::size_t>(list.ListIndex);
    auto& state = Of<ListState>(list);
    state.rows.Take(list.List);
    state.row.Take(list.ListIndex);
    state.text.Take(row < list.List.size() ? list.List[row] : kNoRow);
    state.ticks.Take(list.Checked);
    state.top.Take(list.TopIndex);
  }
  void Visit(CheckBox& tick) override { TakeButton(tick, tick.Caption, tick.Value != 0); }
  void Visit(OptionButton& option) override { TakeButton(option, option.Caption, option.Value); }
  void Visit(CommandButton& button) override { TakeButton(button, button.Caption, false); }
  void Visit(Frame& frame) override { TakeButton(frame, frame.Caption, false); }
  void Visit(PictureBox& box) override {
    auto& state = Of<PictureBoxState>(box);
    state.picture.Take(box.Picture);
    state.pressed.Take(box.BorderStyle == 1);
    state.ground.Take(box.BackColor);
  }
  void Visit(Image& image) override {
    auto& state = Of<ImageState>(image);
    state.picture.Take(image.Picture);
    state.caption.Take(image.Caption);
  }
  void Visit(Chart& chart) override {
    auto& state = Of<ChartState>(chart);
    state.caption.Take(chart.Caption);
    state.values.Take(chart.Values);
  }
  void Visit(Shape& shape) override { Of<ShapeState>(shape).cell.Take(shape.Cell); }
  void Visit(FileList& files) override { Of<ControlState>(files); }
  void Visit(Timer& timer) override { Of<ControlState>(timer); }

 private:
  /// What all controls have is taken here.
  template <class S>
  S& Of(const Control& control) {
    if (state_ == nullptr) state_ = std::make_unique<S>();
    state_->visible.Take(control.Visible);
    state_->enabled.Take(control.Enabled);
    state_->toolTip.Take(control.ToolTipText);
    state_->takesFocus = control.TakesFocus();
    return static_cast<S&>(*state_);
  }
  void TakeButton(const Control& control, const String& caption, bool on) {
    auto& state = Of<ButtonState>(control);
    state.caption.Take(caption);
    state.on.Take(on);
  }

  std::unique_ptr<ControlState>& state_;
};

void Copy(Control& control, std::unique_ptr<ControlState>& state) {
  Copier copier(state);
  control.Accept(copier);
}

}  // namespace

SnapshotTaker::SnapshotTaker(Forms& forms, Form& form, FormSnapshot& snapshot)
    : forms_(forms), form_(&form), snapshot_(snapshot) {
  snapshot_.name = form.Name();
}

ControlState* SnapshotTaker::Add(std::string_view name) {
  const auto& all = form_->Controls();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Control* c) { return c->Name == name; });
  if (found == all.end()) return nullptr;
  const auto known = std::find(controls_.begin(), controls_.end(), *found);
  if (known != controls_.end())
    return snapshot_.controls[static_cast<std::size_t>(known - controls_.begin())].get();
  controls_.push_back(*found);
  std::unique_ptr<ControlState>& state = snapshot_.controls.emplace_back();
  Copy(**found, state);
  state->id = {snapshot_.name, (*found)->Name};
  return state.get();
}

void SnapshotTaker::Take() {
  const bool loaded = forms_.Find(snapshot_.name) == form_;
  snapshot_.shown = loaded && form_->Shown() && !forms_.Ended();
  if (!loaded) return;
  snapshot_.modal = forms_.IsModal(*form_);
  snapshot_.focus = nullptr;
  snapshot_.focusOnForm = form_->Focus() == nullptr;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    Copy(*controls_[i], snapshot_.controls[i]);
    if (controls_[i] == form_->Focus()) snapshot_.focus = snapshot_.controls[i].get();
  }
}

}  // namespace vintoral
