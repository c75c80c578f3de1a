#include "window/form1/MainWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QVBoxLayout>

#include "window/controls/InputFilter.h"
#include "window/controls/Text.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"
#include "window/form1/FieldsPanel.h"
#include "window/form1/GridPanel.h"
#include "window/form1/SideColumn.h"
#include "window/form1/StayPanel.h"
#include "window/form1/ToolBar.h"
#include "window/form1/ValuePanel.h"
#include "window/form1/WaitSign.h"

namespace vintoral {

namespace {

constexpr int kLeftLeast = 384, kLeftMost = 540;
constexpr int kValueMost = 300;
constexpr QSize kUsualSize{1366, 728};

}  // namespace

MainWindow::MainWindow(const Snapshots::Taken& form, Hands& hands, const Files& files)
    : mirror_(form), hands_(hands), pictures_(files.pictures, files.disk) {
  setObjectName(QStringLiteral("Form1"));
  setWindowIcon(QIcon(QStringLiteral(":/icons/vintoral.svg")));
  TellHelp();
  Stage stage{mirror_, hands_, pictures_};
  Build(stage, files.camera);
  new InputFilter(*this, mirror_, hands_);  // the window owns it
  resize(kUsualSize);
  Refresh();
}

/// The title bar is the help line: it says what the button under the pointer does.
void MainWindow::TellHelp() {
  auto& help = mirror_.StateOf<LabelState>("LblAyuda");
  mirror_.AfterViews([this, &help] {
    if (help.caption.News()) setWindowTitle(ToQString(TrimBlanks(*help.caption)));
  });
}

void MainWindow::Build(Stage& stage, Camera& camera) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* const tools = new ToolBar(stage, this);
  mirror_.RestOn(*tools);
  column->addWidget(tools);
  auto* const areas = new QHBoxLayout;
  areas->setContentsMargins(theme::kGap, theme::kGap, theme::kGap, theme::kGap);
  areas->setSpacing(theme::kGap);
  areas->addWidget(BuildLeft(stage), 29);
  auto* const grid = new GridPanel(stage, this);
  areas->addWidget(grid, 47);
  areas->addWidget(new SideColumn(stage, camera, this), 24);
  column->addLayout(areas, 1);
  waiting_ = new WaitSign(*grid, tools->Bars());
}

QWidget* MainWindow::BuildLeft(Stage& stage) {
  auto* const left = new QWidget(this);
  left->setMinimumWidth(kLeftLeast);
  left->setMaximumWidth(kLeftMost);
  auto* const column = new QVBoxLayout(left);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::kGap);
  column->addWidget(new FieldsPanel(stage, left));
  column->addWidget(new StayPanel(stage, left));
  // The amount takes what is left, but stays one piece with the cash on a high screen.
  auto* const value = new ValuePanel(stage, left);
  value->setMaximumHeight(kValueMost);
  constexpr int kFirst = 100;
  column->addWidget(value, kFirst);
  column->addStretch(1);
  return left;
}

void MainWindow::Refresh() {
  mirror_.Show();
  if (OnRefresh) OnRefresh();
}

void MainWindow::Appear() {
  Refresh();
  if (!isVisible() && mirror_.Snapshot().shown) showMaximized();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  hands_.CloseMain(mirror_.Snapshot().name);
  Refresh();  // the program may have ended without its window
  event->setAccepted(!mirror_.Snapshot().shown);
}

}  // namespace vintoral
