// The panic alert in the window: its dialog, and a mail under way.
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <thread>

#include "gui/Gate.h"
#include "platform/desktop/DesktopMail.h"
#include "safety/form9/Form9.h"

namespace vintoral::test {
namespace {

constexpr Qt::KeyboardModifiers kCtrlAlt = Qt::ControlModifier | Qt::AltModifier;

class PanicDialog : public Gate {
 protected:
  void InPanic(const std::function<void()>& steps) { InDialog("Form9", Qt::Key_P, kCtrlAlt, steps); }
};

TEST_F(PanicDialog, ShowsItsValues) {
  Start();
  form_->DatosCall[0] = "ALERTA"_w;
  form_->DatosCall[6] = "e@e.example"_w;
  InPanic([this] {
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Botón del Pánico"));
    EXPECT_EQ(Shown("LblCall(0)"), "Asunto");
    EXPECT_EQ(Shown("LblCall(6)"), "E-MAIL #5");
    EXPECT_EQ(Shown("TxtCall(0)"), "ALERTA");
    EXPECT_EQ(Shown("TxtCall(6)"), "e@e.example");
    EXPECT_EQ(Focused(), "TxtCall(0)");
  });
}

TEST_F(PanicDialog, EverythingHasItsPlace) {
  Start();
  InPanic([this] {
    QRect last;
    for (int i = 0; i < 7; ++i) {
      for (const char* const family : {"LblCall", "TxtCall"}) {
        QWidget& face = Face(QStringLiteral("%1(%2)").arg(family).arg(i));
        const QRect place(face.mapTo(&Front(), QPoint()), face.size());
        EXPECT_TRUE(Front().rect().contains(place)) << family << i;
        EXPECT_FALSE(place.intersects(last)) << family << i;
        last = place;
      }
    }
    QWidget& button = Face("CmdPanico");
    QFont bold = button.font();
    bold.setWeight(QFont::Bold);
    EXPECT_GT(button.width(), QFontMetrics(bold).horizontalAdvance("ACTIVAR ALERTA") + 20);
    EXPECT_TRUE(Front().rect().contains(QRect(button.mapTo(&Front(), QPoint()), button.size())));
    EXPECT_LE(Front().height(), 690);
    EXPECT_LE(Front().width(), 1366);
    // Forty-eight letters of the usual kind are seen at once.
    const QString longest = QStringLiteral("guardia.de.la.noche.torre-norte@seguridad.exampl");
    ASSERT_EQ(longest.size(), 48);
    EXPECT_LT(Face("TxtCall(2)").fontMetrics().horizontalAdvance(longest), Face("TxtCall(2)").width() - 18);
  });
}

TEST_F(PanicDialog, IsFilledInByKeysAndArms) {
  Start();
  EXPECT_FALSE(Face("ImgPanico").isVisible());
  InPanic([this] {
    Type("ALERTA");
    Key(Qt::Key_Return);
    Type("Asalto");
    Key(Qt::Key_Return);
    Type("a@a");
    EXPECT_EQ(Focused(), "TxtCall(2)");
    Click("CmdPanico");
    EXPECT_EQ(dialogs_->Find("Form9"), nullptr);
  });
  EXPECT_EQ(form_->DatosCall[2], "a@a"_w);
  EXPECT_TRUE(Face("ImgPanico").isVisible());
}

/// A relay that takes its time.
class PanicUnderWay : public Gate {
 protected:
  PanicUnderWay() {
    carrier_ = &slow_;
    Start();
    form_->ImgPanico.Visible = true;
    Refresh();
  }
  /// Presses F12, and runs `steps` while the mail is under way.
  void DuringAlert(const std::function<void()>& steps) {
    bool done = false;
    QTimer::singleShot(100, window_.get(), [&] {
      steps();
      done = true;
      carried_ = true;
    });
    Key(Qt::Key_F12);
    EXPECT_TRUE(done);
  }
  /// How long an event takes that is handled in the loop of the alert.
  template <class Work>
  static qint64 Milliseconds(Work work) {
    QElapsedTimer time;
    time.start();
    work();
    return time.elapsed();
  }

  std::atomic<bool> carried_ = false;
  int sent_ = 0;
  DesktopMail slow_{[](std::string_view) { return std::string(); },
                    [this](const MailJob&, const std::atomic<bool>& over) {
                      ++sent_;
                      while (!carried_ && !over)
                        std::this_thread::sleep_for(std::chrono::milliseconds(1));
                      return std::string();
                    },
                    {}};
};

TEST_F(PanicUnderWay, TheScreenSaysSoAndGoesOn) {
  form_->DatosCall[2] = "a@a.example"_w;
  // Of this machine, so that a network makes no difference.
  folder_.Put("Objetos/Correo.INI", "Servidor = localhost\n");
  DuringAlert([this] {
    EXPECT_EQ(Shown("LblInfo(3)"), "ENVIANDO E-MAIL");
    EXPECT_FALSE(Face("ImgPanico").isEnabled());
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_LT(Milliseconds([this] { Type("77"); }), 100);
    EXPECT_EQ(Shown("TxtCampo(0)"), "77");
    EXPECT_LT(Milliseconds([this] { Key(Qt::Key_F12); }), 100);
    Click("ImgPanico");
  });
  EXPECT_EQ(sent_, 1);
  EXPECT_EQ(Shown("LblInfo(3)"), "");
  EXPECT_TRUE(Face("ImgPanico").isEnabled());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(Shown("TxtCampo(0)"), "77");
}

TEST_F(PanicUnderWay, ADialogOpensOverIt) {
  folder_.Put("Objetos/Correo.INI", "Servidor = localhost\n");
  DuringAlert([this] {
    InTariffs([this] {
      EXPECT_EQ(QApplication::overrideCursor(), nullptr);
      EXPECT_EQ(Focused().left(3), "Txt");
    });
  });
  EXPECT_EQ(Shown("LblInfo(3)"), "");
}

}  // namespace
}  // namespace vintoral::test
