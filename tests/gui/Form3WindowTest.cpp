// The window of the ticket format, by keys and by mouse.
#include <QCheckBox>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include "gui/Slips.h"
#include "reports/form3/Form3.h"
#include "window/controls/IconButton.h"
#include "window/controls/ListField.h"
#include "window/controls/PushButton.h"
#include "window/controls/TextField.h"
#include "window/controls/TitledCard.h"

namespace vintoral::test {
namespace {

constexpr const char* kFile = "Recursos/Vintoral.TQE";

class Tickets : public Slips {
 protected:
  void InTickets(const std::function<void()>& steps) {
    InDialog("Form3", Qt::Key_K, Qt::ControlModifier | Qt::AltModifier, steps);
  }
};

TEST_F(Tickets, ControlAltKShowsTheFormat) {
  InTickets([&] {
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Impresión de Tiquetes"));
    EXPECT_EQ(window_->windowTitle(), "Vintoral 10.25");
    EXPECT_EQ(Text(kHeader).toPlainText(), "        V I N T o r a l\n      B I E N V E N I D O\n");
    EXPECT_EQ(Line(kFooter, 1), "     CONSERVE ESTE TIQUETE");
    EXPECT_EQ(Shown("CboImpresora"), "Tira 80");
    EXPECT_EQ(Shown("CboDimFuente"), "10,5");
    EXPECT_EQ(Shown("LblDimFuente"), QString::fromUtf8("Tamaño Fuente"));
    EXPECT_EQ(Face<TitledCard>("FraCheck(0)").Title(), "Formato");
    EXPECT_EQ(Face<TitledCard>("FraCheck(1)").Title(), "Impresora");
    EXPECT_EQ(Face<QCheckBox>("ChkFoto").text(), "Imprimir Foto");
    EXPECT_EQ(Face<PushButton>("PctBoton").text(), "Guardar");
    EXPECT_EQ(Face<PushButton>("CmdPrueba").text(), "Imprimir prueba");
    for (int field = 1; field <= 5; ++field) {
      const auto& tick = Face<QCheckBox>(QStringLiteral("ChkEtiqueta(%1)").arg(field));
      EXPECT_EQ(tick.text(), "Imprimir");
      EXPECT_TRUE(tick.isChecked());
    }
    EXPECT_EQ(Focused(), "PctBoton");
  });
}

TEST_F(Tickets, AllPartsAreOneStripInOneType) {
  InTickets([&] {
    for (const int part : {kHeader, kPreview, kFooter}) {
      EXPECT_TRUE(QFontInfo(Text(part).font()).fixedPitch());
      EXPECT_EQ(Text(part).font(), Text(kPreview).font());
      EXPECT_EQ(Characters(part, 0, 0, 0).left(), Characters(kPreview, 0, 0, 0).left());
    }
    EXPECT_EQ(Place("TxtEtiqueta(0)").bottom() + 1, Place("TxtEtiqueta(1)").top());
    EXPECT_EQ(Place("TxtEtiqueta(1)").bottom() + 1, Place("TxtEtiqueta(2)").top());
  });
}

TEST_F(Tickets, ThePaperEndsBehindItsLastColumn) {
  InTickets([&] {
    ASSERT_EQ(Line(kPreview, 1).size(), SlipText::kColumns);
    const QRect last = Characters(kPreview, 1, SlipText::kColumns - 1, 1);
    for (const auto& [part, line] : {std::pair(kHeader, 2), std::pair(kPreview, 11), std::pair(kFooter, 0)}) {
      const double edge = Edge(part, line);
      EXPECT_GT(edge, last.right()) << part;
      EXPECT_LT(edge, last.right() + last.width()) << part;
    }
  });
}

TEST_F(Tickets, TicksStandBesideTheirLines) {
  InTickets([&] {
    for (const int height : {Front().minimumSizeHint().height(), 700}) {
      Front().resize(Front().width(), height);
      QCoreApplication::processEvents();
      for (int field = 1; field <= 5; ++field) {
        const int line = 2 + field;
        EXPECT_TRUE(Line(kPreview, line).endsWith(" : XXXXXXXXXX"));
        ExpectTickBeside(QStringLiteral("ChkEtiqueta(%1)").arg(field), line);
      }
      // The photo comes behind the category.
      EXPECT_EQ(Line(kPreview, 8), "CATEGORIA : XXXXXXXXXX");
      EXPECT_GE(Place("PctFoto").top(), Characters(kPreview, 8, 0, 1).bottom());
      EXPECT_LT(Place("PctFoto").bottom(), Place("TxtEtiqueta(2)").top());
      EXPECT_EQ(Place("ChkFoto").top(), Place("PctFoto").top());
    }
  });
}

TEST_F(Tickets, EverythingHasItsPlace) {
  InTickets([&] { ExpectAllInside(*form_->Form3); });
}

TEST_F(Tickets, TabGoesRound) {
  InTickets([&] {
    ExpectTabOrder({"CmdPrueba", "CboImpresora", "CboDimFuente", "TxtEtiqueta(0)", "TxtEtiqueta(2)",
                    "ChkEtiqueta(1)", "ChkEtiqueta(2)", "ChkEtiqueta(3)", "ChkEtiqueta(4)", "ChkEtiqueta(5)",
                    "ChkFoto", "PctBoton"});
  });
}

TEST_F(Tickets, WhatIsNotTickedIsPale) {
  InTickets([&] {
    EXPECT_TRUE(Text(kPreview).extraSelections().isEmpty());
    const QImage photo = Picture(Face("PctFoto"));
    Click("ChkEtiqueta(2)");
    EXPECT_FALSE(Face<QCheckBox>("ChkEtiqueta(2)").isChecked());
    ASSERT_EQ(Text(kPreview).extraSelections().size(), 1);
    EXPECT_EQ(Text(kPreview).extraSelections().at(0).cursor.selectedText(), Line(kPreview, 4));
    EXPECT_EQ(Focused(), "ChkEtiqueta(2)");
    Key(Qt::Key_Space);
    EXPECT_TRUE(Text(kPreview).extraSelections().isEmpty());
    Click("ChkFoto");
    EXPECT_NE(Picture(Face("PctFoto")), photo);
    EXPECT_EQ(Focused(), "PctBoton");
  });
}

TEST_F(Tickets, ThePreviewIsOnlyLookedAt) {
  InTickets([&] {
    const QString before = Text(kPreview).toPlainText();
    Click("TxtEtiqueta(1)");
    EXPECT_EQ(Focused(), "PctBoton");
    Text(kPreview).selectAll();
    QTest::mouseClick(Text(kPreview).viewport(), Qt::MiddleButton);
    EXPECT_EQ(Text(kPreview).toPlainText(), before);
  });
}

TEST_F(Tickets, EnterOnTheSaveButtonSavesWhatWasTyped) {
  InTickets([&] {
    Click("CboDimFuente");
    Key(Qt::Key_End);
    for (int i = 0; i < 4; ++i)
      Key(Qt::Key_Backspace);
    screen_.Beeps = 0;
    Type("x8,579");
    EXPECT_EQ(Shown("CboDimFuente"), "8,57");
    EXPECT_EQ(Face<ListField>("CboDimFuente").Editor()->cursorPosition(), 4);
    EXPECT_EQ(screen_.Beeps, 1);
    Key(Qt::Key_Tab);
    Type("Portería");
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(kHeader).toPlainText(), QString::fromUtf8("Portería\n        V I N T o r a l\n"
                                                             "      B I E N V E N I D O\n"));
    EXPECT_EQ(Text(kHeader).textCursor().position(), 9);
    Click("ChkEtiqueta(1)");
    Click("ChkFoto");
    EXPECT_EQ(folder_.Get(kFile), "(missing)");
    EXPECT_EQ(Focused(), "PctBoton");
    Key(Qt::Key_Return);
    EXPECT_EQ(form_->Form3, nullptr);
    EXPECT_EQ(dialogs_->Find("Form3"), nullptr);
  });
  const std::string file = folder_.Get(kFile);
  ASSERT_EQ(file.size(), 10106U);
  EXPECT_EQ(file.substr(0, 10), "Tira 80   ");
  EXPECT_EQ(file.substr(100, 4), "\xB8\x1E\x09\x41");  // 8.57
  EXPECT_EQ(file.substr(104, 19),
            "Porter\xED"
            "a\r\n        V");
  EXPECT_EQ(file.substr(5104, 2), "\xFF\xFF");
  EXPECT_TRUE(Face<IconButton>("PctBoton(10)").Pressed());
  EXPECT_FALSE(form_->EtiquetasActuales.ImprimirCampo[0]);
  EXPECT_TRUE(form_->EtiquetasActuales.ImprimirCampo[1]);
}

TEST_F(Tickets, AClickOnTheSaveButtonSaves) {
  InTickets([&] {
    Click("PctBoton");
    EXPECT_EQ(form_->Form3, nullptr);
  });
  EXPECT_EQ(folder_.Get(kFile).size(), 10106U);
}

TEST_F(Tickets, EscSavesNothing) {
  InTickets([&] {
    Click("ChkEtiqueta(1)");
    Click("ChkFoto");
    Key(Qt::Key_Escape);
    EXPECT_EQ(form_->Form3, nullptr);
  });
  EXPECT_EQ(folder_.Get(kFile), "(missing)");
  EXPECT_FALSE(Face<IconButton>("PctBoton(10)").Pressed());
  EXPECT_TRUE(form_->EtiquetasActuales.ImprimirCampo[0]);
}

TEST_F(Tickets, TheSaveButtonIsMarkedUnderThePointer) {
  InTickets([&] {
    EXPECT_FALSE(Face("PctSeleccion").isVisible());
    for (const char* elsewhere : {"LblFondo", "FraCheck(0)", "FraCheck(1)", "CmdPrueba"}) {
      HoverOver("PctBoton");
      EXPECT_TRUE(Face("PctSeleccion").isVisible());
      EXPECT_EQ(window_->windowTitle(), "Guardar Formato de Tiquetes");
      HoverOver(elsewhere);
      EXPECT_FALSE(Face("PctSeleccion").isVisible()) << elsewhere;
      EXPECT_EQ(window_->windowTitle(), "Vintoral 10.25") << elsewhere;
    }
    EXPECT_TRUE(Front().rect().contains(Place("PctSeleccion")));
    EXPECT_EQ(Place("LblFondo"), Front().rect());
  });
}

TEST_F(Tickets, ThePointerThatLeavesTakesTheMarkAlong) {
  InTickets([&] {
    HoverOver("PctBoton");
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Front(), &leave);
    QCoreApplication::processEvents();
    EXPECT_FALSE(Face("PctSeleccion").isVisible());
    EXPECT_EQ(window_->windowTitle(), "Vintoral 10.25");
  });
}

