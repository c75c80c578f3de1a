// The code of a ficha in its record of CDB.
#include <string>

#include "records/ArchivosNuevos.h"
#include "unit/entry/CodigosFixture.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::CodigosTest;
using test::kCdb;

class GuardarCodigoBarrasTest : public CodigosTest {
 protected:
  GuardarCodigoBarrasTest() {
    form_.CarpetaMostrada = form_.CarpetaCompartida;
    form_.TxtBarCodeOK.Visible = true;
    form_.TxtBarCode.SetText(" A1B2C3D4E5F6 "_w);
    form_.FichaActual.NumeroFicha = "0007";
  }
  /// CDB with these 54 bytes as record 7.
  static std::string WithSeven(const std::string& record) {
    return Blanks(6 * 54) + record + Blanks(993 * 54);
  }
};

TEST_F(GuardarCodigoBarrasTest, StandsInTheRecordOfItsNumber) {
  ASSERT_EQ(station_.Disk.Get(kCdb), CdbNuevo().Bytes());
  const int syncs = station_.Disk.Syncs();
  form_.GuardarCodigoBarras(true);
  EXPECT_EQ(station_.Disk.Get(kCdb), WithSeven("A1B2C3D4E5F6" + Blanks(38) + "0007"));
  EXPECT_GT(station_.Disk.Syncs(), syncs);
}

TEST_F(GuardarCodigoBarrasTest, IsBlankedWithItsNumber) {
  PutCode(6, test::kOtro, "0006");
  form_.GuardarCodigoBarras(true);
  ASSERT_EQ(CodeAt(7), test::kCodigo);
  form_.GuardarCodigoBarras(false);
  EXPECT_EQ(test::Encoded(test::RecordOf<RegistroCodigo>(station_.Disk, kCdb, 7)), Blanks(54));
  EXPECT_EQ(CodeAt(6), test::kOtro);
}

TEST_F(GuardarCodigoBarrasTest, WithoutTheRegisterNothingIsWritten) {
  ASSERT_TRUE(station_.Disk.Remove(kCdb));
  form_.GuardarCodigoBarras(true);
  EXPECT_FALSE(station_.Disk.Exists(kCdb));
}

TEST_F(GuardarCodigoBarrasTest, ANumberThatIsNoneHasNoRecord) {
  for (const char* number : {"", "X", "0000", "-1"}) {
    form_.FichaActual.NumeroFicha = std::string_view(number);
    form_.GuardarCodigoBarras(true);
    EXPECT_EQ(station_.Disk.Get(kCdb), CdbNuevo().Bytes()) << number;
  }
}

TEST_F(GuardarCodigoBarrasTest, ARegisterThatWasCutGrowsAgain) {
  station_.Disk.Put(kCdb, Blanks(100));
  form_.GuardarCodigoBarras(true);
  EXPECT_EQ(station_.Disk.Get(kCdb), Blanks(6 * 54) + "A1B2C3D4E5F6" + Blanks(38) + "0007");
}

TEST_F(GuardarCodigoBarrasTest, AReadOnlyRegisterIsPassedOver) {
  station_.Disk.SetReadOnly(kCdb);
  form_.GuardarCodigoBarras(true);
  EXPECT_EQ(station_.Disk.Get(kCdb), CdbNuevo().Bytes());
}

TEST_F(GuardarCodigoBarrasTest, StandsInTheFolderThatTheFichaWasReadFrom) {
  station_.Disk.Put("/otra/Vintoral.CDB", Blanks(54'000));
  form_.CarpetaMostrada = "/otra"_w;
  form_.GuardarCodigoBarras(true);
  EXPECT_EQ(station_.Disk.Get("/otra/Vintoral.CDB"), WithSeven("A1B2C3D4E5F6" + Blanks(38) + "0007"));
  EXPECT_EQ(station_.Disk.Get(kCdb), CdbNuevo().Bytes());
}

}  // namespace
}  // namespace vintoral
