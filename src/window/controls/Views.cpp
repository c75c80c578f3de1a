#include "window/controls/Views.h"

#include <QPalette>
#include <algorithm>
#include <optional>

#include "station/forms/TextCaret.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/CellFrame.h"
#include "window/controls/CurveView.h"
#include "window/controls/Hands.h"
#include "window/controls/IconButton.h"
#include "window/controls/Light.h"
#include "window/controls/ListField.h"
#include "window/controls/Mirror.h"
#include "window/controls/PhotoCell.h"
#include "window/controls/PictureView.h"
#include "window/controls/PushButton.h"
#include "window/controls/RowList.h"
#include "window/controls/Text.h"
#include "window/controls/TextEditor.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/TickBox.h"
#include "window/controls/TickList.h"
#include "window/controls/TitledCard.h"

namespace vintoral {

namespace {

/// A view with its control and its widget in their own types.
template <class S, class W>
class TypedView : public View {
 public:
  TypedView(S& control, W& widget) : View(control, widget), state(control), face(widget) {}

 protected:
  S& state;
  W& face;
};

class TextBoxView : public TypedView<TextBoxState, TextField> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.text.News()) face.setText(ToQString(*state.text));
    if (state.locked.News()) face.ShowLocked(*state.locked);
    if (state.ground.News()) {
      QPalette palette = face.palette();
      palette.setColor(QPalette::Base, theme::FromModel(*state.ground));
      face.setPalette(palette);
    }
    face.ShowCaret(static_cast<int>(state.selectionStart), static_cast<int>(state.selectionLength));
  }
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

class EditorView : public TypedView<TextBoxState, TextEditor> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    const bool text = state.text.News();
    if (text) face.ShowText(ToQString(*state.text));
    if (state.locked.News()) face.ShowLocked(*state.locked);
    const bool marks = state.marks.News();
    if (marks) face.ShowReasons(ReasonsOf(*state.marks));
    face.ShowCaret(static_cast<int>(state.selectionStart), static_cast<int>(state.selectionLength),
                   *state.caret == state.selectionStart);
    if (state.caret.News() | text | marks | Appears()) TellPlace();
  }

 private:
  void TellPlace() const {
    if (!face.onPlace) return;
    const std::size_t caret = *state.caret, line = LineAt(*state.text, caret);
    const std::size_t column = caret - LineStart(*state.text, caret);
    face.onPlace(line + 1, column + 1, ReasonsOf(*state.marks).value(static_cast<qsizetype>(line)));
  }
};

class LabelView : public TypedView<LabelState, CaptionLabel> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.caption.News()) face.ShowCaption(ToQString(TrimBlanks(*state.caption)));
    if (!state.ground.News()) return;
    face.ShowGround(*state.ground == kUncolored ? std::nullopt
                                                : std::optional(theme::FromModel(*state.ground)));
  }
};

class BarView : public TypedView<LabelState, Light> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.ground.News()) face.ShowColor(theme::FromModel(*state.ground));
  }
};

class ListView : public TypedView<ListState, ListField> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    const bool rows = state.rows.News();
    if (rows) face.ShowRows(*state.rows);
    if (rows | state.row.News() | state.text.News())
      face.ShowRow(*state.row, ToQString(TrimBlanks(*state.text)));
    if (TextField* editor = face.Editor()) {
      const std::size_t before = std::min(state.BlanksBefore(), state.selectionStart);
      editor->ShowCaret(static_cast<int>(state.selectionStart - before),
                        static_cast<int>(state.selectionLength));
    }
  }
};

QStringList Texts(const std::vector<String>& rows) {
  QStringList texts;
  for (const String& row : rows)
    texts.append(ToQString(TrimBlanks(row)));
  return texts;
}

class RowsView : public TypedView<ListState, RowList> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.rows.News()) face.ShowRows(Texts(*state.rows));
    if (state.row.News()) face.ShowRow(*state.row);
  }
};