TEST_F(Tickets, ASampleIsPrintedAndNothingSaved) {
  InTickets([&] {
    events_.Take();
    Click("CmdPrueba");
    const std::vector<DeviceEvent> printed = Printed();
    ASSERT_EQ(printed.size(), 1U);
    EXPECT_EQ(printed[0].text, "Tira 80"_w);
    Key(Qt::Key_Space);
    EXPECT_EQ(Printed().size(), 1U);
    EXPECT_NE(form_->Form3, nullptr);
  });
  EXPECT_EQ(folder_.Get(kFile), "(missing)");
}

TEST_F(Tickets, ALineThatIsTooLongRunsBeyondThePaper) {
  InTickets([&] {
    Click("TxtEtiqueta(0)");
    Key(Qt::Key_Home, Qt::ControlModifier);
    Type("1234567890123456789012345678901234");
    Key(Qt::Key_Return);
    EXPECT_FALSE(Text(kHeader).horizontalScrollBar()->isVisible());
    EXPECT_LT(Edge(kHeader, 3), Characters(kHeader, 0, 32, 1).left());
    EXPECT_LT(Characters(kHeader, 0, 33, 1).right(), Place("TxtEtiqueta(0)").right());
  });
}

TEST_F(Tickets, ALineThatIsMuchTooLongScrollsWhileItIsWritten) {
  InTickets([&] {
    const double edge = Edge(kHeader, 2);
    Click("TxtEtiqueta(0)");
    Key(Qt::Key_Home, Qt::ControlModifier);
    Type(QString(60, u'x'));
    const int scrolled = Text(kHeader).horizontalScrollBar()->value();
    EXPECT_GT(scrolled, 0);
    EXPECT_TRUE(Text(kHeader).viewport()->rect().contains(Text(kHeader).cursorRect().center()));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(kHeader).horizontalScrollBar()->value(), 0);
    EXPECT_EQ(Edge(kHeader, 2), edge);
  });
}

TEST_F(Tickets, PrinterAndSizeAreChosenFromTheirLists) {
  InTickets([&] {
    Click("CboImpresora");
    Face<ListField>("CboImpresora").hidePopup();
    EXPECT_EQ(Focused(), "CboImpresora");
    Key(Qt::Key_Up);
    EXPECT_EQ(Shown("CboImpresora"), "Oficina");
    Key(Qt::Key_Tab);
    Key(Qt::Key_Down);
    EXPECT_EQ(Shown("CboDimFuente"), "11");
    Q_EMIT Face<ListField>("CboDimFuente").activated(3);
    EXPECT_EQ(Shown("CboDimFuente"), "8");
  });
}

}  // namespace
}  // namespace vintoral::test
