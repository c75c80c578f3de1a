// How each kind of control is shown by each kind of widget, and where the widget's own news go.
#pragma once

#include <QColor>
#include <QString>

#include "station/form1/Form1.h"

class QCheckBox;
class QListWidget;
class QWidget;

namespace vintoral {

class CaptionLabel;
class CurveView;
class Hands;
class IconButton;
class Light;
class ListField;
class Mirror;
class PictureLoader;
class PictureView;
class PushButton;
class TextEditor;
class TextField;

/// What the panels are built on.
struct Stage {
  Form1& form;
  Mirror& mirror;
  Hands& hands;
  PictureLoader& pictures;
};

void Bind(Stage& stage, TextBox& box, TextField& field);
void Bind(Stage& stage, TextBox& box, TextEditor& editor);
void Bind(Stage& stage, Label& label, CaptionLabel& caption);
/// A label that is a mere bar of colour.
void Bind(Stage& stage, Label& label, Light& bar);
void Bind(Stage& stage, ComboBox& list, ListField& field);
void Bind(Stage& stage, ListBox& list, ListField& field);
void Bind(Stage& stage, CheckBox& tick, QCheckBox& box);
void Bind(Stage& stage, PictureBox& picture, IconButton& button);
void Bind(Stage& stage, PictureBox& picture, PictureView& view);
/// A light that is on while the control is shown; `color` where the model gives it none of its own.
void Bind(Stage& stage, PictureBox& picture, Light& light, QColor color);
void Bind(Stage& stage, Image& image, PictureView& view);
void Bind(Stage& stage, CommandButton& command, PushButton& button);
void Bind(Stage& stage, Chart& chart, CurveView& view);
/// A control of which only presence, use and tooltip show.
void BindPlain(Stage& stage, Control& control, QWidget& widget);

}  // namespace vintoral
