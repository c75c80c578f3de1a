// The menu of functions, worked by keys and mouse.
#include <QTest>
#include <QTimer>

#include "gui/Gate.h"
#include "safety/form5/Form5.h"
#include "window/controls/PushButton.h"
#include "window/controls/RowList.h"

namespace vintoral::test {
namespace {

class Menus : public Gate {
 protected:
  void Open(const std::function<void()>& steps) {
    Start();
    InDialog("Form5", Qt::Key_F8, Qt::NoModifier, steps);
  }
  RowList& List() { return Face<RowList>("LstMenu"); }
  void Press(int row) {
    QTest::mouseClick(&List(), Qt::LeftButton, Qt::NoModifier, List().PlaceOf(row).center());
    QCoreApplication::processEvents();
  }
  std::vector<std::string> Launched() {
    std::vector<std::string> commands;
    for (const DeviceEvent& event : events_.Take()) {
      if (event.kind == DeviceEvent::Kind::kLaunch) commands.push_back(event.text.ToUtf8());
    }
    return commands;
  }
};

TEST_F(Menus, ShowsRowsAndButtons) {
  Open([this] {
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Menú de Funciones"));
    EXPECT_EQ(Shown("LblMenu"), QString::fromUtf8("Menú de Funciones"));
    ASSERT_EQ(List().Rows().size(), 11);
    EXPECT_EQ(List().Rows()[4], "Memoria de Rostros (ACTIVAR)");
    EXPECT_EQ(Face<PushButton>("CmdMenu(6)").text(), "HORARIO DE TRABAJO");
    EXPECT_EQ(Focused(), "LstMenu");
  });
}

TEST_F(Menus, EverythingHasItsPlace) {
  Open([this] {
    const QRect room = Front().rect();
    QRect last;
    for (const QString& name :
         {QStringLiteral("LblMenu"), QStringLiteral("LstMenu"), QStringLiteral("CmdMenu(0)"),
          QStringLiteral("CmdMenu(1)"), QStringLiteral("CmdMenu(6)")}) {
      const QRect place(Face(name).mapTo(&Front(), QPoint()), Face(name).size());
      EXPECT_TRUE(room.contains(place)) << name.toStdString();
      EXPECT_FALSE(place.intersects(last)) << name.toStdString();
      last = place;
    }
    EXPECT_LE(Front().height(), 690);
    const QFontMetrics words(Face("CmdMenu(6)").font());
    EXPECT_LT(words.horizontalAdvance("HORARIO DE TRABAJO"), Face("CmdMenu(6)").width());
  });
}

TEST_F(Menus, APressOnARowDoesWhatItsKeyDoes) {
  Open([this] {
    Press(1);
    EXPECT_EQ(dialogs_->Find("Form5"), nullptr);
    EXPECT_EQ(Launched(), std::vector<std::string>{"Explorer.exe Fondos"});
  });
}

TEST_F(Menus, SoDoArrowsAndEnter) {
  Open([this] {
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(dialogs_->Find("Form5"), nullptr);
    EXPECT_EQ(Launched(), std::vector<std::string>{"Explorer.exe Fondos"});
  });
}

TEST_F(Menus, APressThatSlipsOffItsRowDoesNothing) {
  Open([this] {
    QTest::mousePress(&List(), Qt::LeftButton, Qt::NoModifier, List().PlaceOf(1).center());
    QTest::mouseRelease(&List(), Qt::LeftButton, Qt::NoModifier, List().PlaceOf(2).center());
    QTest::mouseClick(&List(), Qt::RightButton, Qt::NoModifier, List().PlaceOf(1).center());
    QCoreApplication::processEvents();
    EXPECT_NE(dialogs_->Find("Form5"), nullptr);
    EXPECT_TRUE(Launched().empty());
  });
}

TEST_F(Menus, ARowLeadsToItsDialog) {
  Open([this] {
    bool up = false;
    QTimer waiting;
    QObject::connect(&waiting, &QTimer::timeout, [&] {
      if (up || dialogs_->Find("Form7") == nullptr) return;
      up = true;
      EXPECT_EQ(dialogs_->Find("Form5"), nullptr);
      Key(Qt::Key_Escape);
    });
    waiting.start(0);
    Press(3);
    EXPECT_TRUE(up);
    EXPECT_EQ(dialogs_->Find("Form7"), nullptr);
  });
}

TEST_F(Menus, TheHoursAreOpenedAndTheMenuStays) {
  Open([this] {
    Click("CmdMenu(6)");
    EXPECT_EQ(Launched(), std::vector<std::string>{"Notepad.exe Recursos\\Vintoral.RGT"});
    EXPECT_NE(dialogs_->Find("Form5"), nullptr);
    Key(Qt::Key_Escape);
    EXPECT_EQ(dialogs_->Find("Form5"), nullptr);
  });
}

}  // namespace
}  // namespace vintoral::test
