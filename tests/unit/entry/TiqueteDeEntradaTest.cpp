// The ticket of a ficha that is saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "records/ArchivosNuevos.h"
#include "support/MemoryStation.h"
#include "support/Slips.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kAct = "Multimedia\\Vintoral.ACT";

class TiqueteDeEntradaTest : public testing::Test {
 protected:
  TiqueteDeEntradaTest() {
    station_.Disk.Put(kAct, ActNuevo());
    station_.Printer.Installed = {{"Laser"_w, "Tira80"_w}, "Laser"_w};
    station_.StartConnected();
    form_.TiqueteActual.Impresora = "tira80 ";
    form_.TiqueteActual.DimFuente = 10.5F;
    form_.TiqueteActual.Encabezado = "CABEZA";
    form_.TiqueteActual.Pie = "PIE";
    form_.ActivarTiquetes();
    station_.Events.Take();
  }
  /// What came out of the printers while slot 7 was filled.
  std::vector<DeviceEvent> Enter() {
    station_.TypeNew("7", "abc123");
    station_.TypeAndEnter("ana maria");
    station_.Events.Take();
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kInsert, 0);
    return test::Printed(station_.Events);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(TiqueteDeEntradaTest, SaysWhoCameIn) {
  form_.EtiquetasActuales.ImprimirCampo = {true, true, false, false, false};
  const auto printed = Enter();
  ASSERT_EQ(printed.size(), 1u);
  EXPECT_EQ(printed[0].text, "Tira80"_w);
  EXPECT_EQ(test::TextOf(printed[0]),
            "CABEZA\n"
            "  No.FICHA  7               P01\n"
            "HORA/FECHA  14:00  (20/11/2026)\n"
            "-------------------------------\n"
            "PLACA/DOC : ABC123\n"
            "   NOMBRE : ANA MARIA\n"
            "CATEGORIA : AUTOMOVIL\n"
            "-------------------------------\n"
            "----------- vintoral.example --\n"
            "PIE\n\n\n.\n");
}

TEST_F(TiqueteDeEntradaTest, ComesOutWhenTheFichaIsOnDisk) {
  bool inside = false, pending = true;
  station_.Printer.OnEndDoc = [&] {
    inside = station_.Slot(7).EnUso;
    pending = station_.Faulty.Pending();
  };
  ASSERT_EQ(Enter().size(), 1u);
  EXPECT_TRUE(inside);
  EXPECT_FALSE(pending);
}

TEST_F(TiqueteDeEntradaTest, NoneForAFichaThatIsNotOnDisk) {
  station_.UnderBox = [this] { station_.Faulty.Set().failAllWrites = true; };
  EXPECT_THAT(Enter(), IsEmpty());
  EXPECT_FALSE(station_.Slot(7).EnUso);
}

TEST_F(TiqueteDeEntradaTest, NoneWhereTheDiskDidNotKeepIt) {
  station_.UnderBox = [this] { station_.Faulty.Set().failSync = true; };
  EXPECT_THAT(Enter(), IsEmpty());
}

TEST_F(TiqueteDeEntradaTest, NoneWithoutTheSwitch) {
  form_.PctBoton[boton::kTiquetes].BorderStyle = 0;
  EXPECT_THAT(Enter(), IsEmpty());
  EXPECT_TRUE(station_.Slot(7).EnUso);
}

TEST_F(TiqueteDeEntradaTest, NoneForAPassThatComesBack) {
  form_.TxtMaxEntrada.Enabled = false;
  EXPECT_THAT(Enter(), IsEmpty());
  EXPECT_TRUE(station_.Slot(7).EnUso);
}

TEST_F(TiqueteDeEntradaTest, NoneForASlotThatAnotherGateTook) {
  station_.UnderBox = [this] {
    RegistroFicha other;
    other.EnUso = true;
    station_.PutSlot(8, other);
  };
  station_.TypeNew("8", "xyz");
  RegistroFicha other;
  other.EnUso = true;
  station_.PutSlot(8, other);
  station_.Events.Take();
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_THAT(test::Printed(station_.Events), IsEmpty());
}

TEST_F(TiqueteDeEntradaTest, ACodeStandsOnItInBarcodeMode) {
  station_.Answers = {Answer::kOk};
  form_.AlternarCodigoBarras();
  form_.TxtCampo[0].Enabled = true;
  form_.SetFocus(&form_.TxtCampo[0]);
  form_.TxtMaxEntrada.SetText("3"_w);
  station_.TypeNew("7", "abc123");
  form_.TxtBarCode.SetText("ab12"_w);
  form_.TxtMaxEntrada.SetText("3"_w);
  form_.LstModEntrada.ListIndex = 1;
  station_.Events.Take();
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  const auto printed = test::Printed(station_.Events);
  ASSERT_EQ(printed.size(), 1u);
  // Today is the first of the three days.
  EXPECT_THAT(test::TextOf(printed[0]), HasSubstr("===============================\n"
                                                  "*ab12*\n"
                                                  "===============================\n"
                                                  "VALIDO 3 DIA(S)    (22/11/2026)\n"
                                                  "-------------------------------\n"));
}

TEST_F(TiqueteDeEntradaTest, ThePhotoIsTheOneThatWasConfirmed) {
  form_.TiqueteActual.Foto = true;
  const auto pixels = std::make_shared<const cImage>();
  form_.ImgIndicador[indicador::kCamaraDesactivada].Visible = true;  // the still is left as it is
  form_.Picture2.Picture = Picture(pixels);
  const auto printed = Enter();
  ASSERT_EQ(printed.size(), 1u);
  const auto& operations = printed[0].printed;
  const auto photo = std::find_if(operations.begin(), operations.end(), [](const PrintOperation& each) {
    return each.kind == PrintOperation::Kind::kPicture;
  });
  ASSERT_NE(photo, operations.end());
  EXPECT_EQ(photo->picture.Pixels(), pixels);
}

TEST_F(TiqueteDeEntradaTest, WithoutAPrinterTheFichaIsSavedAllTheSame) {
  station_.Printer.Installed = {};
  EXPECT_THAT(Enter(), IsEmpty());
  EXPECT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(station_.Boxes.size(), 1u);  // the question of saving
}

TEST_F(TiqueteDeEntradaTest, AnotherAddressStandsAtItsFoot) {
  station_.Disk.Put("Objetos\\Web.INI", "Direccion = https://parqueo.example.org/x\r\n");
  const std::string text = test::TextOf(Enter().at(0));
  EXPECT_THAT(text, HasSubstr("\n-------- parqueo.example.org --\n"));
  EXPECT_THAT(text, Not(HasSubstr("vintoral.example")));
}

}  // namespace
}  // namespace vintoral
