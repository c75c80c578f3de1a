// The keypad of the lock, worked by keys and mouse.
#include <QTest>

#include "gui/Gate.h"
#include "safety/form7/Form7.h"
#include "unit/safety/Bloqueos.h"
#include "window/controls/TickList.h"
#include "window/form7/KeypadKey.h"

namespace vintoral::test {
namespace {

const std::string kNone(18, '0');

class Keypads : public Gate {
 protected:
  void Open(const std::string& password, const std::string& functions, const std::function<void()>& steps) {
    folder_.Put("Recursos/Vintoral.EXT", ExtWith(password, functions));
    Start();
    InDialog("Form7", Qt::Key_F9, Qt::NoModifier, steps);
  }
  TickList& List() { return Face<TickList>("LstBloqueo"); }
  KeypadKey& KeyOf(int key) { return Face<KeypadKey>(QStringLiteral("ImgBoton(%1)").arg(key)); }
  void Press(int row) {
    QTest::mouseClick(&List(), Qt::LeftButton, Qt::NoModifier, List().Place(row).center());
    QCoreApplication::processEvents();
  }
};

TEST_F(Keypads, ThePromptIsTheKeysAlone) {
  Open("12345", kNone, [this] {
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Acceso"));
    EXPECT_FALSE(List().isVisible());
    EXPECT_FALSE(Face("LblFuncion(1)").isVisible());
    EXPECT_TRUE(KeyOf(7).isEnabled());
    EXPECT_LT(Front().height(), 200);
    EXPECT_EQ(KeyOf(Form7::kConfirmar).text(), "Confirmar");
  });
}

TEST_F(Keypads, TypedDigitsLeaveNoTraceInThePrompt) {
  Open("12345", kNone, [this] {
    const QImage before = Picture(Front());
    Type("9876");
    EXPECT_EQ(Picture(Front()), before);
    EXPECT_FALSE(KeyOf(Form7::kConfirmar).Ready());
    Type("5");
    EXPECT_TRUE(KeyOf(Form7::kConfirmar).Ready());
    EXPECT_NE(Picture(Front()), before);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Picture(Front()), before);
  });
}

TEST_F(Keypads, ThePasswordTurnsThePromptIntoThePanel) {
  Open("12345", kNone, [this] {
    const int prompt = Front().height();
    Type("12345");
    Key(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Bloquear Funciones con Contraseña"));
    EXPECT_TRUE(List().isVisible());
    EXPECT_GT(Front().height(), prompt + 300);
    EXPECT_FALSE(KeyOf(0).isEnabled());
  });
}

TEST_F(Keypads, EverythingOfThePanelHasItsPlace) {
  Open("", kNone, [this] {
    QStringList names = {"LblFuncion(0)", "LblFuncion(1)", "LstBloqueo"};
    for (int key = 0; key < Form7::kBotones; ++key)
      names << QStringLiteral("ImgBoton(%1)").arg(key);
    const QRect room = Front().rect();
    std::vector<QRect> places;
    for (const QString& name : names) {
      const QRect place(Face(name).mapTo(&Front(), QPoint()), Face(name).size());
      EXPECT_TRUE(room.contains(place)) << name.toStdString();
      for (const QRect& other : places)
        EXPECT_FALSE(place.intersects(other)) << name.toStdString();
      places.push_back(place);
    }
    // Below the title bar of the smallest screen.
    EXPECT_LE(Front().height(), 690);
    EXPECT_EQ(List().Place(17).top(), List().height());  // all rows are in view
  });
}

TEST_F(Keypads, APressOnARowChoosesIt) {
  Open("", kNone, [this] {
    Press(16);
    Press(2);
    EXPECT_TRUE(form_->Form7->LstBloqueo.Checked[16]);
    EXPECT_TRUE(form_->Form7->LstBloqueo.Checked[2]);
    Press(16);
    EXPECT_FALSE(form_->Form7->LstBloqueo.Checked[16]);
  });
}

TEST_F(Keypads, ANewPasswordShowsOnItsKeys) {
  Open("", kNone, [this] {
    WillAnswer(Answer::kOk);
    Click("LblFuncion(1)");
    EXPECT_TRUE(KeyOf(3).isEnabled());
    Click("ImgBoton(3)");
    Type("13");
    EXPECT_EQ(KeyOf(3).Marks(), "1 3");
    EXPECT_EQ(KeyOf(1).Marks(), "2");
    EXPECT_EQ(KeyOf(2).Marks(), "");
    Click("ImgBoton(10)");
    EXPECT_EQ(KeyOf(3).Marks(), "");
    EXPECT_FALSE(KeyOf(3).isEnabled());
  });
}

TEST_F(Keypads, AWholeLockIsSetByHand) {
  Open("", kNone, [this] {
    Press(0);
    WillAnswer(Answer::kOk);
    Click("ImgBoton(11)");
    for (const int key : {2, 0, 5, 1, 7})
      Click(QStringLiteral("ImgBoton(%1)").arg(key));
    WillAnswer(Answer::kOk);
    Click("ImgBoton(11)");
    WillAnswer(Answer::kOk);
    Click("ImgBoton(11)");
    EXPECT_EQ(dialogs_->Find("Form7"), nullptr);
  });
  EXPECT_TRUE(window_->findChild<QWidget*>("ImgIndicador(0)")->isVisible());
  EXPECT_EQ(folder_.Get("Recursos/Vintoral.EXT").substr(kLockAt), LockRecord("20517", "10000000000000000"));
}

TEST_F(Keypads, TheCloseBoxAsksTheForm) {
  Open("12345", Locking(1), [this] {
    Front().close();
    EXPECT_EQ(dialogs_->Find("Form7"), nullptr);
  });
  EXPECT_TRUE(form_->ImgIndicador[indicador::kBloqueo].Visible);
}

}  // namespace
}  // namespace vintoral::test