class TicksView : public TypedView<ListState, TickList> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    const bool rows = state.rows.News();
    if (rows) face.ShowRows(Texts(*state.rows));
    if (state.ticks.News()) face.ShowTicks(*state.ticks);
    if (state.row.News()) face.ShowRow(*state.row);
    if (rows | state.top.News()) face.ShowTop(*state.top);
  }
};

class ComboTextView : public TypedView<ListState, TextField> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.text.News()) face.setText(ToQString(*state.text));
    face.ShowCaret(static_cast<int>(state.selectionStart), static_cast<int>(state.selectionLength));
  }
};

class ReadingView : public TypedView<TextBoxState, CaptionLabel> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.text.News()) face.ShowCaption(ToQString(*state.text));
  }
};

class CheckBoxView : public TypedView<ButtonState, TickBox> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    // One that has no words of its own keeps those of its window.
    if (state.caption.News() && !state.caption->Empty()) face.setText(ToQString(TrimBlanks(*state.caption)));
    if (state.on.News()) face.setChecked(*state.on);
  }
};

class ButtonView : public TypedView<PictureBoxState, IconButton> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.pressed.News()) face.ShowPressed(*state.pressed);
  }
};

class CommandView : public TypedView<ButtonState, PushButton> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.caption.News()) face.setText(ToQString(*state.caption));
  }
};

class TitleView : public TypedView<ButtonState, TitledCard> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.caption.News()) face.ShowTitle(ToQString(TrimBlanks(*state.caption)));
  }
};

class ChartView : public TypedView<ChartState, CurveView> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.caption.News() | state.values.News()) face.ShowCurve(ToQString(*state.caption), *state.values);
  }
};

class LightView : public TypedView<PictureBoxState, Light> {
 public:
  LightView(PictureBoxState& picture, Light& light, QColor color)
      : TypedView(picture, light), color_(color) {}

 protected:
  void ShowOwn() override {
    if (state.ground.News())
      face.ShowColor(*state.ground == kUncolored ? color_ : theme::FromModel(*state.ground));
  }

 private:
  QColor color_;
};

class PictureFileView : public TypedView<ImageState, PictureView> {
 public:
  PictureFileView(ImageState& image, PictureView& view, PictureLoader& loader)
      : TypedView(image, view), loader_(loader) {}

 protected:
  void ShowOwn() override {
    // A picture that comes back is read again: another photo may stand under the same name.
    if (state.picture.News() | Appears()) face.ShowPicture(*state.picture, loader_);
  }

 private:
  PictureLoader& loader_;
};

class CellView : public TypedView<ImageState, PhotoCell> {
 public:
  CellView(ImageState& image, PhotoCell& cell, PictureLoader& loader)
      : TypedView(image, cell), loader_(loader) {}

 protected:
  void ShowOwn() override {
    if (state.caption.News()) face.ShowNumber(ToQString(*state.caption));
    if (state.picture.News()) face.ShowPicture(*state.picture, loader_);
  }

 private:
  PictureLoader& loader_;
};

class FrameView : public TypedView<ShapeState, CellFrame> {
 public:
  using TypedView::TypedView;

 protected:
  void ShowOwn() override {
    if (state.cell.News()) face.Surround(*state.cell);
  }
};

/// Adds the view of a control of kind S, made with what follows its state.
template <class V, class S, class W, class... More>
View& AddView(Stage& stage, const ControlName& name, W& widget, More&&... more) {
  S& state = stage.mirror.StateOf<S>(name.text);
  return stage.mirror.Add(std::make_unique<V>(state, widget, std::forward<More>(more)...));
}

}  // namespace

void Bind(Stage& stage, const ControlName& name, TextField& field) {
  const View& view = AddView<TextBoxView, TextBoxState>(stage, name, field);
  Hands& hands = stage.hands;
  const ControlId& id = view.State().id;
  field.onCaret = [&hands, id](int start, int length) { hands.MoveCaret(id, start, length); };
  field.onPaste = [&hands](const QString& text) { hands.Paste(text); };
}

