// The window of the invoice format, by keys and by mouse.
#include <QCheckBox>
#include <QCoreApplication>
#include <QTest>
#include <QWindow>

#include "gui/Slips.h"
#include "reports/form8/Form8.h"
#include "window/controls/IconButton.h"
#include "window/controls/PushButton.h"
#include "window/controls/TextField.h"
#include "window/controls/TitledCard.h"

namespace vintoral::test {
namespace {

constexpr const char* kFile = "Recursos/Vintoral.FTA";

class Invoices : public Slips {
 protected:
  void InInvoices(const std::function<void()>& steps) {
    InDialog("Form8", Qt::Key_L, Qt::ControlModifier | Qt::AltModifier, steps);
  }
  TextField& Field(const char* name) { return Face<TextField>(name); }
  /// Where the first character of a field stands in the dialog.
  int FirstCharacter(const QString& name) {
    constexpr int kBeforeCaret = 5;  // that the toolkit's rectangle of a caret begins before it
    auto& field = Face<TextField>(name);
    field.setCursorPosition(0);
    const QRect caret = field.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    return field.mapTo(&Front(), caret.topLeft()).x() + kBeforeCaret;
  }
  /// Where its text begins to stand.
  int Top(const QString& name) {
    QWidget& field = Face(name);
    return field.mapTo(&Front(), field.inputMethodQuery(Qt::ImCursorRectangle).toRect().topLeft()).y();
  }
};

TEST_F(Invoices, ControlAltLShowsTheFormat) {
  InInvoices([&] {
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Impresión de Facturas"));
    EXPECT_EQ(Text(kHeader).toPlainText(), "        V I N T o r a l\n    EXIJA SIEMPRE SU FACTURA\n");
    EXPECT_EQ(Line(kFooter, 1), "    GRACIAS POR PREFERIRNOS");
    EXPECT_EQ(Shown("TxtPrefijo"), "No.FACTURA");
    EXPECT_EQ(Shown("TxtNumEtiqueta"), "1");
    EXPECT_EQ(Shown("TxtImpuesto(0)"), "0");
    EXPECT_EQ(Shown("TxtImpuesto(1)"), "0");
    EXPECT_EQ(Shown("CboImpresora"), "Tira 80");
    EXPECT_EQ(Face<QCheckBox>("ChkPuntos").text(), "Imprimir");
    EXPECT_EQ(Face<QCheckBox>("ChkCopia").text(), "Imprimir Copia");
    EXPECT_FALSE(Face<QCheckBox>("ChkCopia").isChecked());
    EXPECT_EQ(Face<PushButton>("PctBoton").text(), "Guardar");
    EXPECT_EQ(Focused(), "PctBoton");
  });
}

TEST_F(Invoices, TicksStandBesideTheirLines) {
  InInvoices([&] {
    for (const int height : {Front().minimumSizeHint().height(), 730}) {
      Front().resize(Front().width(), height);
      QCoreApplication::processEvents();
      for (int field = 1; field <= 5; ++field) {
        EXPECT_TRUE(Line(kPreview, 3 + field).endsWith(" : XXXXXXXXXX"));
        ExpectTickBeside(QStringLiteral("ChkEtiqueta(%1)").arg(field), 3 + field);
      }
      EXPECT_EQ(Line(kPreview, 11), "  *PUNTOS : XXXXXXXXXX");
      ExpectTickBeside("ChkPuntos", 11);
    }
  });
}

TEST_F(Invoices, TheNumberStandsInTheFirstLine) {
  InInvoices([&] {
    EXPECT_EQ(Line(kPreview, 0), "");
    const QRect line = Characters(kPreview, 0, 0, 0);
    const QRect column = Characters(kPreview, 2, 0, 1);
    for (const char* field : {"TxtPrefijo", "TxtNumEtiqueta"}) {
      EXPECT_EQ(Place(field).top(), line.top());
      EXPECT_EQ(Place(field).bottom(), line.bottom());
      EXPECT_EQ(Top(field), line.top());
      EXPECT_EQ(Field(field).font(), Text(kPreview).font());
    }
    EXPECT_NEAR(FirstCharacter("TxtPrefijo"), column.left(), 1);
    EXPECT_NEAR(FirstCharacter("TxtNumEtiqueta"), Characters(kPreview, 2, 20, 1).left(), 1);
    EXPECT_LT(Place("TxtPrefijo").right(), Place("TxtNumEtiqueta").left());
    EXPECT_LT(Place("TxtNumEtiqueta").right(), Edge(kPreview, 12));
    EXPECT_GT(Place("TxtPrefijo").left(), Place("TxtEtiqueta(1)").left());
  });
}

TEST_F(Invoices, TaxesStandInTheBlanksOfTheirLines) {
  InInvoices([&] {
    EXPECT_EQ(Line(kPreview, 13), "   IMPUESTO     %");
    EXPECT_EQ(Line(kPreview, 14), " IMP.EXTRAS     %");
    for (const int tax : {0, 1}) {
      const QString name = QStringLiteral("TxtImpuesto(%1)").arg(tax);
      const QRect blanks = Characters(kPreview, 13 + tax, 11, 5);
      EXPECT_EQ(Place(name).top(), blanks.top());
      EXPECT_EQ(Place(name).bottom(), blanks.bottom());
      EXPECT_EQ(Top(name), blanks.top());
      EXPECT_GE(Place(name).left(), blanks.left());
      EXPECT_LE(Place(name).right(), blanks.right() + 1);
      // The four that can be typed stand whole before their sign.
      Face<TextField>(name).setText("88.8");
      EXPECT_GT(FirstCharacter(name), Place(name).left());
      EXPECT_LT(FirstCharacter(name) + Characters(kPreview, 13, 0, 4).width(), Place(name).right());
    }
  });
}

TEST_F(Invoices, ThePaperEndsBehindItsLastColumn) {
  InInvoices([&] {
    ASSERT_EQ(Line(kPreview, 2).size(), SlipText::kColumns);
    const QRect last = Characters(kPreview, 2, SlipText::kColumns - 1, 1);
    for (const auto& [part, line] : {std::pair(kHeader, 2), std::pair(kPreview, 12), std::pair(kFooter, 0)}) {
      EXPECT_GT(Edge(part, line), last.right()) << part;
      EXPECT_LT(Edge(part, line), last.right() + last.width()) << part;
    }
  });
}

TEST_F(Invoices, EverythingHasItsPlace) {
  InInvoices([&] { ExpectAllInside(*form_->Form8); });
}

TEST_F(Invoices, TabGoesRound) {
  InInvoices([&] {
    ExpectTabOrder({"CmdPrueba", "CboImpresora", "CboDimFuente", "TxtEtiqueta(0)", "TxtPrefijo",
                    "TxtNumEtiqueta", "ChkEtiqueta(1)", "ChkEtiqueta(2)", "ChkEtiqueta(3)", "ChkEtiqueta(4)",
                    "ChkEtiqueta(5)", "ChkPuntos", "TxtImpuesto(0)", "TxtImpuesto(1)", "TxtEtiqueta(2)",
                    "ChkCopia", "PctBoton"});
  });
}

TEST_F(Invoices, EnterOnTheSaveButtonSavesWhatWasTyped) {
  InInvoices([&] {
    Click("TxtPrefijo");
    EXPECT_EQ(Field("TxtPrefijo").selectedText(), "No.FACTURA");
    Type("FAC ");
    EXPECT_EQ(Shown("TxtPrefijo"), "FAC ");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Field("TxtNumEtiqueta").selectedText(), "1");
    screen_.Beeps = 0;
    Type("10x02003");
    EXPECT_EQ(Shown("TxtNumEtiqueta"), "100200");
    EXPECT_EQ(Field("TxtNumEtiqueta").cursorPosition(), 6);
    EXPECT_EQ(screen_.Beeps, 1);
    Click("ChkPuntos");
    EXPECT_EQ(Focused(), "PctBoton");
    Click("TxtImpuesto(0)");
    EXPECT_EQ(Field("TxtImpuesto(0)").selectedText(), "0");
    Type("1900");
    EXPECT_EQ(Shown("TxtImpuesto(0)"), "19");
    Type(".257");
    EXPECT_EQ(Shown("TxtImpuesto(0)"), "19.2");
    Key(Qt::Key_Tab);
    Type("8,5");
    EXPECT_EQ(Shown("TxtImpuesto(1)"), "8,5");
    Click("ChkCopia");
    EXPECT_EQ(folder_.Get(kFile), "(missing)");
    Key(Qt::Key_Return);
    EXPECT_EQ(form_->Form8, nullptr);
  });
  const std::string file = folder_.Get(kFile);
  ASSERT_EQ(file.size(), 10146U);
  EXPECT_EQ(file.substr(5104, 26), "FAC \x1B" + std::string(21, ' '));
  EXPECT_EQ(file.substr(5130, 4), std::string("\x68\x87\x01\x00", 4));  // 100200
  EXPECT_EQ(file.substr(5134, 4), "\x9A\x99\x99\x41");                  // 19.2
  EXPECT_EQ(file.substr(5138, 4), std::string("\x00\x00\x08\x41", 4));  // 8.5
  EXPECT_EQ(file.substr(5142, 4), "\xFF\xFF\xFF\xFF");
  EXPECT_TRUE(Face<IconButton>("PctBoton(14)").Pressed());
}

TEST_F(Invoices, EachSavingSkipsANumber) {
  InInvoices([&] { Key(Qt::Key_Return); });
  InInvoices([&] {
    EXPECT_EQ(Shown("TxtNumEtiqueta"), "2");
    Key(Qt::Key_Return);
  });
  InInvoices([&] { EXPECT_EQ(Shown("TxtNumEtiqueta"), "3"); });
}

TEST_F(Invoices, EscSavesNothing) {
  InInvoices([&] {
    Click("TxtNumEtiqueta");
    Type("77");
    Click("ChkEtiqueta(1)");
    Key(Qt::Key_Escape);
    EXPECT_EQ(form_->Form8, nullptr);
  });
  EXPECT_EQ(folder_.Get(kFile), "(missing)");
  EXPECT_TRUE(form_->EtiquetasActuales.ImprimirCampo[0]);
  EXPECT_FALSE(Face<IconButton>("PctBoton(14)").Pressed());
  InInvoices([&] { EXPECT_EQ(Shown("TxtNumEtiqueta"), "1"); });
}

TEST_F(Invoices, TheSaveButtonIsMarkedUnderThePointer) {
  InInvoices([&] {
    HoverOver("PctBoton");
    EXPECT_TRUE(Face("PctSeleccion").isVisible());
    EXPECT_EQ(window_->windowTitle(), "Guardar Formato de Facturas");
    HoverOver("LblFondo");
    EXPECT_FALSE(Face("PctSeleccion").isVisible());
    HoverOver("PctBoton");
    Key(Qt::Key_Escape);
  });
  EXPECT_EQ(window_->windowTitle(), "Vintoral 10.25");
}

TEST_F(Invoices, ASampleIsPrintedAndNothingSaved) {
  InInvoices([&] {
    events_.Take();
    Click("CmdPrueba");
    const std::vector<DeviceEvent> printed = Printed();
    ASSERT_EQ(printed.size(), 1U);
    EXPECT_EQ(printed[0].text, "Tira 80"_w);
    EXPECT_NE(form_->Form8, nullptr);
    Key(Qt::Key_Escape);
  });
  EXPECT_EQ(folder_.Get(kFile), "(missing)");
}

TEST_F(Invoices, ALongPrefixScrollsInItsField) {
  InInvoices([&] {
    Click("TxtPrefijo");
    Type("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_EQ(Shown("TxtPrefijo"), "ABCDEFGHIJKLMNOPQRSTUVWXY");
    EXPECT_EQ(Field("TxtPrefijo").cursorPosition(), 25);
    Key(Qt::Key_Home);
    Type("x");
    EXPECT_EQ(Shown("TxtPrefijo"), "ABCDEFGHIJKLMNOPQRSTUVWXY");
  });
}

TEST_F(Invoices, AHandThatTremblesAsItClicksLeavesTheMark) {
  InInvoices([&] {
    const QPoint at = Place("TxtPrefijo").topLeft() + QPoint(30, 10);
    QWindow* const handle = Front().windowHandle();
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseMove(handle, at + QPoint(25, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, at + QPoint(25, 0));
    QCoreApplication::processEvents();
    EXPECT_EQ(Field("TxtPrefijo").selectedText(), "No.FACTURA");
    // The next drag marks as everywhere.
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseMove(handle, at + QPoint(25, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, at + QPoint(25, 0));
    QCoreApplication::processEvents();
    EXPECT_NE(Field("TxtPrefijo").selectedText(), "");
    EXPECT_LT(Field("TxtPrefijo").selectedText().size(), 5);
  });
}

TEST_F(Invoices, AClickMarksLikeTabAndTheNextPlacesTheCaret) {
  InInvoices([&] {
    Click("TxtPrefijo");
    EXPECT_EQ(Field("TxtPrefijo").selectedText(), "No.FACTURA");
    Click("TxtPrefijo");
    EXPECT_EQ(Field("TxtPrefijo").selectedText(), "");
    Key(Qt::Key_Tab);
    Click("TxtPrefijo");
    EXPECT_EQ(Field("TxtPrefijo").selectedText(), "No.FACTURA");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Shown("TxtPrefijo"), "");
  });
}

}  // namespace
}  // namespace vintoral::test
