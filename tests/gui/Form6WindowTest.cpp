// The tariff dialog's window, by keys and by mouse.
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QTextBlock>

#include "gui/Gate.h"
#include "tariffs/form6/Form6.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/CurveView.h"
#include "window/controls/DialogWindow.h"
#include "window/controls/PushButton.h"
#include "window/controls/TextEditor.h"
#include "window/controls/Theme.h"

namespace vintoral::test {
namespace {

const char* const kTables[] = {"Recursos/Vintoral.EMP", "Recursos/Vintoral.XTR", "Recursos/Vintoral.RJE"};

class Tariffs : public Gate {
 protected:
  Tariffs() { Start(); }
  TextEditor& Text(int tab) { return Face<TextEditor>(QStringLiteral("TxtTarifas(%1)").arg(tab)); }
  QString TextShown(int tab) { return Text(tab).toPlainText(); }
  QString Place() { return Face<CaptionLabel>("place").Caption(); }
  QString Remark() { return Face<CaptionLabel>("remark").Caption(); }
  /// Puts this text into the tab, as a paste over everything would.
  void Fill(int tab, const QString& text) {
    Click(QStringLiteral("LblFuncion(%1)").arg(tab));
    Key(Qt::Key_A, Qt::ControlModifier);
    QGuiApplication::clipboard()->setText(text);
    Key(Qt::Key_V, Qt::ControlModifier);
  }
  QPoint PointOf(TextEditor& editor, int line, int column) {
    QTextCursor cursor(editor.document()->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
    return editor.viewport()->mapTo(editor.window(), editor.cursorRect(cursor).center());
  }
  QWindow* Handle() { return Front().windowHandle(); }
};

TEST_F(Tariffs, ControlTShowsTheTables) {
  InTariffs([&] {
    EXPECT_TRUE(TextShown(0).startsWith("\nAUTOMOVIL\n1M = 100*\n1H = 6000\n"));
    EXPECT_TRUE(TextShown(0).contains("MOTOCICLETA"));
    EXPECT_EQ(Shown("TxtMoneda"), "$");
    EXPECT_EQ(Shown("LblFuncion(0)"), "Tiempos");
    EXPECT_EQ(Shown("LblFuncion(1)"), "Extras");
    EXPECT_EQ(Shown("LblFuncion(2)"), "Tarjetas Prepago");
    EXPECT_EQ(Shown("LblFuncion(3)"), "Símbolo Moneda");
    EXPECT_EQ(Shown("LblEjemplo"), "Ejemplos");
    EXPECT_EQ(Face<PushButton>("CmdFuncion(1)").text(), "GUARDAR");
    EXPECT_EQ(Face<PushButton>("CmdFuncion(0)").text(), "CANCELAR");
    EXPECT_EQ(Focused(), "TxtTarifas(0)");
    EXPECT_EQ(QFontInfo(Text(0).font()).fixedPitch(), true);
  });
}

TEST_F(Tariffs, EveryControlHasItsWidget) {
  InTariffs([&] {
    for (const Control* control : form_->Form6->Controls())
      EXPECT_NE(Front().findChild<QWidget*>(QString::fromStdString(control->Name)), nullptr) << control->Name;
  });
}

TEST_F(Tariffs, FitsTheSmallScreens) {
  InTariffs([&] {
    // 1366 x 768 at 100 and at 125 %, less a title bar.
    EXPECT_LE(Front().width(), 1366);
    EXPECT_LE(Front().height(), 738);
    EXPECT_LE(Front().minimumSizeHint().width(), 1093);
    EXPECT_LE(Front().minimumSizeHint().height(), 584);
    for (const QSize size : {QSize(1040, 560), QSize(1000, 480)}) {
      Front().resize(size);
      QCoreApplication::processEvents();
      EXPECT_EQ(Front().size(), size);
      for (const Control* control : form_->Form6->Controls()) {
        QWidget& face = Face(QString::fromStdString(control->Name));
        const QRect place(face.mapTo(&Front(), QPoint()), face.size());
        EXPECT_TRUE(Front().rect().contains(place)) << control->Name;
        const auto* const label = dynamic_cast<const CaptionLabel*>(&face);
        EXPECT_TRUE(label == nullptr || label->Fits()) << control->Name;
      }
    }
  });
}

TEST_F(Tariffs, ATabBringsItsTextForward) {
  InTariffs([&] {
    ASSERT_TRUE(Text(0).isVisible());
    EXPECT_TRUE(Face("PctCurva").isVisible());
    Click("LblFuncion(2)");
    EXPECT_FALSE(Text(0).isVisible());
    EXPECT_FALSE(Text(1).isVisible());
    EXPECT_TRUE(Text(2).isVisible());
    EXPECT_FALSE(Face("PctCurva").isVisible());
    EXPECT_EQ(Focused(), "TxtTarifas(2)");
    EXPECT_TRUE(TextShown(2).contains("MINUTOS CARGA"));
    EXPECT_EQ(Face<CaptionLabel>("LblFuncion(2)").Ground(), QColor(0xFF, 0xC0, 0xC0));
    EXPECT_EQ(Face<CaptionLabel>("LblFuncion(0)").Ground(), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(Face<CaptionLabel>("LblFuncion(3)").Ground(), std::nullopt);
  });
}

TEST_F(Tariffs, EachTabKeepsItsText) {
  InTariffs([&] {
    Fill(0, "UNO");
    Fill(1, "DOS\nTRES");
    Click("LblFuncion(0)");
    EXPECT_EQ(TextShown(0), "UNO");
    EXPECT_EQ(Place(), "Línea 1, columna 4");
    Click("LblFuncion(1)");
    EXPECT_EQ(TextShown(1), "DOS\nTRES");
    EXPECT_EQ(Place(), "Línea 2, columna 5");
    Type("X");
    EXPECT_EQ(TextShown(1), "DOS\nTRESX");
  });
}

TEST_F(Tariffs, LineAndColumnFollowTheCaret) {
  InTariffs([&] {
    EXPECT_EQ(Place(), "Línea 1, columna 1");
    Fill(0, "AUTO\n1M = 5\nMOTO");
    EXPECT_EQ(Place(), "Línea 3, columna 5");
    Key(Qt::Key_Up);
    EXPECT_EQ(Place(), "Línea 2, columna 5");
    Key(Qt::Key_Home);
    EXPECT_EQ(Place(), "Línea 2, columna 1");
    Key(Qt::Key_Left);
    EXPECT_EQ(Place(), "Línea 1, columna 5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Place(), "Línea 2, columna 1");
    EXPECT_EQ(TextShown(0), "AUTO\n\n1M = 5\nMOTO");
  });
}

TEST_F(Tariffs, MarkingBackwardsLeavesTheCaretInFront) {
  InTariffs([&] {
    Fill(0, "AUTO\nMOTO");
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(Text(0).textCursor().selectedText(), "TO");
    EXPECT_EQ(Text(0).textCursor().positionInBlock(), 2);
    EXPECT_EQ(Place(), "Línea 2, columna 3");
    Key(Qt::Key_Home);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Text(0).textCursor().selectedText(), "M");
    EXPECT_EQ(Text(0).textCursor().positionInBlock(), 1);
  });
}

TEST_F(Tariffs, TheClipboardServesTheText) {
  InTariffs([&] {
    Fill(0, "AUTO\nMOTO");
    Key(Qt::Key_Home, Qt::ShiftModifier);
    QGuiApplication::clipboard()->setText("antes");
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "MOTO");
    EXPECT_EQ(TextShown(0), "AUTO\nMOTO");
    QGuiApplication::clipboard()->setText("antes");
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "MOTO");
    EXPECT_EQ(TextShown(0), "AUTO\n");
    Key(Qt::Key_V, Qt::ControlModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextShown(0), "AUTO\nMOTOMOTO");
  });
}

TEST_F(Tariffs, TabGoesRound) {
  InTariffs([&] {
    for (const char* next : {"TxtMoneda", "CmdFuncion(1)", "CmdFuncion(0)", "TxtTarifas(0)"}) {
      Key(Qt::Key_Tab);
      EXPECT_EQ(Focused(), next);
      EXPECT_TRUE(Face(next).hasFocus());
    }
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focused(), "CmdFuncion(0)");
  });
}

TEST_F(Tariffs, TheMousePlacesTheCaretAndMarks) {
  InTariffs([&] {
    Fill(0, "AUTO\n1M = 5\nMOTO");
    Key(Qt::Key_Tab);
    ASSERT_EQ(Focused(), "TxtMoneda");
    QTest::mouseClick(Handle(), Qt::LeftButton, Qt::NoModifier, PointOf(Text(0), 1, 2));
    QCoreApplication::processEvents();
    EXPECT_EQ(Focused(), "TxtTarifas(0)");
    EXPECT_EQ(Place(), "Línea 2, columna 3");
    Type("9");
    EXPECT_EQ(TextShown(0), "AUTO\n1M9 = 5\nMOTO");
    QTest::mousePress(Handle(), Qt::LeftButton, Qt::NoModifier, PointOf(Text(0), 2, 1));
    QTest::mouseMove(Handle(), PointOf(Text(0), 2, 3));
    QTest::mouseRelease(Handle(), Qt::LeftButton, Qt::NoModifier, PointOf(Text(0), 2, 3));
    QCoreApplication::processEvents();
    Key(Qt::Key_Delete);
    EXPECT_EQ(TextShown(0), "AUTO\n1M9 = 5\nMO");
  });
}

TEST_F(Tariffs, AMarkedLineSaysWhyWhereTheCaretStands) {
  InTariffs([&] {
    Fill(0, "AUTO\n1M = 5\nMOTO");
    EXPECT_EQ(Remark(), "");
    form_->Form6->TxtTarifas[0].Marks = {{0, "primera"_w}, {2, "última"_w}};
    Refresh();
    EXPECT_EQ(Remark(), "última");
    Key(Qt::Key_Up);
    EXPECT_EQ(Remark(), "");
    Key(Qt::Key_Up);
    EXPECT_EQ(Remark(), "primera");
    for (auto* margin : Text(0).findChildren<QWidget*>()) {
      const auto* const marks = dynamic_cast<MarkMargin*>(margin);
      if (marks == nullptr) continue;
      const int line = Text(0).cursorRect().height();
      EXPECT_EQ(marks->ReasonAt({5, 6 + line / 2}), "primera");
      EXPECT_EQ(marks->ReasonAt({5, 6 + line * 3 / 2}), "");
      EXPECT_EQ(marks->ReasonAt({5, 6 + line * 5 / 2}), "última");
    }
  });
}

TEST_F(Tariffs, TheLongestRemarkCanBeRead) {
  InTariffs([&] {
    form_->Form6->TxtTarifas[0].Marks = {{0,
                                          "Sus reglas valen también para AGENTE INMOBILIARIOS: falta una "
                                          "línea en blanco encima."_w}};
    Refresh();
    ASSERT_FALSE(Remark().isEmpty());
    EXPECT_TRUE(Face<CaptionLabel>("remark").Fits());
    Face<CaptionLabel>("place").ShowCaption("Línea 999, columna 100");
    EXPECT_TRUE(Face<CaptionLabel>("place").Fits());
  });
}

TEST_F(Tariffs, AWrongLineIsMarkedAsItIsTyped) {
  InTariffs([&] {
    Fill(0, "AUTO\n1M = 5");
    EXPECT_EQ(Remark(), "");
    Type("X");
    EXPECT_NE(Remark(), "");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Remark(), "");
  });
}

