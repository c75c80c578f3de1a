// A gate for tests: the real window, model, boxes and disk, with a virtual clock and recorded devices.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QWidget>
#include <deque>
#include <functional>
#include <optional>
#include <ostream>

#include "gui/DirectSeam.h"
#include "gui/FilmedCamera.h"
#include "platform/PosixDisk.h"
#include "platform/desktop/DesktopScreen.h"
#include "platform/headless/Recording.h"
#include "platform/headless/RecordingMail.h"
#include "platform/headless/SeededRandom.h"
#include "platform/headless/VirtualClock.h"
#include "platform/pictures/PicturesBeside.h"
#include "station/form1/Form1.h"
#include "support/TempFolder.h"
#include "window/Dialogs.h"
#include "window/controls/InputQueue.h"
#include "window/form1/MainWindow.h"

inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}

namespace vintoral::test {

/// Real boxes, counted beeps.
class CountingScreen : public DesktopScreen {
 public:
  using DesktopScreen::DesktopScreen;
  void Beep() override { ++Beeps; }
  int Beeps = 0;
};

class Gate : public testing::Test {
 protected:
  Gate();
  ~Gate() override;

  /// Starts the station in the test's folder, connected and idle.
  void Start();
  /// Ends the station without asking, and starts it again on the same folder.
  void Restart();
  /// Shows what a test has changed behind the hands' back.
  void Refresh();
  /// Lets time pass, and shows what came of it.
  void Advance(std::int64_t milliseconds);

  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// Types text, letter by letter.
  void Type(const QString& text);
  void Click(const QString& name);
  /// Opens a dialog with its key, and runs `steps` while it is up. It is gone afterwards.
  void InDialog(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers,
                const std::function<void()>& steps);
  void InTariffs(const std::function<void()>& steps);
  /// The next box is answered by pressing this button; each box takes one answer, in order.
  void WillAnswer(Answer answer) { answers_.push_back(answer); }

  template <class W>
  W& Face(const QString& name) {
    // Two forms may have a control of one name: the one in front is meant.
    auto* const front = Front().findChild<QWidget*>(name);
    // A missing widget ends the test: nothing after it would tell anything.
    return dynamic_cast<W&>(front != nullptr ? *front : *window_->findChild<QWidget*>(name));
  }
  QWidget& Face(const QString& name) { return Face<QWidget>(name); }
  /// The window that keys go to.
  QWidget& Front() const { return *dialogs_->Active(); }
  /// The name of the control whose widget has the keyboard.
  QString Focused() const;
  /// What the widget shows, whatever its kind.
  QString Shown(const QString& name);
  /// The picture of a widget as it stands on screen.
  QImage Picture(QWidget& widget);

  TempFolder folder_;
  VirtualClock clock_;
  Recording events_;
  DirectSeam seam_;
  CountingScreen screen_{seam_};
  RecordingPrinter printer_{events_};
  SeededRandom chance_;
  FilmedCamera camera_;
  RecordingMail mail_{events_};
  Mail* carrier_ = &mail_;  ///< who takes the mails of the next start
  std::vector<Box> boxes_;  ///< all that came up, in order
  std::unique_ptr<Form1> form_;
  std::unique_ptr<Snapshots> snapshots_;
  std::unique_ptr<InputQueue> queue_;
  std::unique_ptr<Hands> hands_;
  std::unique_ptr<MainWindow> window_;
  std::unique_ptr<Dialogs> dialogs_;

 private:
  void Join();
  void AnswerBox(QMessageBox& dialog, const Box& box);
  RecordingScreen unused_{events_, clock_};
  RecordingSound sound_{events_};
  RecordingSystem system_{events_, unused_};
  PosixDisk disk_;
  PicturesBeside pictures_;
  std::deque<Answer> answers_;
};

}  // namespace vintoral::test
