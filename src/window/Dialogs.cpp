#include "window/Dialogs.h"

#include <QApplication>
#include <algorithm>
#include <array>
#include <utility>

#include "camera/formcamara/FormCamara.h"
#include "reports/form2/Form2.h"
#include "reports/form3/Form3.h"
#include "reports/form8/Form8.h"
#include "safety/form5/Form5.h"
#include "safety/form7/Form7.h"
#include "safety/form9/Form9.h"
#include "sales/form4/Form4.h"
#include "station/form1/Form1.h"
#include "window/controls/DialogWindow.h"
#include "window/form1/MainWindow.h"
#include "window/form2/Form2Window.h"
#include "window/form3/Form3Window.h"
#include "window/form4/Form4Window.h"
#include "window/form5/Form5Window.h"
#include "window/form6/Form6Window.h"
#include "window/form7/Form7Window.h"
#include "window/form8/Form8Window.h"
#include "window/form9/Form9Window.h"
#include "window/formcamara/FormCamaraWindow.h"

namespace vintoral {

namespace {

struct Maker {
  std::string_view name;
  std::string_view title;  ///< in UTF-8
  DialogWindow* (*make)(const Snapshots::Taken& form, MainWindow& main);
};

template <class W>
DialogWindow* Make(const Snapshots::Taken& form, MainWindow& main) {
  return new W(form, main.AllHands(), main.Pictures(), &main);
}

constexpr std::array kMakers = {Maker{"Form2", Form2::kTitulo, &Make<Form2Window>},
                                Maker{"Form3", Form3::kTitulo, &Make<Form3Window>},
                                Maker{"Form4", Form4::kTitulo, &Make<Form4Window>},
                                Maker{"Form5", Form5::kTitulo, &Make<Form5Window>},
                                Maker{"Form6", Form1::kTitulo, &Make<Form6Window>},
                                Maker{"Form7", Form7::kTitulo, &Make<Form7Window>},
                                Maker{"Form8", Form8::kTitulo, &Make<Form8Window>},
                                Maker{"Form9", Form9::kTitulo, &Make<Form9Window>},
                                Maker{"FormCamara", FormCamara::kTitulo, &Make<FormCamaraWindow>}};

}  // namespace

Dialogs::Dialogs(const Snapshots& snapshots, MainWindow& main)
    : snapshots_(snapshots), main_(main), active_(main.Shown().Of()), front_(active_) {
  main_.OnRefresh = [this] { Refresh(); };
  main_.AllHands().HasKeyboard = [this] { return Active()->focusWidget(); };
}

Dialogs::~Dialogs() {
  main_.OnRefresh = nullptr;
  main_.AllHands().HasKeyboard = nullptr;
  qDeleteAll(windows_);
}

void Dialogs::Refresh() {
  const Snapshots::Screen screen = snapshots_.Now();
  active_ = screen.active;
  RetireGone(screen);
  for (const Snapshots::Taken& form : screen.loaded) {
    if (DialogWindow* const window = WindowOf(form)) window->Refresh();
  }
  BringForward();
}

// Who has typed his search goes on at the main screen, without reaching for the mouse. And a window manager
// that gave the keyboard to a dialog in the moment in which that went away, behind a box, has it nowhere: Qt
// can't tell.
void Dialogs::BringForward() {
  QWidget* const window = Active();
  const QWidget* const holding = QApplication::activeModalWidget();
  if (holding != nullptr && holding != window) return;  // a box has it for now
  const Snapshots::Taken front = std::exchange(front_, active_);
  if (front != front_ && window->isVisible()) window->activateWindow();
}

void Dialogs::RetireGone(const Snapshots::Screen& screen) {
  windows_.removeIf([&](const auto& each) {
    const bool gone = std::none_of(screen.loaded.begin(), screen.loaded.end(),
                                   [&](const auto& form) { return form.get() == each.key(); });
    if (gone) each.value()->Retire();
    return gone;
  });
}

/// Null for the main form, and for one that has never been shown.
DialogWindow* Dialogs::WindowOf(const Snapshots::Taken& form) {
  if (DialogWindow* const made = windows_.value(form.get())) return made;
  std::string name;
  {
    const std::lock_guard lock(form->Lock());
    if (!form->Snapshot().shown) return nullptr;
    name = form->Snapshot().name;
  }
  const auto* const maker =
      std::find_if(kMakers.begin(), kMakers.end(), [&](const Maker& each) { return each.name == name; });
  if (maker == kMakers.end()) return nullptr;
  DialogWindow* const made = maker->make(form, main_);
  made->setWindowTitle(QString::fromStdString(std::string(maker->title)));
  return windows_[form.get()] = made;
}

DialogWindow* Dialogs::Find(std::string_view name) const {
  const Snapshots::Taken form = snapshots_.Find(std::string(name));
  return form == nullptr ? nullptr : windows_.value(form.get());
}

QWidget* Dialogs::Active() const {
  DialogWindow* const dialog = windows_.value(active_.get());
  return dialog == nullptr ? static_cast<QWidget*>(&main_) : dialog;
}

}  // namespace vintoral