TEST_F(Tariffs, TheCurveFollowsTextAndCurrency) {
  InTariffs([&] {
    Fill(0, "AUTO\n1H = 100*");
    const QImage first = Picture(Face("PctCurva"));
    Key(Qt::Key_Backspace);
    const QImage second = Picture(Face("PctCurva"));
    EXPECT_NE(second, first);
    Key(Qt::Key_Tab);
    Type("EUR");
    EXPECT_EQ(Shown("TxtMoneda"), "EUR");
    EXPECT_NE(Picture(Face("PctCurva")), second);
  });
}

TEST_F(Tariffs, GuardarByMouseStoresAndCloses) {
  InTariffs([&] {
    Fill(0, "automovil\n0M = 700");
    Key(Qt::Key_Tab);
    Type("EUR");
    Click("CmdFuncion(1)");
    EXPECT_EQ(form_->Form6, nullptr);
  });
  EXPECT_EQ(form_->Moneda, "EUR"_w);
  EXPECT_EQ(folder_.Get("Recursos/Vintoral.DVS").substr(0, 3), "EUR");
  InTariffs([&] {
    EXPECT_TRUE(TextShown(0).contains("AUTOMOVIL\n0M = 700"));
    EXPECT_FALSE(TextShown(0).contains("MOTOCICLETA"));
    EXPECT_EQ(Shown("TxtMoneda"), "EUR");
  });
}

