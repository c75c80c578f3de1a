// The dialog of the ticket format as hands use it, and the switch that opens it.
#include "reports/form3/Form3.h"

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
using testing::IsEmpty;
using testing::Not;

constexpr const char* kTqe = "Recursos\\Vintoral.TQE";
using Steps = std::vector<std::function<void()>>;

class Form3Test : public testing::Test {
 protected:
  Form3Test() {
    station_.Printer.Installed = {{"Laser"_w, " Tira80 "_w}, "Laser"_w};
    station_.StartConnected();
  }
  /// Opens the dialog by its switch, does `steps`, and leaves it by Esc where they have not left it already.
  void Dialog(const Steps& steps) {
    Dialog(steps, [this] { Switch(); });
  }
  void Dialog(const Steps& steps, const std::function<void()>& open) {
    station_.InDialog = {steps.begin(), steps.end()};
    station_.InDialog.emplace_back([this] { hands_.Key(keys::kEscape, 0); });
    open();
    station_.InDialog.clear();
    EXPECT_EQ(form_.Form3, nullptr);
  }
  void Switch() { hands_.Click(Button()); }
  void KeyOfTheFormat() { hands_.Key('K', keys::kControl | keys::kAlt); }
  void Save() { hands_.Click(Format().PctBoton); }
  PictureBox& Button() { return form_.PctBoton[boton::kTiquetes]; }
  Form3& Format() { return *form_.Form3; }
  RegistroTiquete OnDisk() { return test::Decoded<RegistroTiquete>(station_.Disk.Get(kTqe)); }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
};

TEST_F(Form3Test, OpensWithItsDefaultsAsLongAsThereIsNoFile) {
  Dialog({[this] {
    EXPECT_THAT(Format().CboImpresora.List(), ElementsAre("Laser"_w, "Tira80"_w));
    EXPECT_EQ(Format().CboImpresora.Text(), "Laser"_w);
    EXPECT_THAT(Format().CboDimFuente.List(),
                ElementsAre("5"_w, "6"_w, "7"_w, "8"_w, "8,5"_w, "9"_w, "10"_w, "10,5"_w, "11"_w, "12"_w));
    EXPECT_EQ(Format().CboDimFuente.Text(), "10,5"_w);
    EXPECT_EQ(Format().TxtEtiqueta[0].Text(), "        V I N T o r a l\r\n      B I E N V E N I D O\r\n"_w);
    EXPECT_EQ(Format().TxtEtiqueta[2].Text(),
              "\r\n     CONSERVE ESTE TIQUETE\r\n      vintoral.example\r\n"_w);
    EXPECT_THAT(Format().CamposMarcados(), ElementsAre(true, true, true, true, true));
    EXPECT_EQ(Format().ChkFoto.Value, 0);
    EXPECT_EQ(Format().Focus(), &Format().PctBoton);
  }});
  EXPECT_EQ(Button().BorderStyle, 0);
}

TEST_F(Form3Test, ThePreviewHasTheLabelsOfTheScreen) {
  form_.TxtEtiqueta[1].SetText("PLACA "_w);
  form_.TxtEtiqueta[5].SetText("OBSERVACIONES "_w);
  Dialog({[this] {
    EXPECT_EQ(Format().TxtEtiqueta[1].Text(),
              "  No.FICHA  nnnn\r\n"
              "HORA/FECHA  hh:mm  (dd/mm/aaaa)\r\n"
              "-------------------------------\r\n"
              "    PLACA : XXXXXXXXXX\r\n"
              "   NOMBRE : XXXXXXXXXX\r\n"
              " APELLIDO : XXXXXXXXXX\r\n"
              " TELEFONO : XXXXXXXXXX\r\n"
              "OBSERVACI : XXXXXXXXXX\r\n"
              "CATEGORIA : XXXXXXXXXX"_w);
    EXPECT_TRUE(Format().TxtEtiqueta[1].Locked);
  }});
}

