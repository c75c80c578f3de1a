#include "gui/Gate.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "tariffs/form6/Form6.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/ListField.h"

namespace vintoral::test {

Gate::Gate() : disk_(folder_.Path(), PosixDisk::Work::kBeside) {
  Civil start;
  start.year = 2026;
  start.month = 11;
  start.day = 20;
  start.hour = 14;
  clock_.Set(*Moment::From(start));
  // A shortcut is there already: no welcome.
  folder_.Put("Desktop/Vintoral.desktop", "[Desktop Entry]\n");
  camera_.Installed = {"CAMARA"_w};
  system_.Desktop = folder_.Path("Desktop");
  screen_.OnShown = [this](QMessageBox& dialog, const Box& box) { AnswerBox(dialog, box); };
}

Gate::~Gate() {
  dialogs_.reset();
  window_.reset();  // which may still be reading a picture from the disk
}

void Gate::Start() {
  form_ = std::make_unique<Form1>(
      Platform{clock_, screen_, sound_, system_, disk_, pictures_, printer_, chance_, camera_, *carrier_});
  snapshots_ = std::make_unique<Snapshots>(form_->OpenForms);
  queue_ = std::make_unique<InputQueue>(seam_, clock_);
  hands_ = std::make_unique<Hands>(form_->OpenForms, seam_, *queue_);
  window_ = std::make_unique<MainWindow>(snapshots_->Now().loaded.front(), *hands_,
                                         MainWindow::Files{pictures_, disk_, camera_});
  dialogs_ = std::make_unique<Dialogs>(*snapshots_, *window_);
  Join();
  form_->Form_Load();
  window_->resize(1366, 768);
  window_->show();
  QApplication::setActiveWindow(window_.get());
  constexpr std::int64_t kUntilClockRuns = 3'600;
  Advance(kUntilClockRuns);
}

void Gate::Join() {
  seam_.Publish = [this] { Refresh(); };
  seam_.Ended = [this] { return form_->OpenForms.Ended(); };
  seam_.OnFree = [this] { queue_->Go(); };
  queue_->Beep = [] {};
  queue_->ToBox = [this](const QKeyEvent* key) { return screen_.ToBox(key); };
  screen_.Owner = [this] { return dialogs_->Active(); };
  screen_.BeforeWaiting = [this] { Refresh(); };
  window_->Pictures().OnDamaged = [this](const vintoral::Picture& picture) {
    form_->FotoDanada(picture.Path(), picture.Mark());
    Refresh();
  };
}

void Gate::Refresh() {
  snapshots_->Take();
  window_->Refresh();
}

void Gate::Restart() {
  form_->TotalFichas = 0;
  form_->CerrarVentana();
  dialogs_.reset();
  window_.reset();
  Start();
}

void Gate::Advance(std::int64_t milliseconds) {
  AdvanceTime(clock_, form_->OpenForms, milliseconds);
  Refresh();
  QCoreApplication::processEvents();
}

void Gate::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(Front().windowHandle(), key, modifiers);
  QCoreApplication::processEvents();
}

void Gate::Type(const QString& text) {
  for (const QChar letter : text) {
    const int key = letter.toUpper().unicode();
    QTest::simulateEvent(Front().windowHandle(), true, key, Qt::NoModifier, letter, false);
    QTest::simulateEvent(Front().windowHandle(), false, key, Qt::NoModifier, letter, false);
  }
  QCoreApplication::processEvents();
}

void Gate::Click(const QString& name) {
  QWidget& face = Face(name);
  const QPoint at = face.mapTo(face.window(), face.rect().center());
  QTest::mouseClick(face.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
  QCoreApplication::processEvents();
}

void Gate::InTariffs(const std::function<void()>& steps) {
  InDialog("Form6", Qt::Key_T, Qt::ControlModifier, steps);
}

void Gate::InDialog(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers,
                    const std::function<void()>& steps) {
  bool up = false;
  QTimer waiting;
  QObject::connect(&waiting, &QTimer::timeout, [&] {
    if (up || dialogs_->Find(name) == nullptr) return;
    up = true;
    waiting.stop();
    steps();
    // The dialog holds the test until it is gone.
    if (Form* const form = form_->OpenForms.Find(name)) form_->OpenForms.Unload(*form);
  });
  waiting.start(0);
  Key(key, modifiers);
  EXPECT_TRUE(up) << "no dialog came up";
}

void Gate::AnswerBox(QMessageBox& dialog, const Box& box) {
  boxes_.push_back(box);
  if (answers_.empty()) {
    ADD_FAILURE() << "unexpected box: " << box.text.ToUtf8();
    return dialog.reject();
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  const auto at = std::find(box.buttons.begin(), box.buttons.end(), answer) - box.buttons.begin();
  ASSERT_LT(at, static_cast<std::ptrdiff_t>(box.buttons.size())) << "no such button in " << box.text.ToUtf8();
  QTest::mouseClick(dialog.buttons().at(at), Qt::LeftButton);
}

QString Gate::Focused() const {
  const QWidget* const focus = Front().focusWidget();
  return focus == nullptr ? QString() : focus->objectName();
}

QString Gate::Shown(const QString& name) {
  QWidget& face = Face(name);
  if (const auto* label = dynamic_cast<CaptionLabel*>(&face)) return label->Caption();
  if (const auto* field = dynamic_cast<QLineEdit*>(&face)) return field->text();
  if (const auto* list = dynamic_cast<ListField*>(&face)) return list->Shown();
  ADD_FAILURE() << name.toStdString() << " shows no text";
  return {};
}

QImage Gate::Picture(QWidget& widget) {
  return widget.grab().toImage();
}

}  // namespace vintoral::test
