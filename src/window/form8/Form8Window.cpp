#include "window/form8/Form8Window.h"

#include <QBoxLayout>

#include "window/controls/SlipPaper.h"
#include "window/controls/TextField.h"
#include "window/controls/TickBox.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

// Of the preview, counted from 0.
constexpr int kNumber = 0, kFirstField = 4, kPoints = 11, kTaxes = 13, kLines = 15;

}  // namespace

Form8Window::Form8Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
    : FormatWindow(form, hands, pictures, owner) {
  Stage stage{mirror_, hands, pictures};
  SlipPaper& paper = BuildSlip(stage, kLines, kFirstField);
  paper.PutBeside(NewTick(stage, "ChkPuntos", paper), kPoints);
  BuildNumber(stage, paper);
  BuildTaxes(stage, paper);
  QBoxLayout& printer = BuildPrinter(stage);
  printer.addWidget(&NewTick(stage, "ChkCopia", *printer.parentWidget()));
  TakeUsualSize();
}

/// The number stands where it will, behind a prefix of usual length; a longer one scrolls.
void Form8Window::BuildNumber(Stage& stage, SlipPaper& paper) {
  constexpr int kInset = 8;
  constexpr int kPrefixWidth = 18, kNumberColumn = 20, kNumberWidth = 6;
  paper.PutOver(NewField(stage, "TxtPrefijo", paper), kNumber, 0, kPrefixWidth, kInset);
  paper.PutOver(NewField(stage, "TxtNumEtiqueta", paper), kNumber, kNumberColumn, kNumberWidth, kInset);
}

/// A percentage stands against its sign, in the blanks of its line.
void Form8Window::BuildTaxes(Stage& stage, SlipPaper& paper) {
  constexpr int kInset = 3;
  constexpr double kColumn = 11.5, kWidth = 4.25;
  for (const std::size_t tax : {0U, 1U}) {
    TextField& field = NewField(stage, {"TxtImpuesto", tax}, paper);
    field.setAlignment(Qt::AlignRight);
    paper.PutOver(field, kTaxes + static_cast<int>(tax), kColumn, kWidth, kInset);
  }
}

}  // namespace vintoral