TEST_F(Form3Test, SavingWritesTheFormatAndSwitchesTicketsOn) {
  Dialog({[this] {
    static_cast<void>(hands_.Select(Format().CboImpresora, 1));
    hands_.ReplaceText(Format().CboDimFuente, "8.5"_w);
    hands_.ReplaceText(Format().TxtEtiqueta[0], "  PEÑA"_w);
    hands_.ReplaceText(Format().TxtEtiqueta[2], "fin"_w);
    static_cast<void>(hands_.Check(Format().ChkEtiqueta[1], 0));
    static_cast<void>(hands_.Check(Format().ChkFoto, 1));
    EXPECT_EQ(Format().Focus(), &Format().PctBoton);
    EXPECT_FALSE(station_.Disk.Exists(kTqe));
    hands_.Key(keys::kEnter, 0);
  }});
  const std::string blanks(5000, ' ');
  const std::string size = test::Hex("00 00 08 41");  // 8.5 = 2^3 * 1.0625
  EXPECT_EQ(station_.Disk.Get(kTqe), "Tira80" + blanks.substr(0, 94) + size +
                                         "  PE\xD1"
                                         "A" +
                                         blanks.substr(0, 4994) + test::Hex("FF FF") + "fin" +
                                         blanks.substr(0, 4997));
  EXPECT_EQ(form_.EtiquetasActuales.ImprimirCampo, (std::array{true, false, true, true, true}));
  EXPECT_EQ(Button().BorderStyle, 1);
  EXPECT_TRUE(form_.CmdNumeroFicha.Visible);
  EXPECT_TRUE(form_.CmdNumeroFicha.Enabled);
  EXPECT_THAT(station_.Heard(), Contains(String(voz::kTiquetesActivados)));
}

TEST_F(Form3Test, EscChangesNothing) {
  Dialog({[this] {
    static_cast<void>(hands_.Check(Format().ChkEtiqueta[0], 0));
    hands_.ReplaceText(Format().TxtEtiqueta[0], "otra"_w);
  }});
  EXPECT_FALSE(station_.Disk.Exists(kTqe));
  EXPECT_EQ(form_.TiqueteActual, RegistroTiquete{});
  EXPECT_EQ(form_.EtiquetasActuales.ImprimirCampo, (std::array{true, true, true, true, true}));
  EXPECT_EQ(Button().BorderStyle, 0);
}

TEST_F(Form3Test, ShowsWhatMemoryHolds) {
  RegistroTiquete format;
  format.Impresora = " Otra  ";
  format.DimFuente = 9.5F;
  format.Encabezado = "  CABEZA\r\n";
  format.Pie = "PIE";
  format.Foto = true;
  station_.Disk.Put(kTqe, test::Encoded(format));
  form_.CargarTiquete();
  form_.EtiquetasActuales.ImprimirCampo = {false, true, false, true, false};
  Dialog({[this] {
    EXPECT_EQ(Format().CboImpresora.Text(), "Otra"_w);
    EXPECT_EQ(Format().CboDimFuente.Text(), "9,5"_w);
    EXPECT_EQ(Format().TxtEtiqueta[0].Text(), "  CABEZA\r\n"_w);
    EXPECT_EQ(Format().TxtEtiqueta[2].Text(), "PIE"_w);
    EXPECT_EQ(Format().ChkFoto.Value, 1);
    EXPECT_THAT(Format().CamposMarcados(), ElementsAre(false, true, false, true, false));
  }});
}

TEST_F(Form3Test, ASizeLeftEmptyOrZeroSavesTenAndAHalf) {
  for (const String& size : {""_w, "0"_w, "0,0"_w, "0,5"_w}) {
    Dialog({[&, this] {
             form_.TiqueteActual.DimFuente = 7;
             hands_.ReplaceText(Format().CboDimFuente, size);
             Save();
           }},
           [this] { KeyOfTheFormat(); });
    EXPECT_EQ(OnDisk().DimFuente, 10.5F) << size.Bytes();
  }
}

TEST_F(Form3Test, CommaAndPointMakeTheSameSize) {
  for (const String& size : {"9,5"_w, "9.5"_w}) {
    Dialog({[&, this] {
             form_.TiqueteActual.DimFuente = 7;
             hands_.ReplaceText(Format().CboDimFuente, size);
             Save();
           }},
           [this] { KeyOfTheFormat(); });
    EXPECT_EQ(OnDisk().DimFuente, 9.5F) << size.Bytes();
  }
}

