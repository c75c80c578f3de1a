#include "window/Dialogs.h"

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
#include "station/forms/Forms.h"
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
  DialogWindow* (*make)(Forms& forms, Form& form, MainWindow& main);
};

template <class W>
DialogWindow* Make(Forms& forms, Form& form, MainWindow& main) {
  return new W(forms, form, main.AllHands(), main.Pictures(), &main);
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

Dialogs::Dialogs(Forms& forms, MainWindow& main) : forms_(forms), main_(main), front_(&forms.Main()) {
  main_.OnRefresh = [this] { Refresh(); };
}

Dialogs::~Dialogs() {
  main_.OnRefresh = nullptr;
  qDeleteAll(windows_);
}

void Dialogs::Refresh() {
  RetireGone();
  for (Form* form : forms_.Loaded()) {
    DialogWindow* const window = form->Shown() ? WindowOf(*form) : windows_.value(form);
    if (window != nullptr) window->Refresh();
  }
  BringForward();
}

// Who has typed his search goes on at the main screen, without reaching for the mouse.
void Dialogs::BringForward() {
  const Form* const front = std::exchange(front_, &forms_.Active());
  if (front == front_ || forms_.IsModal(*front_)) return;
  QWidget* const window = Active();
  if (window->isVisible() && !window->isActiveWindow()) window->activateWindow();
}

void Dialogs::RetireGone() {
  const std::vector<Form*> loaded = forms_.Loaded();
  windows_.removeIf([&](const auto& each) {
    const bool gone = std::find(loaded.begin(), loaded.end(), each.key()) == loaded.end();
    if (gone) each.value()->Retire();
    return gone;
  });
}

DialogWindow* Dialogs::WindowOf(Form& form) {
  if (DialogWindow* const made = windows_.value(&form)) return made;
  const auto maker = std::find_if(kMakers.begin(), kMakers.end(),
                                  [&](const Maker& each) { return each.name == form.Name(); });
  if (maker == kMakers.end()) return nullptr;
  DialogWindow* const made = maker->make(forms_, form, main_);
  made->setWindowTitle(QString::fromStdString(std::string(maker->title)));
  return windows_[&form] = made;
}

DialogWindow* Dialogs::Find(std::string_view name) const {
  return windows_.value(forms_.Find(name));
}

QWidget* Dialogs::Active() const {
  DialogWindow* const dialog = windows_.value(&forms_.Active());
  return dialog == nullptr ? static_cast<QWidget*>(&main_) : dialog;
}

}  // namespace vintoral
