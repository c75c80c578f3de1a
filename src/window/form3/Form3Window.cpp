#include "window/form3/Form3Window.h"

#include "window/controls/SlipPaper.h"
#include "window/controls/SlipPhoto.h"
#include "window/controls/TickBox.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

// Of the preview, counted from 0. The photo stands behind its last line.
constexpr int kFirstField = 3, kPhoto = 9;
constexpr int kPhotoLines = 4;

}  // namespace

Form3Window::Form3Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
    : FormatWindow(form, hands, pictures, owner) {
  Stage stage{mirror_, hands, pictures};
  SlipPaper& paper = BuildSlip(stage, kPhoto + kPhotoLines, kFirstField);
  auto* const photo = new SlipPhoto(&paper);
  BindPlain(stage, "PctFoto", *photo);
  paper.PutPhoto(*photo, NewTick(stage, "ChkFoto", paper), kPhoto, kPhotoLines);
  BuildPrinter(stage);
  TakeUsualSize();
}

}  // namespace vintoral
