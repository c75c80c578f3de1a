// How each kind of control is shown by each kind of widget, and where the widget's own news go.
#pragma once

#include <QColor>
#include <QString>
#include <cstddef>
#include <string>

class QWidget;

namespace vintoral {

class CaptionLabel;
class CellFrame;
class CurveView;
class Hands;
class IconButton;
class Light;
class ListField;
class Mirror;
class PhotoCell;
class PictureLoader;
class PictureView;
class PushButton;
class RowList;
class TextEditor;
class TextField;
class TickBox;
class TickList;
class TitledCard;

/// What the panels of a form's window are built on.
struct Stage {
  Mirror& mirror;
  Hands& hands;
  PictureLoader& pictures;
};

/// The name of a control of the form: "TxtEfectivo", or of a family {"TxtCampo", 2}.
struct ControlName {
  ControlName(const char* name) : text(name) {}
  ControlName(const char* family, std::size_t index)
      : text(std::string(family) + "(" + std::to_string(index) + ")") {}
  std::string text;
};

// A form that has no such control of that kind ends the program.

/// A text box.
void Bind(Stage& stage, const ControlName& name, TextField& field);
/// A text box of several lines.
void Bind(Stage& stage, const ControlName& name, TextEditor& editor);
/// A label.
void Bind(Stage& stage, const ControlName& name, CaptionLabel& caption);
/// A label that is a mere bar of colour.
void Bind(Stage& stage, const ControlName& name, Light& bar);
/// A combo box or a list box.
void Bind(Stage& stage, const ControlName& name, ListField& field);
/// A list box whose rows are pressed.
void Bind(Stage& stage, const ControlName& name, RowList& list);
/// A list box whose rows have ticks.
void Bind(Stage& stage, const ControlName& name, TickList& list);
/// A combo box without rows: its text alone.
void BindText(Stage& stage, const ControlName& name, TextField& field);
/// A text box that nobody types in.
void BindText(Stage& stage, const ControlName& name, CaptionLabel& caption);
/// A check box.
void Bind(Stage& stage, const ControlName& name, TickBox& box);
/// A picture box that is a button.
void Bind(Stage& stage, const ControlName& name, IconButton& button);
/// A picture box or an image.
void Bind(Stage& stage, const ControlName& name, PictureView& view);
/// An image with a caption on it.
void Bind(Stage& stage, const ControlName& name, PhotoCell& cell);
/// The shape that surrounds a cell.
void Bind(Stage& stage, const ControlName& name, CellFrame& frame);
/// A picture box that is a light, on while it is shown; `color` where the model gives it none of its own.
void Bind(Stage& stage, const ControlName& name, Light& light, QColor color);
/// A command button.
void Bind(Stage& stage, const ControlName& name, PushButton& button);
/// A frame.
void Bind(Stage& stage, const ControlName& name, TitledCard& card);
/// A chart.
void Bind(Stage& stage, const ControlName& name, CurveView& view);
/// A control of which only presence, use and tooltip show.
void BindPlain(Stage& stage, const ControlName& name, QWidget& widget);

}  // namespace vintoral