TEST_F(Tariffs, WhatTheMousePastesGoesIntoTheText) {
  InTariffs([&] {
    Fill(0, "AUTO");
    Text(0).onPaste(QStringLiteral("MOVIL\n1M = 5"));
    EXPECT_EQ(TextShown(0), "AUTOMOVIL\n1M = 5");
  });
}

TEST_F(Tariffs, ButtonsShowRankPressAndKeyboard) {
  InTariffs([&] {
    auto& save = Face<PushButton>("CmdFuncion(1)");
    auto& cancel = Face<PushButton>("CmdFuncion(0)");
    const auto ground = [&](QWidget& button) {
      const QImage shown = Picture(button);
      const QPointF inside = QPointF(12, button.height() / 2.0) * shown.devicePixelRatio();
      return QColor(shown.pixel(inside.toPoint()));
    };
    EXPECT_EQ(ground(save), QColor::fromRgb(theme::kAccent));
    EXPECT_EQ(ground(cancel), QColor::fromRgb(theme::kField));
    const QImage idle = Picture(cancel);
    cancel.setAttribute(Qt::WA_UnderMouse);
    const int over = ground(cancel).lightness();
    EXPECT_LT(over, 255);
    cancel.setDown(true);
    EXPECT_LT(ground(cancel).lightness(), over);
    cancel.setDown(false);
    cancel.setAttribute(Qt::WA_UnderMouse, false);
    EXPECT_EQ(Picture(cancel), idle);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_NE(Picture(cancel), idle);
    EXPECT_EQ(cancel.size(), QSize(128, 38));
  });
}

