// The six labels: renamed in place, stored in the shared folder.
#include <gtest/gtest.h>

#include <string>

#include "records/RegistroEtiquetas.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryStation;

constexpr const char* kLbl = "Multimedia\\Vintoral.LBL";

void Close(MemoryStation& station) {
  station.Answers = {Answer::kYes};
  station.Form.CerrarVentana();
}

TEST(Etiquetas, FaceMemoryIsOnForMinusOneAlone) {
  for (const std::int16_t number : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{1}, std::int16_t{2}}) {
    RegistroEtiquetas labels;
    labels.MemoriaRostros = number;
    MemoryStation station;
    station.Disk.Put(kLbl, Encoded(labels));
    station.Start();
    EXPECT_EQ(station.Form.ImgIndicador[2].Visible, number == -1) << number;
  }
}

TEST(Etiquetas, AreStoredWhereTheyWereReadThoughTheFichasAreAway) {
  RegistroEtiquetas labels;
  labels.Etiqueta[1] = "PATENTE";
  labels.MemoriaRostros = -1;
  MemoryStation station;
  station.Disk.Put("Objetos\\Servidor.INI", "/mnt/porteria\r\n");
  station.Disk.Put("/mnt/porteria/Vintoral.LBL", Encoded(labels));
  station.Start();
  ASSERT_EQ(station.Form.TxtEtiqueta[1].Text(), "PATENTE "_w);
  station.Form.AlternarMemoriaRostros();
  Close(station);
  labels.MemoriaRostros = 0;
  const std::string stored = station.Disk.Get("/mnt/porteria/Vintoral.LBL");
  EXPECT_EQ(stored.substr(20, 20), "PATENTE             ");
  EXPECT_EQ(stored.substr(120, 2), std::string(2, '\0'));
}

class RenameTest : public testing::Test {
 protected:
  RenameTest() { station_.StartConnected(); }
  MemoryStation station_;
  Form1& form_ = station_.Form;
  TextBox& label_ = form_.TxtEtiqueta[3];
};

TEST_F(RenameTest, AnOpenedLabelIsTypedOver) {
  ASSERT_TRUE(label_.Locked);
  ASSERT_FALSE(label_.CanFocus);
  form_.AbrirEtiqueta(3);
  EXPECT_FALSE(label_.Locked);
  EXPECT_EQ(form_.Focus(), &label_);
  EXPECT_EQ(label_.SelLength, 9u);  // "APELLIDO "
  station_.Type("empresa");
  EXPECT_EQ(label_.Text(), "EMPRESA"_w);
}

TEST_F(RenameTest, ASecondClickLeavesTheCaret) {
  form_.AbrirEtiqueta(3);
  station_.Type("emp");
  form_.AbrirEtiqueta(3);
  EXPECT_EQ(label_.SelLength, 0u);
  station_.Type("resa");
  EXPECT_EQ(label_.Text(), "EMPRESA"_w);
}

TEST_F(RenameTest, EndingItStoresAndTypingGoesOnInTheFields) {
  form_.AbrirEtiqueta(3);
  station_.Type("  empresa  ");
  ASSERT_EQ(station_.Disk.Get(kLbl), "(missing)");
  form_.CerrarEtiqueta(3);
  EXPECT_TRUE(label_.Locked);
  EXPECT_FALSE(label_.CanFocus);
  EXPECT_EQ(label_.Text(), "EMPRESA "_w);
  EXPECT_EQ(station_.Disk.Get(kLbl).substr(60, 20), "EMPRESA             ");
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
}

TEST_F(RenameTest, LeavingItForAnotherFieldKeepsTheOperatorThere) {
  form_.AbrirEtiqueta(3);
  form_.SetFocus(&form_.TxtCampo[4]);
  EXPECT_TRUE(label_.Locked);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[4]);
}

TEST_F(RenameTest, ALabelThatIsNotOpenIsNotStored) {
  form_.CerrarEtiqueta(3);
  EXPECT_EQ(station_.Disk.Get(kLbl), "(missing)");
  EXPECT_EQ(label_.Text(), "APELLIDO "_w);
}

}  // namespace
}  // namespace vintoral
