// The dialog of the invoice format as hands use it, and the switch that opens it.
#include "reports/form8/Form8.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "station/form1/Sonidos.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"
#include "support/Slips.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::Contains;
using testing::ElementsAre;

constexpr const char* kFta = "Recursos\\Vintoral.FTA";

class Form8Test : public testing::Test {
 protected:
  Form8Test() {
    station_.Printer.Installed = {{"Laser"_w, "Tira80"_w}, "Tira80"_w};
    station_.StartConnected();
  }
  /// Opens the dialog whatever the switch's state, does `steps`, and leaves it by Esc where they have not
  /// left it already.
  void Dialog(const std::vector<std::function<void()>>& steps) {
    station_.InDialog = {steps.begin(), steps.end()};
    station_.InDialog.emplace_back([this] { hands_.Key(keys::kEscape, 0); });
    hands_.Key('L', keys::kControl | keys::kAlt);
    station_.InDialog.clear();
    EXPECT_EQ(form_.Form8, nullptr);
  }
  void Save() { hands_.Click(Format().PctBoton); }
  PictureBox& Button() { return form_.PctBoton[boton::kFacturas]; }
  Form8& Format() { return *form_.Form8; }
  RegistroFactura OnDisk() { return test::Decoded<RegistroFactura>(station_.Disk.Get(kFta)); }
  /// What typing `text` over all of a box leaves in it.
  String Typed(TextBox& box, std::string_view text) {
    hands_.Focus(Format().PctBoton);
    hands_.Focus(box);  // marks what stands there
    station_.Type(text);
    return box.Text();
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
};

TEST_F(Form8Test, OpensWithItsDefaultsAsLongAsThereIsNoFile) {
  Dialog({[this] {
    EXPECT_EQ(Format().CboImpresora.Text(), "Tira80"_w);
    EXPECT_EQ(Format().CboDimFuente.Text(), "10,5"_w);
    EXPECT_EQ(Format().TxtEtiqueta[0].Text(),
              "        V I N T o r a l\r\n    EXIJA SIEMPRE SU FACTURA\r\n"_w);
    EXPECT_EQ(Format().TxtEtiqueta[2].Text(),
              "\r\n    GRACIAS POR PREFERIRNOS\r\n      vintoral.example\r\n"_w);
    EXPECT_EQ(Format().TxtPrefijo.Text(), "No.FACTURA"_w);
    EXPECT_EQ(Format().TxtNumEtiqueta.Text(), "1"_w);
    EXPECT_EQ(Format().TxtImpuesto[0].Text(), "0"_w);
    EXPECT_EQ(Format().TxtImpuesto[1].Text(), "0"_w);
    EXPECT_EQ(Format().ChkCopia.Value, 0);
    EXPECT_EQ(Format().ChkPuntos.Value, 0);
    EXPECT_THAT(Format().CamposMarcados(), ElementsAre(true, true, true, true, true));
  }});
}

TEST_F(Form8Test, ThePreviewLeavesRoomForNumberAndTaxes) {
  Dialog({[this] {
    EXPECT_EQ(Format().TxtEtiqueta[1].Text(),
              "\r\n"
              "\r\n"
              "HORA/FECHA  hh:mm  (dd/mm/aaaa)\r\n"
              "-------------------------------\r\n"
              "PLACA/DOC : XXXXXXXXXX\r\n"
              "   NOMBRE : XXXXXXXXXX\r\n"
              " APELLIDO : XXXXXXXXXX\r\n"
              " TELEFONO : XXXXXXXXXX\r\n"
              "OBSERVACI : XXXXXXXXXX\r\n"
              "-------------------------------\r\n"
              "CATEGORIA : XXXXXXXXXX\r\n"
              "  *PUNTOS : XXXXXXXXXX\r\n"
              "\r\n"
              "   IMPUESTO     %\r\n"
              " IMP.EXTRAS     %"_w);
  }});
}

TEST_F(Form8Test, SavingWritesTheFormatAndSwitchesInvoicesOn) {
  Dialog({[this] {
    EXPECT_EQ(Typed(Format().TxtPrefijo, "FV  "), "FV  "_w);
    EXPECT_EQ(Typed(Format().TxtNumEtiqueta, "258"), "258"_w);
    EXPECT_EQ(Typed(Format().TxtImpuesto[0], "19"), "19"_w);
    EXPECT_EQ(Typed(Format().TxtImpuesto[1], "0,5"), "0,5"_w);
    hands_.ReplaceText(Format().TxtEtiqueta[0], "CABEZA"_w);
    hands_.ReplaceText(Format().TxtEtiqueta[2], "PIE"_w);
    static_cast<void>(hands_.Check(Format().ChkEtiqueta[3], 0));
    static_cast<void>(hands_.Check(Format().ChkCopia, 1));
    EXPECT_EQ(Format().Focus(), &Format().PctBoton);
    hands_.Focus(Format().TxtPrefijo);
    static_cast<void>(hands_.Check(Format().ChkPuntos, 1));
    EXPECT_EQ(Format().Focus(), &Format().PctBoton);
    hands_.Key(keys::kEnter, 0);
  }});
  const std::string blanks(5000, ' ');
  EXPECT_EQ(station_.Disk.Get(kFta),
            "Tira80" + blanks.substr(0, 94) + test::Hex("00 00 28 41") + "CABEZA" + blanks.substr(0, 4994) +
                "FV  \x1B" + blanks.substr(0, 21) + test::Hex("02 01 00 00") + test::Hex("00 00 98 41") +
                test::Hex("00 00 00 3F") + test::Hex("FF FF FF FF") + "PIE" + blanks.substr(0, 4997));
  EXPECT_EQ(form_.EtiquetasActuales.ImprimirCampo, (std::array{true, true, true, false, true}));
  EXPECT_EQ(Button().BorderStyle, 1);
  EXPECT_THAT(station_.Heard(), Contains(String(voz::kFacturasActivadas)));
}

TEST_F(Form8Test, EachSaveOfAnUntouchedFormSkipsANumber) {
  form_.FacturaActual.NumFactura = 100;
  station_.Disk.Put(kFta, test::Encoded(form_.FacturaActual));
  Dialog({[this] {
    EXPECT_EQ(Format().TxtNumEtiqueta.Text(), "101"_w);
    Save();
  }});
  EXPECT_EQ(OnDisk().NumFactura, 101);
  form_.CopiarFactura(false);
  EXPECT_EQ(OnDisk().NumFactura, 102);
}

TEST_F(Form8Test, BehindTheLastNumberComesTheFirst) {
  form_.FacturaActual.NumFactura = 999'999;
  station_.Disk.Put(kFta, test::Encoded(form_.FacturaActual));
  Dialog({[this] { EXPECT_EQ(Format().TxtNumEtiqueta.Text(), "1"_w); }});
}

TEST_F(Form8Test, ShowsWhatMemoryHolds) {
  RegistroFactura format;
  format.Impresora = "Laser";
  format.DimFuente = 8;
  format.Encabezado = "CABEZA";
  format.Prefijo = "FV 10 \x1B";
  format.NumFactura = 7;
  format.Impuesto = 19;
  format.ImpuestoExtras = 9.75F;
  format.Copia = true;
  format.Pie = "PIE";
  station_.Disk.Put(kFta, test::Encoded(format));
  form_.CargarFactura();
  Dialog({[this] {
    EXPECT_EQ(Format().CboImpresora.Text(), "Laser"_w);
    EXPECT_EQ(Format().CboDimFuente.Text(), "8"_w);
    EXPECT_EQ(Format().TxtPrefijo.Text(), "FV 10 "_w);
    EXPECT_EQ(Format().TxtNumEtiqueta.Text(), "8"_w);
    EXPECT_EQ(Format().TxtImpuesto[0].Text(), "19.0"_w);
    EXPECT_EQ(Format().TxtImpuesto[1].Text(), "9.75"_w);
    EXPECT_EQ(Format().ChkCopia.Value, 1);
    EXPECT_EQ(Format().ChkPuntos.Value, 0);
    // What is typed over a tax replaces all of it.
    EXPECT_EQ(Typed(Format().TxtImpuesto[0], "8"), "8"_w);
    Save();
  }});
  EXPECT_EQ(OnDisk().Impuesto, 8.0F);
  EXPECT_EQ(OnDisk().ImpuestoExtras, 9.75F);
}

TEST_F(Form8Test, EscChangesNeitherFlagsNorFile) {
  Dialog({[this] {
    static_cast<void>(hands_.Check(Format().ChkEtiqueta[0], 0));
    static_cast<void>(hands_.Check(Format().ChkCopia, 1));
  }});
  EXPECT_FALSE(station_.Disk.Exists(kFta));
  EXPECT_EQ(form_.FacturaActual, RegistroFactura{});
  EXPECT_EQ(form_.EtiquetasActuales.ImprimirCampo, (std::array{true, true, true, true, true}));
  EXPECT_EQ(Button().BorderStyle, 0);
}

TEST_F(Form8Test, TheNumberTakesSixDigits) {
  Dialog({[this] {
    TextBox& number = Format().TxtNumEtiqueta;
    EXPECT_EQ(Typed(number, "1234567"), "123456"_w);
    EXPECT_EQ(number.MaxLength, 6u);
    hands_.Focus(Format().PctBoton);
    hands_.Focus(number);
    EXPECT_EQ(number.SelLength, 6u);
    station_.Events.Take();
    station_.Type("-");
    EXPECT_EQ(station_.Beeps(), 1);
    hands_.Key(keys::kEnter, 0);
    EXPECT_EQ(station_.Beeps(), 0);
    EXPECT_EQ(number.Text(), "123456"_w);
  }});
}

TEST_F(Form8Test, ANegativeNumberIsStoredAsZero) {
  Dialog({[this] {
    Format().TxtNumEtiqueta.SetText("-5"_w);
    Save();
  }});
  EXPECT_EQ(OnDisk().NumFactura, 0);
}

TEST_F(Form8Test, ThePrefixTakesTwentyFiveCharacters) {
  Dialog({[this] {
    EXPECT_EQ(Typed(Format().TxtPrefijo, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"), "ABCDEFGHIJKLMNOPQRSTUVWXY"_w);
    Save();
  }});
  EXPECT_EQ(OnDisk().Prefijo.View(), "ABCDEFGHIJKLMNOPQRSTUVWXY\x1B");
}

TEST_F(Form8Test, ATaxTakesTwoCharactersOrFourWithADecimal) {
  Dialog({[this] {
    TextBox& tax = Format().TxtImpuesto[0];
    EXPECT_EQ(Typed(tax, "123"), "12"_w);
    EXPECT_EQ(tax.MaxLength, 2u);
    station_.Type(".57");
    EXPECT_EQ(tax.Text(), "12.5"_w);
    EXPECT_EQ(tax.MaxLength, 4u);
    hands_.Focus(Format().PctBoton);
    hands_.Focus(tax);
    EXPECT_EQ(tax.SelStart, 0u);
    EXPECT_EQ(tax.SelLength, 4u);
    station_.Events.Take();
    station_.Type("%");
    EXPECT_EQ(station_.Beeps(), 1);
    // Digits put in front stand in front, but the caret goes on at the end.
    EXPECT_EQ(Typed(tax, "9"), "9"_w);
    tax.Select(0, 0);
    station_.Type("1");
    EXPECT_EQ(tax.Text(), "19"_w);
    EXPECT_EQ(tax.Caret(), 2u);
  }});
}

TEST_F(Form8Test, ThePointerOverTheSaveButtonTellsWhatItDoes) {
  Dialog({[this] {
    hands_.Hover(Format().PctBoton);
    EXPECT_TRUE(Format().PctSeleccion.Visible);
    EXPECT_EQ(form_.LblAyuda.Caption, "Guardar Formato de Facturas"_w);
    hands_.Hover(Format().FraCheck[0]);
    EXPECT_FALSE(Format().PctSeleccion.Visible);
    EXPECT_EQ(form_.LblAyuda.Caption, "Vintoral 10.25"_w);
  }});
}

TEST_F(Form8Test, TheSampleHasTheNumberAndTheTaxOfTheForm) {
  Dialog({[this] {
    Typed(Format().TxtNumEtiqueta, "41");
    Typed(Format().TxtImpuesto[0], "25");
    hands_.ReplaceText(Format().TxtEtiqueta[0], "MUESTRA"_w);
    hands_.ReplaceText(Format().TxtEtiqueta[2], "PIE"_w);
    static_cast<void>(hands_.Check(Format().ChkPuntos, 1));
    for (const std::size_t field : {1U, 2U, 3U})
      static_cast<void>(hands_.Check(Format().ChkEtiqueta[field], 0));
    station_.Events.Take();
    hands_.Click(Format().CmdPrueba);
    const auto printed = test::Printed(station_.Events);
    ASSERT_EQ(printed.size(), 1u);
    // 10000 / 1.25
    EXPECT_EQ(test::TextOf(printed[0]),
              "MUESTRA\n"
              "No.FACTURA  41              P01\n"
              "HORA/FECHA  14:00  (20/11/2026)\n"
              "-------------------------------\n"
              "PLACA/DOC : XXXXXXXXXX\n"
              "OBSERVACI : XXXXXXXXXX\n"
              "-------------------------------\n"
              "  ENTRADA : 14:00  (20/11/2026)\n"
              "   SALIDA : 14:00  (20/11/2026)\n"
              "CATEGORIA : XXXXXXXXXX\n"
              "  *PUNTOS : 0\n"
              "   TIEMPO : 00H 00M \n"
              "===============================\n"
              "     BASE 8000.00\n"
              " IMPUESTO 2000.00 (25.00%)\n"
              "===============================\n"
              "               TOTAL $ 10000.00\n"
              "-------------------------------\n"
              "----------- vintoral.example --\n"
              "PIE\n\n\n.\n");
  }});
  EXPECT_FALSE(station_.Disk.Exists(kFta));
  EXPECT_EQ(form_.FacturaActual.NumFactura, 0);
}

TEST_F(Form8Test, SwitchingOffAsksAndDefaultsToNo) {
  Dialog({[this] { Save(); }});
  station_.Boxes.clear();
  station_.Answers = {Answer::kNo, Answer::kYes};
  hands_.Click(Button());
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Impresión de Facturas"_w);
  EXPECT_EQ(station_.Boxes[0].text, "¿Desea realmente desactivar la impresión de facturas?"_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_EQ(station_.Boxes[0].preselected, Answer::kNo);
  EXPECT_EQ(Button().BorderStyle, 1);
  hands_.Click(Button());
  EXPECT_EQ(Button().BorderStyle, 0);
}

TEST_F(Form8Test, SavingWhileInvoicesAreOnOnlyClicks) {
  Dialog({[this] { Save(); }});
  station_.Heard();
  Dialog({[this] { Save(); }});
  EXPECT_THAT(station_.Heard(), ElementsAre(String(sonido::kClic)));
  EXPECT_EQ(Button().BorderStyle, 1);
}

}  // namespace
}  // namespace vintoral
