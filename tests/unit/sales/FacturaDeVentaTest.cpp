// The invoice of a sale: asked for in its dialog, whatever the switch of the tool bar says.
#include <gmock/gmock.h>

#include <limits>

#include "records/RegistroFactura.h"
#include "support/Slips.h"
#include "unit/sales/ExtrasFixture.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kFta = "Recursos\\Vintoral.FTA";
constexpr const char* kHfc = "Recursos\\Vintoral.HFC";

class FacturaDeVentaTest : public test::ExtrasTest {
 protected:
  FacturaDeVentaTest() {
    station_.Printer.Installed = {{"Tira80"_w}, "Tira80"_w};
    RegistroFactura& format = form_.FacturaActual;
    format.DimFuente = 10.5F;
    format.Encabezado = "CABEZA";
    format.Prefijo = "No.FACTURA\x1B";
    format.NumFactura = 41;
    format.Impuesto = 8;
    format.ImpuestoExtras = 19;
    format.Pie = "PIE";
    station_.Events.Take();
  }
  /// Sells three coffees and a rubber with an invoice; what came out of the printers until the dialog closed.
  std::vector<DeviceEvent> Invoiced() {
    std::vector<DeviceEvent> printed;
    Dialog([&] {
      Tick(1);
      station_.Type("3");
      Tick(3);
      hands_.Click(Extras().ChkFactura);
      Register();
      printed = test::Printed(station_.Events);
    });
    return printed;
  }
  std::string Log() const { return station_.Disk.Get(kHfc); }
  std::int32_t NumberOnDisk() { return test::Decoded<RegistroFactura>(station_.Disk.Get(kFta)).NumFactura; }
};

TEST_F(FacturaDeVentaTest, SaysWhatWasSoldWithTheTaxOfExtras) {
  ASSERT_EQ(form_.PctBoton[boton::kFacturas].BorderStyle, 0);
  const auto printed = Invoiced();
  ASSERT_EQ(printed.size(), 1u);
  // 15000.50 / 1.19 = 12605.4622
  EXPECT_EQ(test::TextOf(printed[0]),
            "CABEZA\n"
            "No.FACTURA  42              P01\n"
            "HORA/FECHA  14:05  (20/11/2026)\n"
            "-------------------------------\n"
            "DESCRIPCION     CANT      VALOR\n"
            "-------------------------------\n"
            "CAFE              3    15000.00\n"
            "GOMA              1        0.50\n"
            "===============================\n"
            "     BASE 12605.46\n"
            " IMPUESTO  2395.04 (19.00%)\n"
            "===============================\n"
            "               TOTAL $ 15000.50\n"
            "-------------------------------\n"
            "----------- vintoral.example --\n"
            "PIE\n\n\n.\n");
  EXPECT_EQ(NumberOnDisk(), 42);
  EXPECT_EQ(form_.FacturaActual.NumFactura, 42);
}

TEST_F(FacturaDeVentaTest, StandsOnTopOfTheLog) {
  station_.Disk.Put(kHfc, "lo anterior");
  form_.FacturaActual.ImpuestoExtras = 0;
  Invoiced();
  EXPECT_EQ(Log(),
            "\r\n\r\n\r\n"
            "CABEZA\r\n"
            "No.FACTURA  42              P01\r\n"
            "HORA/FECHA  14:05  (20/11/2026)\r\n"
            "-------------------------------\r\n"
            "DESCRIPCION     CANT      VALOR\r\n"
            "-------------------------------\r\n"
            "CAFE              3    15000.00\r\n"
            "GOMA              1        0.50\r\n"
            "===============================\r\n"
            "               TOTAL $ 15000.50\r\n"
            "-------------------------------\r\n"
            "----------- vintoral.example --\r\n"
            "PIE\r\n\r\n\r\n"
            "\r\n\r\n\r\n"
            "lo anterior\r\n");
}

TEST_F(FacturaDeVentaTest, WithoutItsTickThereIsNone) {
  form_.PctBoton[boton::kFacturas].BorderStyle = 1;
  station_.Disk.Put(kHfc, "lo anterior");
  Sell(1);
  EXPECT_EQ(Line(1).Cantidad, 1);
  EXPECT_THAT(test::Printed(station_.Events), IsEmpty());
  EXPECT_EQ(form_.FacturaActual.NumFactura, 41);
  EXPECT_EQ(Log(), "lo anterior");
}

TEST_F(FacturaDeVentaTest, WithoutATickedArticleThereIsNone) {
  Dialog([this] {
    hands_.Click(Extras().ChkFactura);
    Register();
  });
  EXPECT_THAT(test::Printed(station_.Events), IsEmpty());
  EXPECT_EQ(form_.FacturaActual.NumFactura, 41);
}

TEST_F(FacturaDeVentaTest, ComesWhenTheSaleIsOnDisk) {
  bool recorded = false;
  station_.Printer.OnEndDoc = [&] {
    recorded = Line(1) == Sold("CAFE", 3, Money::FromUnits(5000)) && NumberOnDisk() == 42 &&
               !station_.Faulty.Pending();
  };
  EXPECT_THAT(Invoiced(), SizeIs(1));
  EXPECT_TRUE(recorded);
}

TEST_F(FacturaDeVentaTest, IsPrintedThoughTheSaleCouldNotBeWritten) {
  station_.Disk.Put(kFta, test::Encoded(form_.FacturaActual));
  Dialog([this] {
    Tick(1);
    hands_.Click(Extras().ChkFactura);
    station_.Faulty.Set().failAllWrites = true;
    testing::internal::CaptureStderr();
    Register();
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    station_.Faulty.Repair();
  });
  EXPECT_EQ(List(), "(missing)");
  const auto printed = test::Printed(station_.Events);
  ASSERT_EQ(printed.size(), 1u);
  EXPECT_THAT(test::TextOf(printed[0]), HasSubstr("TOTAL $ 5000.00"));
}

TEST_F(FacturaDeVentaTest, TheSecondCopyComesWhenTheDialogHasClosed) {
  form_.FacturaActual.Copia = true;
  bool closed = false;
  station_.UnderWait = [&] { closed = form_.Form4 == nullptr; };
  const auto first = Invoiced();
  const auto second = test::Printed(station_.Events);
  ASSERT_EQ(first.size(), 1u);
  ASSERT_EQ(second.size(), 1u);
  EXPECT_EQ(first[0], second[0]);
  EXPECT_THAT(station_.Waits, ElementsAre(5000));
  EXPECT_TRUE(closed);
}

TEST_F(FacturaDeVentaTest, ATotalThatRanOverIsNothing) {
  Dialog([this] {
    form_.PrecioArticulo[0] = form_.PrecioArticulo[1] =
        Money::FromRaw(std::numeric_limits<std::int64_t>::max() / 4 * 3);
    Tick(0);
    Tick(1);
    ASSERT_EQ(Total(), "¡ERROR!"_w);
    hands_.Click(Extras().ChkFactura);
    Register();
  });
  const auto printed = test::Printed(station_.Events);
  ASSERT_EQ(printed.size(), 1u);
  EXPECT_THAT(test::TextOf(printed[0]), HasSubstr("TOTAL $ 0.00"));
}

}  // namespace
}  // namespace vintoral
