#include "reports/Factura.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "unit/reports/Facturas.h"
#include "unit/reports/Slips.h"

namespace vintoral {
namespace {

using test::Estadia;
using test::Factura;
using test::kLinea;
using test::Negrita;
using test::Normal;
using test::Textos;
using test::Venta;
using testing::Contains;
using testing::ElementsAre;

const String kGuiones = "-------------------------------"_w;
const String kIguales = "==============================="_w;
const String kLineaPie = "----------- vintoral.example --"_w;
const String kEncabezado = "        V I N T o r a l\r\n    EXIJA SIEMPRE SU FACTURA"_w;
const String kNumero = "No.FACTURA  101             P01"_w;
const String kFecha = "HORA/FECHA  14:05  (20/11/2026)"_w;
const String kImpuesto =
    "===============================\r\n"
    "     BASE 100.00\r\n"
    " IMPUESTO  19.00 (19.00%)"_w;
const String kTotal = "                 TOTAL $ 119.00"_w;
const String kPie = "    GRACIAS POR PREFERIRNOS\r\n\r\n\r\n\r\n."_w;

TEST(FacturaImpresa, OfAStay) {
  const PrintDocument invoice = FacturaImpresa(Estadia());
  EXPECT_THAT(
      invoice.Operations(),
      ElementsAre(Normal(0, kEncabezado), Negrita(2 * kLinea, kNumero), Negrita(3 * kLinea, kFecha),
                  Normal(4 * kLinea, kGuiones), Negrita(5 * kLinea, "    PLACA : ABC123"_w),
                  Normal(6 * kLinea,
                         "   NOMBRE : Ñandú\r\n-------------------------------\r\n"
                         "  ENTRADA : 12:00  (20/11/2026)\r\n   SALIDA : 14:05  (20/11/2026)"_w),
                  Negrita(10 * kLinea, "CATEGORIA : AUTOMOVIL\r\n  *PUNTOS : 18\r\n   TIEMPO : 2H 5M"_w),
                  Normal(13 * kLinea, kImpuesto), Normal(16 * kLinea, kIguales), Negrita(17 * kLinea, kTotal),
                  Normal(18 * kLinea, kGuiones), Normal(19 * kLinea, kLineaPie), Normal(20 * kLinea, kPie)));
  EXPECT_EQ(invoice.PrinterWanted, "POS-80"_w);
  EXPECT_EQ(invoice.Height(), 25 * kLinea);
  EXPECT_EQ(invoice.Width(), 31 * 126);
}

TEST(FacturaImpresa, OfASale) {
  DatosFactura datos = Venta();
  datos.detalle += "  "_w;
  datos.efectivo = {"150,5"_w, "31.50"_w};
  EXPECT_THAT(
      FacturaImpresa(datos).Operations(),
      ElementsAre(Normal(0, kEncabezado), Negrita(2 * kLinea, kNumero), Negrita(3 * kLinea, kFecha),
                  Normal(4 * kLinea, kGuiones), Normal(5 * kLinea, "DESCRIPCION     CANT      VALOR"_w),
                  Normal(6 * kLinea, kGuiones),
                  Normal(7 * kLinea, "AGUA              2        5.00\r\nLAVADO            1      114.00"_w),
                  Normal(9 * kLinea, kImpuesto), Normal(12 * kLinea, kIguales), Negrita(13 * kLinea, kTotal),
                  Normal(14 * kLinea, " EFECTIVO 150.50"_w), Normal(15 * kLinea, "   CAMBIO  31.50"_w),
                  Normal(16 * kLinea, kGuiones), Normal(17 * kLinea, kLineaPie), Normal(18 * kLinea, kPie)));
}

TEST(FacturaImpresa, WithoutTaxTheRuleAheadOfTheTotalStays) {
  for (const float none : {0.0F, -19.0F, std::numeric_limits<float>::quiet_NaN()}) {
    DatosFactura datos = Venta();
    datos.porcentaje = none;
    const PrintDocument invoice = FacturaImpresa(datos);
    ASSERT_EQ(invoice.Operations().size(), 12U) << none;
    EXPECT_EQ(invoice.Operations()[7], Normal(9 * kLinea, kIguales));
    EXPECT_EQ(invoice.Operations()[8], Negrita(10 * kLinea, kTotal));
  }
}

/// The line of the tax itself.
String LineaImpuesto(const DatosFactura& datos) {
  const String block = Textos(FacturaImpresa(datos)).at(7);
  return String(std::string_view(block).substr(std::string_view(block).rfind('\n') + 1));
}

TEST(FacturaImpresa, BaseAndTaxEndInOneColumn) {
  DatosFactura datos = Venta();
  datos.valor = Money::FromUnits(6000);
  EXPECT_EQ(LineaImpuesto(datos), " IMPUESTO  957.98 (19.00%)"_w);  // below 5042.02
  datos.porcentaje = 8.5F;
  datos.valor = Money::FromUnits(1'000'000);  // 921658.99, and what is left of it
  EXPECT_EQ(LineaImpuesto(datos), " IMPUESTO  78341.01 (8.50%)"_w);
  datos.porcentaje = 0.0001F;
  datos.valor = Money::FromRaw(50);  // base 0.01, tax 0.01 below zero: it has no blanks
  EXPECT_EQ(LineaImpuesto(datos), " IMPUESTO -0.01 (0.00%)"_w);
  datos.porcentaje = 1e30F;
  datos.valor = Money::FromUnits(2);
  EXPECT_EQ(LineaImpuesto(datos), " IMPUESTO 1.00 (100.00%)"_w);
}

/// The line of the number.
String LineaNumero(std::string_view prefijo, std::int32_t numero) {
  DatosFactura datos = Venta();
  datos.formato.Prefijo = prefijo;
  datos.formato.NumFactura = numero;
  return Textos(FacturaImpresa(datos)).at(1);
}

TEST(FacturaImpresa, ThePrefixKeepsTheBlanksAtItsEnd) {
  EXPECT_EQ(LineaNumero("FE   \x1B", 7), "FE     7                    P01"_w);
  EXPECT_EQ(LineaNumero("\x1B", 999999), "  999999                    P01"_w);
  EXPECT_EQ(LineaNumero("FE   \x1B", 7).Size(), 31U);
}

TEST(FacturaImpresa, AlwaysHasItsNumber) {
  EXPECT_EQ(LineaNumero("12345678901234567890\x1B", 999999), "12345678901234567890  999999P01"_w);
  EXPECT_EQ(LineaNumero("1234567890123456789012345\x1B", 999999), "1234567890123456789012345  999999P01"_w);
  EXPECT_EQ(LineaNumero("FE\x1B", -5), "FE  -5                      P01"_w);
}

/// The line of the total.
String LineaTotal(String moneda, Money valor) {
  DatosFactura datos = Venta();
  datos.porcentaje = 0;
  datos.moneda = std::move(moneda);
  datos.valor = valor;
  return Textos(FacturaImpresa(datos)).at(8);
}

TEST(FacturaImpresa, TheTotalEndsInTheLastColumn) {
  EXPECT_EQ(LineaTotal(" COP  "_w, Money::FromUnits(6000)), "              TOTAL COP 6000.00"_w);
  EXPECT_EQ(LineaTotal(""_w, Money()), "                    TOTAL  0.00"_w);
  EXPECT_EQ(LineaTotal("€"_w, Money::FromRaw(-125050)), "                 TOTAL € -12.51"_w);
  EXPECT_EQ(LineaTotal("€"_w, Money::FromRaw(-125050)).Size(), 31U);
  EXPECT_EQ(LineaTotal("PESOS COLOMBIANOS"_w, Money::FromUnits(123456)),
            "TOTAL PESOS COLOMBIANOS 123456.00"_w);
}

/// The lines behind the total, up to the rule.
std::vector<String> LineasEfectivo(std::optional<Efectivo> efectivo) {
  DatosFactura datos = Venta();
  datos.porcentaje = 0;
  datos.efectivo = std::move(efectivo);
  const std::vector<String> texts = Textos(FacturaImpresa(datos));
  return {texts.begin() + 9, texts.end() - 3};
}

TEST(FacturaImpresa, CashAndChangeEndInOneColumn) {
  EXPECT_THAT(LineasEfectivo(Efectivo{"200"_w, "81"_w}),
              ElementsAre(" EFECTIVO 200.00"_w, "   CAMBIO  81.00"_w));
  EXPECT_THAT(LineasEfectivo(Efectivo{"119,00"_w, "0"_w}),
              ElementsAre(" EFECTIVO 119.00"_w, "   CAMBIO   0.00"_w));
  EXPECT_THAT(LineasEfectivo(Efectivo{"119.005"_w, "0.5"_w}),
              ElementsAre(" EFECTIVO 119.01"_w, "   CAMBIO   0.50"_w));
  EXPECT_THAT(LineasEfectivo(Efectivo{""_w, "10"_w}), ElementsAre(" EFECTIVO 0.00"_w, "   CAMBIO 10.00"_w));
}

TEST(FacturaImpresa, WithoutChangeThereIsNoCash) {
  EXPECT_THAT(LineasEfectivo(std::nullopt), testing::IsEmpty());
  EXPECT_THAT(LineasEfectivo(Efectivo{"100"_w, ""_w}), testing::IsEmpty());
}

TEST(FacturaImpresa, AStayWithoutFieldsBeginsWithItsEntryInBold) {
  const DatosFactura datos = Factura(
      "  ENTRADA : 1\r\n   SALIDA : 2\r\n\x1B"
      "CATEGORIA : 3\r\n   TIEMPO : 4"_w);
  const PrintDocument invoice = FacturaImpresa(datos);
  EXPECT_EQ(invoice.Operations()[4], Negrita(5 * kLinea, "  ENTRADA : 1"_w));
  EXPECT_EQ(invoice.Operations()[5], Normal(6 * kLinea, "   SALIDA : 2"_w));
  EXPECT_EQ(invoice.Operations()[6], Negrita(7 * kLinea, "CATEGORIA : 3\r\n   TIEMPO : 4"_w));
}

/// What is printed of a stay's detail.
std::vector<String> Detalle(String detalle) {
  DatosFactura datos = Factura(std::move(detalle));
  const std::vector<String> texts = Textos(FacturaImpresa(datos));
  return {texts.begin() + 4, texts.end() - 6};
}

TEST(FacturaImpresa, AScrambledStayLosesNothingButItsMissingLines) {
  EXPECT_THAT(Detalle("A\r\n\r\n\x1B"
                      "B"_w),
              ElementsAre("A"_w, ""_w, "B"_w));
  EXPECT_THAT(Detalle("A\r\n\x1B"
                      "B"_w),
              ElementsAre("A"_w, "B"_w));
  EXPECT_THAT(Detalle("A\x1B"
                      "B"_w),
              ElementsAre("A"_w, "B"_w));
  EXPECT_THAT(Detalle("A\x1B"
                      "B\r\nC"_w),
              ElementsAre("A"_w, "B\r\nC"_w));
  EXPECT_THAT(Detalle("\x1B"_w), ElementsAre(""_w, ""_w));
  EXPECT_THAT(Detalle("A\r\nB\r\n\x1B"
                      "C\x1B"
                      "D"_w),
              ElementsAre("A"_w, "B"_w,
                          "C\x1B"
                          "D"_w));
}

TEST(FacturaImpresa, ADamagedSizePrintsAsTheDefault) {
  DatosFactura datos = Estadia();
  datos.formato.DimFuente = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(FacturaImpresa(datos).Operations(), FacturaImpresa(Estadia()).Operations());
  datos.formato.DimFuente = 8;
  EXPECT_EQ(FacturaImpresa(datos).Operations()[1].fontSize, 8);
  EXPECT_EQ(FacturaImpresa(datos).Operations()[1].y, 2 * 181);  // 2320 / 2048 × 8 × 20 = 181.25
}

}  // namespace
}  // namespace vintoral