TEST_F(Form3Test, TheSizeTakesTwoCharactersOrFourWithADecimal) {
  Dialog({[this] {
    ComboBox& size = Format().CboDimFuente;
    hands_.Focus(size);
    size.SelectAll();
    station_.Type("123");
    EXPECT_EQ(size.Text(), "12"_w);
    station_.Type(",57");
    EXPECT_EQ(size.Text(), "12,5"_w);
    station_.Events.Take();
    station_.Type("x");
    EXPECT_EQ(station_.Beeps(), 1);
    hands_.Key(keys::kEnter, 0);
    EXPECT_EQ(station_.Beeps(), 0);
    EXPECT_EQ(size.Text(), "12,5"_w);
    // Without its comma it is too long: what is left of it counts, and the caret stands behind it.
    size.MoveCaret(3, false);
    hands_.Key(keys::kBackspace, 0);
    EXPECT_EQ(size.Text(), "12"_w);
    EXPECT_EQ(size.Caret(), 2u);
  }});
}

TEST_F(Form3Test, AHeaderIsCutAtFiveThousandOnStoring) {
  Dialog({[this] {
    Format().TxtEtiqueta[0].SetText(String(5001, 'x'));
    Save();
  }});
  EXPECT_EQ(OnDisk().Encabezado.View(), std::string(5000, 'x'));
  EXPECT_FALSE(OnDisk().Foto);
}

TEST_F(Form3Test, ThePointerOverTheSaveButtonTellsWhatItDoes) {
  Dialog({[this] {
    EXPECT_FALSE(Format().PctSeleccion.Visible);
    hands_.Hover(Format().PctBoton);
    EXPECT_TRUE(Format().PctSeleccion.Visible);
    EXPECT_EQ(form_.LblAyuda.Caption, "Guardar Formato de Tiquetes"_w);
    hands_.Hover(Format().LblFondo);
    EXPECT_FALSE(Format().PctSeleccion.Visible);
    EXPECT_EQ(form_.LblAyuda.Caption, "Vintoral 10.25"_w);
    hands_.Hover(Format().PctBoton);
    hands_.Leave(Format());
    EXPECT_FALSE(Format().PctSeleccion.Visible);
    hands_.Hover(Format().PctBoton);
  }});
  EXPECT_EQ(form_.LblAyuda.Caption, "Vintoral 10.25"_w);
}

TEST_F(Form3Test, TheSampleIsPrintedWithWhatStandsInTheForm) {
  Dialog({[this] {
    static_cast<void>(hands_.Select(Format().CboImpresora, 1));
    static_cast<void>(hands_.Check(Format().ChkEtiqueta[4], 0));
    hands_.ReplaceText(Format().TxtEtiqueta[0], "MUESTRA"_w);
    station_.Events.Take();
    hands_.Click(Format().CmdPrueba);
    const auto printed = test::Printed(station_.Events);
    ASSERT_EQ(printed.size(), 1u);
    EXPECT_EQ(printed[0].text, " Tira80 "_w);
    EXPECT_EQ(test::TextOf(printed[0]),
              "MUESTRA\n"
              "  No.FICHA  0000            P01\n"
              "HORA/FECHA  14:00  (20/11/2026)\n"
              "-------------------------------\n"
              "PLACA/DOC : XXXXXXXXXX\n"
              "   NOMBRE : XXXXXXXXXX\n"
              " APELLIDO : XXXXXXXXXX\n"
              " TELEFONO : XXXXXXXXXX\n"
              "CATEGORIA : XXXXXXXXXX\n"
              "-------------------------------\n"
              "----------- vintoral.example --\n"
              "\n     CONSERVE ESTE TIQUETE\n      vintoral.example\n\n\n\n.\n");
  }});
  EXPECT_FALSE(station_.Disk.Exists(kTqe));
  EXPECT_EQ(Button().BorderStyle, 0);
}

TEST_F(Form3Test, InBarcodeModeTheSampleHasACode) {
  Dialog({[this] { Save(); }});
  station_.Answers = {Answer::kOk};
  form_.AlternarCodigoBarras();
  ASSERT_TRUE(form_.CmdBarCode.Visible);
  Dialog({[this] {
           hands_.Click(Format().CmdPrueba);
           EXPECT_THAT(test::TextOf(test::Printed(station_.Events).at(0)),
                       testing::HasSubstr("===============================\n*PRUEBA000000*\n"));
           Save();
         }},
         [this] { KeyOfTheFormat(); });
  EXPECT_FALSE(form_.CmdNumeroFicha.Visible);  // the codes' button stands in its place
}