TEST_F(Tariffs, WhatIsClickedInvitesTheHand) {
  InTariffs([&] {
    for (const char* name : {"LblFuncion(0)", "LblFuncion(2)", "LblEjemplo"})
      EXPECT_EQ(Face(name).cursor().shape(), Qt::PointingHandCursor) << name;
  });
}

TEST_F(Tariffs, GuardarByKey) {
  InTariffs([&] {
    Key(Qt::Key_Tab);
    Type("EUR");
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    EXPECT_EQ(form_->Form6, nullptr);
  });
  EXPECT_EQ(form_->Moneda, "EUR"_w);
}

TEST_F(Tariffs, CancelarStoresNothing) {
  std::vector<std::string> before;
  for (const char* table : kTables)
    before.push_back(folder_.Get(table));
  const auto change = [&] {
    Fill(0, "OTRA\n0M = 700");
    Key(Qt::Key_Tab);
    Type("EUR");
  };
  InTariffs([&] {
    change();
    Click("CmdFuncion(0)");
    EXPECT_EQ(form_->Form6, nullptr);
  });
  InTariffs([&] {
    change();
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Space);
    EXPECT_EQ(form_->Form6, nullptr);
  });
  EXPECT_EQ(form_->Moneda, "$"_w);
  std::vector<std::string> after;
  for (const char* table : kTables)
    after.push_back(folder_.Get(table));
  EXPECT_EQ(after, before);
}

TEST_F(Tariffs, EjemplosOpensThePage) {
  folder_.Put("Objetos/Web.INI", "");
  InTariffs([&] {
    events_.Take();
    Click("LblEjemplo");
    const std::vector<DeviceEvent> events = events_.Take();
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].text, "Explorer.exe https://vintoral.example/vintoral/ejemplos.txt"_w);
    EXPECT_NE(form_->Form6, nullptr);
  });
}

}  // namespace
}  // namespace vintoral::test
