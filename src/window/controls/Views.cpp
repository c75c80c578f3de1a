#include "window/controls/Views.h"

#include <QCheckBox>
#include <QPalette>

#include "station/forms/TextCaret.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/CurveView.h"
#include "window/controls/Hands.h"
#include "window/controls/IconButton.h"
#include "window/controls/Light.h"
#include "window/controls/ListField.h"
#include "window/controls/Mirror.h"
#include "window/controls/PictureView.h"
#include "window/controls/PushButton.h"
#include "window/controls/Text.h"
#include "window/controls/TextEditor.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"

namespace vintoral {

namespace {

/// A view with its control and its widget in their own types.
template <class C, class W>
class TypedView : public View {
 public:
  TypedView(C& control, W& widget) : View(control, widget), model(control), face(widget) {}

 protected:
  C& model;
  W& face;
};

class TextBoxView : public TypedView<TextBox, TextField> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (text_.Changed(model.Text())) face.setText(ToQString(model.Text()));
    if (locked_.Changed(model.Locked)) face.ShowLocked(model.Locked);
    if (ground_.Changed(model.BackColor)) {
      QPalette palette = face.palette();
      palette.setColor(QPalette::Base, theme::FromModel(model.BackColor));
      face.setPalette(palette);
    }
    face.ShowCaret(static_cast<int>(model.SelStart), static_cast<int>(model.SelLength));
  }

 private:
  Seen<String> text_;
  Seen<bool> locked_;
  Seen<Color> ground_;
};

/// One text for each line, empty where nothing is remarked.
QStringList ReasonsOf(const std::vector<LineMark>& marks) {
  QStringList reasons;
  for (const LineMark& mark : marks) {
    const auto line = static_cast<qsizetype>(mark.line);
    if (reasons.size() <= line) reasons.resize(line + 1);
    reasons[line] = ToQString(mark.reason);
  }
  return reasons;
}

class EditorView : public TypedView<TextBox, TextEditor> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    const bool text = text_.Changed(model.Text());
    if (text) face.ShowText(ToQString(model.Text()));
    const bool marks = marks_.Changed(model.Marks);
    if (marks) face.ShowReasons(ReasonsOf(model.Marks));
    const bool caret = caret_.Changed(model.Caret());
    face.ShowCaret(static_cast<int>(model.SelStart), static_cast<int>(model.SelLength),
                   model.Caret() == model.SelStart);
    if (text || marks || caret || Appears()) TellPlace();
  }

 private:
  void TellPlace() const {
    if (!face.onPlace) return;
    const std::size_t caret = model.Caret(), line = LineAt(model.Text(), caret);
    const std::size_t column = caret - LineStart(model.Text(), caret);
    face.onPlace(line + 1, column + 1, ReasonsOf(model.Marks).value(static_cast<qsizetype>(line)));
  }
  Seen<String> text_;
  Seen<std::vector<LineMark>> marks_;
  Seen<std::size_t> caret_;
};

class LabelView : public TypedView<Label, CaptionLabel> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (caption_.Changed(model.Caption)) face.ShowCaption(ToQString(TrimBlanks(model.Caption)));
    if (!ground_.Changed(model.BackColor)) return;
    // White is a label without a colour of its own.
    face.ShowGround(model.BackColor == kWhite ? std::nullopt
                                              : std::optional(theme::FromModel(model.BackColor)));
  }

 private:
  Seen<String> caption_;
  Seen<Color> ground_;
};

class BarView : public TypedView<Label, Light> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (ground_.Changed(model.BackColor)) face.ShowColor(theme::FromModel(model.BackColor));
  }

 private:
  Seen<Color> ground_;
};

class ComboBoxView : public TypedView<ComboBox, ListField> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    const bool rows = rows_.Changed(model.List());
    if (rows) face.ShowRows(model.List());
    if (rows | index_.Changed(model.ListIndex()) | text_.Changed(model.Text()))
      face.ShowRow(model.ListIndex(), ToQString(TrimBlanks(model.Text())));
  }

 private:
  Seen<std::vector<String>> rows_;
  Seen<int> index_;
  Seen<String> text_;
};

class ListBoxView : public TypedView<ListBox, ListField> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    const bool rows = rows_.Changed(model.List);
    if (rows) face.ShowRows(model.List);
    if (!(rows | index_.Changed(model.ListIndex))) return;
    const auto index = static_cast<std::size_t>(model.ListIndex);
    face.ShowRow(model.ListIndex, index < model.List.size() ? ToQString(model.List[index]) : QString());
  }

 private:
  Seen<std::vector<String>> rows_;
  Seen<int> index_;
};

class CheckBoxView : public TypedView<CheckBox, QCheckBox> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (face.isChecked() != (model.Value != 0)) face.setChecked(model.Value != 0);
  }
};