TEST_F(Form3Test, SwitchedOnTheKeyStillOpensTheFormat) {
  Dialog({[this] { Save(); }});
  station_.Heard();
  Dialog({[this] {
           EXPECT_EQ(Button().Tag, "1"_w);
           Save();
         }},
         [this] { KeyOfTheFormat(); });
  EXPECT_EQ(Button().Tag, "0"_w);
  EXPECT_EQ(Button().BorderStyle, 1);
  EXPECT_THAT(station_.Heard(), ElementsAre(String(sonido::kClic)));
}

TEST_F(Form3Test, SwitchingOffAsksAndDefaultsToNo) {
  Dialog({[this] { Save(); }});
  station_.Boxes.clear();
  station_.Answers = {Answer::kNo};
  Switch();
  ASSERT_EQ(station_.Boxes.size(), 1u);
  EXPECT_EQ(station_.Boxes[0].title, "Vintoral - Impresión de Tiquetes"_w);
  EXPECT_EQ(station_.Boxes[0].text, "¿Desea realmente desactivar la impresión de tiquetes?"_w);
  EXPECT_EQ(station_.Boxes[0].icon, Icon::kExclamation);
  EXPECT_THAT(station_.Boxes[0].buttons, ElementsAre(Answer::kYes, Answer::kNo));
  EXPECT_EQ(station_.Boxes[0].preselected, Answer::kNo);
  EXPECT_EQ(Button().BorderStyle, 1);
  EXPECT_TRUE(form_.CmdNumeroFicha.Visible);
  station_.Answers = {Answer::kYes};
  Switch();
  EXPECT_EQ(Button().BorderStyle, 0);
  EXPECT_FALSE(form_.CmdNumeroFicha.Visible);
}

TEST_F(Form3Test, SwitchingOffLeavesNoFocusOnTheButtonThatGoes) {
  Dialog({[this] { Save(); }});
  hands_.Focus(form_.CmdNumeroFicha);
  ASSERT_EQ(form_.Focus(), &form_.CmdNumeroFicha);
  station_.Answers = {Answer::kYes};
  Switch();
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
}

TEST_F(Form3Test, TypingOverTheSizeReplacesIt) {
  Dialog({[this] {
    hands_.Focus(Format().CboDimFuente);
    station_.Type("8");
    EXPECT_EQ(Format().CboDimFuente.Text(), "8"_w);
  }});
}

TEST_F(Form3Test, SwitchingOffLeavesBarcodeModeFirst) {
  Dialog({[this] { Save(); }});
  station_.Answers = {Answer::kOk, Answer::kYes};
  form_.AlternarCodigoBarras();
  ASSERT_TRUE(form_.TxtBarCode.Visible);
  Switch();
  EXPECT_FALSE(form_.TxtBarCode.Visible);
  EXPECT_FALSE(form_.CmdBarCode.Visible);
  EXPECT_FALSE(form_.CmdNumeroFicha.Visible);
  EXPECT_TRUE(form_.TxtCampo[0].Enabled);
  EXPECT_EQ(form_.TxtEtiqueta[0].Text(), "NUMERO FICHA "_w);
  EXPECT_EQ(Button().BorderStyle, 0);
}

TEST_F(Form3Test, AFolderThatCantBeWrittenKeepsTheFormatInMemory) {
  Dialog({[this] {
    station_.Faulty.Set().openReadOnly = true;
    hands_.ReplaceText(Format().TxtEtiqueta[0], "NUEVA"_w);
    Save();
  }});
  EXPECT_FALSE(station_.Disk.Exists(kTqe));
  EXPECT_EQ(form_.TiqueteActual.Encabezado.Trimmed(), "NUEVA"_w);
  EXPECT_EQ(Button().BorderStyle, 1);
  EXPECT_THAT(station_.Boxes, IsEmpty());
}

TEST_F(Form3Test, WithoutPrintersTheListIsEmpty) {
  station_.Printer.Installed = {};
  Dialog({[this] {
    EXPECT_THAT(Format().CboImpresora.List(), IsEmpty());
    EXPECT_EQ(Format().CboImpresora.Text(), ""_w);
    hands_.Click(Format().CmdPrueba);
    EXPECT_THAT(test::Printed(station_.Events), IsEmpty());
    Save();
  }});
  EXPECT_EQ(OnDisk().Impresora.Trimmed(), ""_w);
}

}  // namespace
}  // namespace vintoral
