// The snapshot of a form: what is copied, what counts as news, and what becomes of a form that goes.
#include <gtest/gtest.h>

#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"
#include "station/forms/Forms.h"
#include "window/controls/Mirror.h"

namespace vintoral::test {
namespace {

/// One control of each kind.
class Sample : public Form {
 public:
  explicit Sample(std::string name) : Form(std::move(name)) {
    Add(box, "Box"), Add(label, "Label"), Add(combo, "Combo"), Add(list, "List"), Add(tick, "Tick");
    Add(option, "Option"), Add(button, "Button"), Add(frame, "Frame"), Add(panel, "Panel");
    Add(image, "Image"), Add(chart, "Chart"), Add(shape, "Shape"), Add(files, "Files"), Add(timer, "Timer");
  }
  TextBox box;
  Label label;
  ComboBox combo;
  ListBox list;
  CheckBox tick;
  OptionButton option;
  CommandButton button;
  Frame frame;
  PictureBox panel;
  Image image;
  Chart chart;
  Shape shape;
  FileList files;
  Timer timer;
};

class Snapshot : public testing::Test {
 protected:
  /// The state of a control, as the taker makes it; shown once, so that nothing is news.
  template <class S>
  S& Added(const char* name) {
    snapshots_.Take();
    return mirror_.StateOf<S>(name);
  }
  void Take() {
    snapshots_.Take();
    mirror_.Copy();
  }
  template <class... V>
  static void ShowAll(V&... values) {
    for (const bool news : {values.News()...})
      EXPECT_TRUE(news);
    for (const bool news : {values.News()...})
      EXPECT_FALSE(news);
  }
  VirtualClock clock_;
  Recording events_;
  RecordingScreen screen_{events_, clock_};
  Sample main_{"Main"};
  Forms forms_{main_, screen_, clock_};
  Snapshots snapshots_{forms_};
  Mirror mirror_{snapshots_.Now().loaded.front()};
  const FormSnapshot& snapshot_ = mirror_.Snapshot();
};

TEST_F(Snapshot, HasTheControlsThatWereAdded) {
  EXPECT_EQ(snapshot_.name, "Main");
  const ControlState& label = Added<LabelState>("Label");
  const ControlState& box = Added<TextBoxState>("Box");
  ASSERT_EQ(snapshot_.controls.size(), 2U);
  EXPECT_EQ(snapshot_.controls[0].get(), &label);
  EXPECT_EQ(snapshot_.controls[1].get(), &box);
  EXPECT_EQ(box.id.form, "Main");
  EXPECT_EQ(box.id.control, "Box");
}

TEST_F(Snapshot, HasAControlOnce) {
  const auto& label = Added<LabelState>("Label");
  Added<TextBoxState>("Box");
  EXPECT_EQ(&Added<LabelState>("Label"), &label);
  EXPECT_EQ(snapshot_.controls.size(), 2U);
}

TEST_F(Snapshot, ACopyOfTheModelIsNewsOnce) {
  auto& label = Added<LabelState>("Label");
  ShowAll(label.caption, label.ground, label.visible, label.enabled, label.toolTip);
  main_.label.Caption = "ENT"_w;
  EXPECT_EQ(*label.caption, ""_w);
  Take();
  EXPECT_EQ(*label.caption, "ENT"_w);
  Take();
  EXPECT_TRUE(label.caption.News());
  EXPECT_FALSE(label.caption.News());
  EXPECT_FALSE(label.ground.News() || label.visible.News() || label.enabled.News() || label.toolTip.News());
}

/// Knows how often a number has been copied into one.
struct Counted {
  Counted(int of = 0) : number(of) {}
  Counted(const Counted&) = default;
  Counted& operator=(const Counted& other) {
    number = other.number;
    ++copies;
    return *this;
  }
  friend bool operator==(const Counted& left, const Counted& right) { return left.number == right.number; }
  int number;
  int copies = 0;
};

TEST(SnapshotValue, IsCopiedOnlyWhenItDiffers) {
  Value<Counted> value;
  value.Take(5);
  ASSERT_EQ(value->number, 5);
  EXPECT_EQ(value->copies, 1);
  value.Take(5);
  EXPECT_EQ(value->copies, 1);
  value.Take(6);
  EXPECT_EQ(value->copies, 2);
}

TEST_F(Snapshot, OfEveryControl) {
  main_.shape.ToolTipText = " celda "_w;
  main_.shape.Visible = false;
  main_.shape.Enabled = false;
  auto& shape = Added<ControlState>("Shape");
  EXPECT_EQ(*shape.toolTip, " celda "_w);
  EXPECT_FALSE(*shape.visible || *shape.enabled);
  ShowAll(shape.toolTip, shape.visible, shape.enabled);
  main_.shape.Visible = main_.shape.Enabled = true;
  main_.shape.ToolTipText = ""_w;
  Take();
  EXPECT_TRUE(*shape.visible && *shape.enabled);
  EXPECT_EQ(*shape.toolTip, ""_w);
  ShowAll(shape.toolTip, shape.visible, shape.enabled);
}

TEST_F(Snapshot, OfWhatShowsNothingOfItsOwn) {
  main_.files.ToolTipText = "fondos"_w;
  main_.timer.ToolTipText = "reloj"_w;
  EXPECT_EQ(*Added<ControlState>("Files").toolTip, "fondos"_w);
  EXPECT_EQ(*Added<ControlState>("Timer").toolTip, "reloj"_w);
}

TEST_F(Snapshot, OfAToolTipThatThePointerWouldSet) {
  main_.shape.ToolTipText = "before"_w;
  main_.shape.ToolTipAhead = [this] { return main_.shape.Enabled ? "on"_w : "off"_w; };
  auto& shape = Added<ControlState>("Shape");
  EXPECT_EQ(*shape.toolTip, "on"_w);
  main_.shape.Enabled = false;
  Take();
  EXPECT_EQ(*shape.toolTip, "off"_w);
  EXPECT_EQ(main_.shape.ToolTipText, "before"_w);
}

TEST_F(Snapshot, TellsWhatTakesTheFocus) {
  const auto& box = Added<TextBoxState>("Box");
  const auto& label = Added<LabelState>("Label");
  EXPECT_TRUE(box.takesFocus);
  EXPECT_FALSE(label.takesFocus);
  main_.box.Enabled = false;
  Take();
  EXPECT_FALSE(box.takesFocus);
}

TEST_F(Snapshot, OfATextBox) {
  auto& box = Added<TextBoxState>("Box");
  EXPECT_TRUE(box.text->Empty() && !*box.locked && *box.ground == kWhite && box.marks->empty());
  ShowAll(box.text, box.locked, box.ground, box.marks);
  main_.box.SetText("uno dos"_w);
  main_.box.Select(4, 3);
  main_.box.Locked = true;
  main_.box.BackColor = kYellow;
  main_.box.MaxLength = 20;
  EXPECT_EQ(*box.caret, 0U);
  EXPECT_TRUE(box.caret.News());
  Take();
  EXPECT_EQ(*box.caret, 7U);
  EXPECT_EQ(box.maxLength, 20U);
  EXPECT_EQ(*box.text, "uno dos"_w);
  EXPECT_TRUE(*box.locked);
  EXPECT_EQ(*box.ground, kYellow);
  EXPECT_EQ(box.selectionStart, 4U);
  EXPECT_EQ(box.selectionLength, 3U);
  EXPECT_TRUE(box.text.News() && box.locked.News() && box.ground.News() && box.caret.News());
  EXPECT_FALSE(box.marks.News());
}

TEST_F(Snapshot, OfTheMarksBesideAText) {
  auto& box = Added<TextBoxState>("Box");
  ShowAll(box.marks);
  main_.box.Marks = {{2, "sin precio"_w}};
  Take();
  EXPECT_EQ(*box.marks, (std::vector<LineMark>{{2, "sin precio"_w}}));
  EXPECT_TRUE(box.marks.News());
  Take();
  EXPECT_FALSE(box.marks.News());
  main_.box.Marks = {{3, "sin precio"_w}};  // another line alone
  Take();
  EXPECT_EQ(*box.marks, (std::vector<LineMark>{{3, "sin precio"_w}}));
  main_.box.Marks = {{3, "sin unidad"_w}};  // another reason alone
  Take();
  EXPECT_EQ(*box.marks, (std::vector<LineMark>{{3, "sin unidad"_w}}));
  main_.box.Marks.clear();
  Take();
  EXPECT_TRUE(box.marks->empty());
}

TEST_F(Snapshot, OfALabel) {
  main_.label.BackColor = kLightRed;
  auto& label = Added<LabelState>("Label");
  EXPECT_EQ(*label.ground, kLightRed);
  ShowAll(label.ground);
  main_.label.BackColor = kWhite;
  Take();
  EXPECT_EQ(*label.ground, kUncolored);
  EXPECT_TRUE(label.ground.News());
}

TEST_F(Snapshot, OfAComboBox) {
  auto& combo = Added<ListState>("Combo");
  EXPECT_TRUE(combo.rows->empty() && combo.text->Empty());
  ShowAll(combo.rows, combo.row, combo.text);
  main_.combo.AddItem("AUTO"_w);
  main_.combo.AddItem("MOTO"_w);
  main_.combo.Select(1);
  Take();
  EXPECT_EQ(*combo.rows, (std::vector<String>{"AUTO"_w, "MOTO"_w}));
  EXPECT_EQ(*combo.row, 1);
  EXPECT_EQ(*combo.text, "MOTO"_w);
  ShowAll(combo.rows, combo.row, combo.text);
}

TEST_F(Snapshot, OfAListBox) {
  main_.list.List = {"DIA(S)"_w, "MES(ES)"_w};
  main_.list.ListIndex = 0;
  auto& list = Added<ListState>("List");
  EXPECT_EQ(*list.text, "DIA(S)"_w);
  ShowAll(list.rows, list.row, list.text);
  main_.list.ListIndex = 1;
  Take();
  EXPECT_EQ(*list.row, 1);
  EXPECT_EQ(*list.text, "MES(ES)"_w);
  main_.list.List.pop_back();  // the chosen row is past the end
  Take();
  EXPECT_EQ(*list.rows, (std::vector<String>{"DIA(S)"_w}));
  EXPECT_EQ(*list.text, ""_w);
  main_.list.ListIndex = -1;
  Take();
  EXPECT_EQ(*list.row, -1);
  EXPECT_EQ(*list.text, ""_w);
}

TEST_F(Snapshot, OfWhatIsPressed) {
  auto& tick = Added<ButtonState>("Tick");
  auto& option = Added<ButtonState>("Option");
  auto& button = Added<ButtonState>("Button");
  auto& frame = Added<ButtonState>("Frame");
  EXPECT_FALSE(*tick.on || *option.on);
  main_.tick.Value = 1;
  main_.option.Value = true;
  main_.tick.Caption = "Factura"_w;
  main_.option.Caption = "Día"_w;
  main_.button.Caption = "GUARDAR"_w;
  main_.frame.Caption = "Fichas"_w;
  Take();
  EXPECT_TRUE(*tick.on && *option.on);
  EXPECT_FALSE(*button.on || *frame.on);
  EXPECT_EQ(*tick.caption, "Factura"_w);
  EXPECT_EQ(*option.caption, "Día"_w);
  EXPECT_EQ(*button.caption, "GUARDAR"_w);
  EXPECT_EQ(*frame.caption, "Fichas"_w);
}

TEST_F(Snapshot, OfPictures) {
  auto& panel = Added<PictureBoxState>("Panel");
  auto& image = Added<ImageState>("Image");
  EXPECT_TRUE(!*panel.pressed && panel.picture->Empty() && image.picture->Empty());
  main_.panel.Picture = "uno.jpg"_w;
  main_.panel.BorderStyle = 1;
  main_.panel.BackColor = kLightGreen;
  main_.image.Picture = "dos.jpg"_w;
  Take();
  EXPECT_EQ(panel.picture->Path(), "uno.jpg"_w);
  EXPECT_TRUE(*panel.pressed);
  EXPECT_EQ(*panel.ground, kLightGreen);
  EXPECT_EQ(image.picture->Path(), "dos.jpg"_w);
}

TEST_F(Snapshot, OfACellAndTheFrameAroundIt) {
  auto& image = Added<ImageState>("Image");
  auto& shape = Added<ShapeState>("Shape");
  EXPECT_TRUE(image.caption->Empty());
  EXPECT_EQ(*shape.cell, -1);
  ShowAll(image.caption, shape.cell);
  main_.image.Caption = "0007"_w;
  main_.shape.Cell = 6;
  Take();
  EXPECT_EQ(*image.caption, "0007"_w);
  EXPECT_EQ(*shape.cell, 6);
  ShowAll(image.caption, shape.cell);
}

TEST_F(Snapshot, OfAChart) {
  auto& chart = Added<ChartState>("Chart");
  ShowAll(chart.caption, chart.values);
  main_.chart.Caption = "AUTO"_w;
  main_.chart.Values = {Money::FromUnits(5), Money::FromUnits(7)};
  Take();
  EXPECT_EQ(*chart.caption, "AUTO"_w);
  EXPECT_EQ(*chart.values, (std::vector<Money>{Money::FromUnits(5), Money::FromUnits(7)}));
  ShowAll(chart.caption, chart.values);
}

TEST_F(Snapshot, KnowsWhereTheFocusIs) {
  const auto& box = Added<TextBoxState>("Box");
  main_.SetFocus(&main_.box);
  Take();
  EXPECT_EQ(snapshot_.focus, &box);
  EXPECT_FALSE(snapshot_.focusOnForm);
  main_.SetFocus(&main_.combo);  // which is no part of the snapshot
  Take();
  EXPECT_EQ(snapshot_.focus, nullptr);
  EXPECT_FALSE(snapshot_.focusOnForm);
  main_.SetFocus(nullptr);
  Take();
  EXPECT_EQ(snapshot_.focus, nullptr);
  EXPECT_TRUE(snapshot_.focusOnForm);
}

TEST_F(Snapshot, KnowsWhetherTheFormIsShown) {
  EXPECT_FALSE(snapshot_.shown);
  Take();
  EXPECT_TRUE(snapshot_.shown);
  forms_.Hide(main_);
  Take();
  EXPECT_FALSE(snapshot_.shown);
  forms_.Show(main_);
  Take();
  ASSERT_TRUE(snapshot_.shown);
  forms_.End();
  Take();
  EXPECT_FALSE(snapshot_.shown);
}

TEST_F(Snapshot, KnowsWhetherTheFormHoldsAllOthers) {
  Take();
  EXPECT_FALSE(snapshot_.modal);
  Sample& dialog = forms_.Load(std::make_unique<Sample>("Dialog"));
  snapshots_.Take();
  Mirror mirror(snapshots_.Find("Dialog"));
  const auto take = [&] {
    Take();
    mirror.Copy();
  };
  screen_.OnWait = [&] {
    take();
    EXPECT_TRUE(mirror.Snapshot().modal);
    EXPECT_FALSE(snapshot_.modal);
    forms_.Hide(dialog);
  };
  forms_.ShowModal(dialog);
  take();
  EXPECT_FALSE(mirror.Snapshot().modal);
}

TEST_F(Snapshot, StaysAsItWasWhenItsFormGoes) {
  Sample& dialog = forms_.Load(std::make_unique<Sample>("Dialog"));
  snapshots_.Take();
  Mirror mirror(snapshots_.Find("Dialog"));
  const auto& label = mirror.StateOf<LabelState>("Label");
  dialog.label.Caption = "ENT"_w;
  forms_.Show(dialog);
  snapshots_.Take();
  mirror.Copy();
  ASSERT_TRUE(mirror.Snapshot().shown);
  const Forms::Handling alive(forms_);  // it is in the middle of an event of its own
  forms_.Unload(dialog);
  dialog.SetShown(true);
  dialog.label.Caption = "SAL"_w;
  snapshots_.Take();
  mirror.Copy();
  EXPECT_FALSE(mirror.Snapshot().shown);
  EXPECT_EQ(*label.caption, "ENT"_w);
  EXPECT_EQ(snapshots_.Find("Dialog"), nullptr);
}

TEST_F(Snapshot, AnotherFormOfTheSameNameIsAnother) {
  snapshots_.Take();
  ASSERT_EQ(snapshots_.Now().loaded.size(), 1U);
  Sample& first = forms_.Load(std::make_unique<Sample>("Dialog"));
  ASSERT_TRUE(snapshots_.Take());
  const Snapshots::Taken before = snapshots_.Find("dialog");
  ASSERT_NE(before, nullptr);
  const Forms::Handling alive(forms_);
  forms_.Unload(first);
  forms_.Load(std::make_unique<Sample>("Dialog"));
  ASSERT_TRUE(snapshots_.Take());
  EXPECT_NE(snapshots_.Find("Dialog"), before);
  EXPECT_EQ(snapshots_.Now().loaded.size(), 2U);
}

TEST_F(Snapshot, TellsWhatHasChanged) {
  Added<LabelState>("Label");
  ASSERT_FALSE(snapshots_.Take());
  main_.box.Select(0, 0);
  EXPECT_FALSE(snapshots_.Take());
  main_.label.Caption = "ENT"_w;
  EXPECT_TRUE(snapshots_.Take());
  EXPECT_TRUE(mirror_.Copy());
  EXPECT_FALSE(mirror_.Copy());
  EXPECT_FALSE(snapshots_.Take());
  main_.SetFocus(&main_.box);
  EXPECT_TRUE(snapshots_.Take());
  main_.box.MaxLength = 7;
  EXPECT_TRUE(snapshots_.Take());
  forms_.End();
  EXPECT_TRUE(snapshots_.Take());
  EXPECT_TRUE(snapshots_.Now().ended);
}

TEST_F(Snapshot, KnowsWhichFormKeysReach) {
  ASSERT_EQ(snapshots_.Now().active, snapshots_.Find("Main"));
  Sample& dialog = forms_.Load(std::make_unique<Sample>("Dialog"));
  forms_.Show(dialog);
  EXPECT_TRUE(snapshots_.Take());
  EXPECT_EQ(snapshots_.Now().active, snapshots_.Find("Dialog"));
  forms_.Activate(main_);
  EXPECT_TRUE(snapshots_.Take());
  EXPECT_EQ(snapshots_.Now().active, snapshots_.Find("Main"));
}

}  // namespace
}  // namespace vintoral::test