class ButtonView : public TypedView<PictureBox, IconButton> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (border_.Changed(model.BorderStyle)) face.ShowPressed(model.BorderStyle == 1);
  }

 private:
  Seen<int> border_;
};

class CommandView : public TypedView<CommandButton, PushButton> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (caption_.Changed(model.Caption)) face.setText(ToQString(model.Caption));
  }

 private:
  Seen<String> caption_;
};

class ChartView : public TypedView<Chart, CurveView> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (caption_.Changed(model.Caption) | values_.Changed(model.Values))
      face.ShowCurve(ToQString(model.Caption), model.Values);
  }

 private:
  Seen<String> caption_;
  Seen<std::vector<Money>> values_;
};

class LightView : public TypedView<PictureBox, Light> {
 public:
  LightView(PictureBox& picture, Light& light, QColor color) : TypedView(picture, light), color_(color) {}

 protected:
  void ShowOwn() override {
    if (ground_.Changed(model.BackColor))
      face.ShowColor(model.BackColor == kWhite ? color_ : theme::FromModel(model.BackColor));
  }

 private:
  QColor color_;
  Seen<Color> ground_;
};

/// Of a picture box or an image.
template <class C>
class PictureFileView : public TypedView<C, PictureView> {
 public:
  PictureFileView(C& control, PictureView& view, PictureLoader& loader)
      : TypedView<C, PictureView>(control, view), loader_(loader) {}

 protected:
  void ShowOwn() override {
    // A picture that comes back is read again: another photo may stand under the same name.
    if (picture_.Changed(this->model.Picture) | this->Appears())
      this->face.ShowPicture(this->model.Picture, loader_);
  }

 private:
  PictureLoader& loader_;
  Seen<Picture> picture_;
};

}  // namespace

void Bind(Stage& stage, TextBox& box, TextField& field) {
  stage.mirror.Add(std::make_unique<TextBoxView>(box, field));
  Hands& hands = stage.hands;
  field.onCaret = [&hands, &box](int start, int length) { hands.MoveCaret(box, start, length); };
  field.onPaste = [&hands](const QString& text) { hands.Paste(text); };
}

void Bind(Stage& stage, TextBox& box, TextEditor& editor) {
  View& view = stage.mirror.Add(std::make_unique<EditorView>(box, editor));
  stage.mirror.AddPart(*editor.viewport(), view);
  Hands& hands = stage.hands;
  editor.onCaret = [&hands, &box](int start, int length) { hands.MoveCaret(box, start, length); };
  editor.onPaste = [&hands](const QString& text) { hands.Paste(text); };
}

void Bind(Stage& stage, Label& label, CaptionLabel& caption) {
  stage.mirror.Add(std::make_unique<LabelView>(label, caption));
}

void Bind(Stage& stage, Label& label, Light& bar) {
  stage.mirror.Add(std::make_unique<BarView>(label, bar));
}

void Bind(Stage& stage, ComboBox& list, ListField& field) {
  View& view = stage.mirror.Add(std::make_unique<ComboBoxView>(list, field));
  if (field.Editor() != nullptr) stage.mirror.AddPart(*field.Editor(), view);
  field.onChosen = [&hands = stage.hands, &list](int index) { hands.Select(list, index); };
}

void Bind(Stage& stage, ListBox& list, ListField& field) {
  stage.mirror.Add(std::make_unique<ListBoxView>(list, field));
  field.onChosen = [&hands = stage.hands, &list](int index) { hands.Select(list, index); };
}

void Bind(Stage& stage, CheckBox& tick, QCheckBox& box) {
  stage.mirror.Add(std::make_unique<CheckBoxView>(tick, box));
}

void Bind(Stage& stage, PictureBox& picture, IconButton& button) {
  stage.mirror.Add(std::make_unique<ButtonView>(picture, button));
}

void Bind(Stage& stage, PictureBox& picture, PictureView& view) {
  stage.mirror.Add(std::make_unique<PictureFileView<PictureBox>>(picture, view, stage.pictures));
}

void Bind(Stage& stage, PictureBox& picture, Light& light, QColor color) {
  stage.mirror.Add(std::make_unique<LightView>(picture, light, color));
}

void Bind(Stage& stage, Image& image, PictureView& view) {
  stage.mirror.Add(std::make_unique<PictureFileView<Image>>(image, view, stage.pictures));
}

void Bind(Stage& stage, CommandButton& command, PushButton& button) {
  stage.mirror.Add(std::make_unique<CommandView>(command, button));
}

void Bind(Stage& stage, Chart& chart, CurveView& view) {
  stage.mirror.Add(std::make_unique<ChartView>(chart, view));
}

void BindPlain(Stage& stage, Control& control, QWidget& widget) {
  stage.mirror.Add(std::make_unique<View>(control, widget));
}

}  // namespace vintoral