void Bind(Stage& stage, const ControlName& name, TextEditor& editor) {
  View& view = AddView<EditorView, TextBoxState>(stage, name, editor);
  stage.mirror.AddPart(*editor.viewport(), view);
  Hands& hands = stage.hands;
  const ControlId& id = view.State().id;
  editor.onCaret = [&hands, id](int start, int length) { hands.MoveCaret(id, start, length); };
  editor.onPaste = [&hands](const QString& text) { hands.Paste(text); };
}

void Bind(Stage& stage, const ControlName& name, CaptionLabel& caption) {
  AddView<LabelView, LabelState>(stage, name, caption);
}

void Bind(Stage& stage, const ControlName& name, Light& bar) {
  AddView<BarView, LabelState>(stage, name, bar);
}

void Bind(Stage& stage, const ControlName& name, ListField& field) {
  View& view = AddView<ListView, ListState>(stage, name, field);
  Hands& hands = stage.hands;
  const auto& state = static_cast<const ListState&>(view.State());
  field.onChosen = [&hands, id = state.id](int row) { hands.Select(id, row); };
  TextField* const editor = field.Editor();
  if (editor == nullptr) return;
  stage.mirror.AddPart(*editor, view);
  editor->onCaret = [&hands, &state](int start, int length) {
    hands.MoveCaret(state.id, start + static_cast<int>(state.BlanksBefore()), length);
  };
  editor->onPaste = [&hands](const QString& text) { hands.Paste(text); };
}

void Bind(Stage& stage, const ControlName& name, RowList& list) {
  const View& view = AddView<RowsView, ListState>(stage, name, list);
  list.onChosen = [&hands = stage.hands, id = view.State().id](int row) { hands.Select(id, row); };
}

void Bind(Stage& stage, const ControlName& name, TickList& list) {
  const View& view = AddView<TicksView, ListState>(stage, name, list);
  Hands& hands = stage.hands;
  const ControlId& id = view.State().id;
  list.onPressed = [&hands, id](int row) { hands.Tick(id, row); };
  list.onScrolled = [&hands, id](int top) { hands.Scroll(id, top); };
}

void BindText(Stage& stage, const ControlName& name, TextField& field) {
  const View& view = AddView<ComboTextView, ListState>(stage, name, field);
  Hands& hands = stage.hands;
  const ControlId& id = view.State().id;
  field.onCaret = [&hands, id](int start, int length) { hands.MoveCaret(id, start, length); };
  field.onPaste = [&hands](const QString& text) { hands.Paste(text); };
}

void BindText(Stage& stage, const ControlName& name, CaptionLabel& caption) {
  AddView<ReadingView, TextBoxState>(stage, name, caption);
}

void Bind(Stage& stage, const ControlName& name, TickBox& box) {
  AddView<CheckBoxView, ButtonState>(stage, name, box);
}

void Bind(Stage& stage, const ControlName& name, IconButton& button) {
  AddView<ButtonView, PictureBoxState>(stage, name, button);
}

void Bind(Stage& stage, const ControlName& name, PictureView& view) {
  AddView<PictureFileView, ImageState>(stage, name, view, stage.pictures);
}

void Bind(Stage& stage, const ControlName& name, PhotoCell& cell) {
  AddView<CellView, ImageState>(stage, name, cell, stage.pictures);
}

void Bind(Stage& stage, const ControlName& name, CellFrame& frame) {
  AddView<FrameView, ShapeState>(stage, name, frame);
}

void Bind(Stage& stage, const ControlName& name, Light& light, QColor color) {
  AddView<LightView, PictureBoxState>(stage, name, light, color);
}

void Bind(Stage& stage, const ControlName& name, PushButton& button) {
  AddView<CommandView, ButtonState>(stage, name, button);
}

void Bind(Stage& stage, const ControlName& name, TitledCard& card) {
  AddView<TitleView, ButtonState>(stage, name, card);
}

void Bind(Stage& stage, const ControlName& name, CurveView& view) {
  AddView<ChartView, ChartState>(stage, name, view);
}

void BindPlain(Stage& stage, const ControlName& name, QWidget& widget) {
  AddView<View, ControlState>(stage, name, widget);
}

}  // namespace vintoral
