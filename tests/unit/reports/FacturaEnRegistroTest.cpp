// What the invoice log keeps of an invoice.
#include <gtest/gtest.h>

#include "unit/reports/Facturas.h"

namespace vintoral {
namespace {

using test::Estadia;
using test::Factura;
using test::Venta;

TEST(FacturaEnRegistro, OfAStayByteForByte) {
  EXPECT_EQ(FacturaEnRegistro(Estadia()),
            "\r\n\r\n\r\n"
            "        V I N T o r a l\r\n"
            "    EXIJA SIEMPRE SU FACTURA\r\n"
            "No.FACTURA  101             P01\r\n"
            "HORA/FECHA  14:05  (20/11/2026)\r\n"
            "-------------------------------\r\n"
            "PLACA : ABC123\r\n"  // trimmed as a whole, it begins at the edge
            "   NOMBRE : Ñandú\r\n"
            "-------------------------------\r\n"
            "  ENTRADA : 12:00  (20/11/2026)\r\n"
            "   SALIDA : 14:05  (20/11/2026)\r\n"
            "CATEGORIA : AUTOMOVIL\r\n"
            "  *PUNTOS : 18\r\n"
            "   TIEMPO : 2H 5M\r\n"
            "===============================\r\n"
            "     BASE 100.00\r\n"
            " IMPUESTO  19.00 (19.00%)\r\n"
            "===============================\r\n"
            "                 TOTAL $ 119.00\r\n"
            "-------------------------------\r\n"
            "----------- vintoral.example --\r\n"
            "    GRACIAS POR PREFERIRNOS\r\n"
            "\r\n\r\n\r\n"
            "\r\n\r\n\r\n"_w);
}

TEST(FacturaEnRegistro, OfASaleWithoutTaxAndWithoutItsCash) {
  DatosFactura datos = Venta();
  datos.porcentaje = 0;
  datos.efectivo = {"150"_w, "31"_w};
  EXPECT_EQ(FacturaEnRegistro(datos),
            "\r\n\r\n\r\n"
            "        V I N T o r a l\r\n"
            "    EXIJA SIEMPRE SU FACTURA\r\n"
            "No.FACTURA  101             P01\r\n"
            "HORA/FECHA  14:05  (20/11/2026)\r\n"
            "-------------------------------\r\n"
            "DESCRIPCION     CANT      VALOR\r\n"
            "-------------------------------\r\n"
            "AGUA              2        5.00\r\n"
            "LAVADO            1      114.00\r\n"
            "===============================\r\n"
            "                 TOTAL $ 119.00\r\n"
            "-------------------------------\r\n"
            "----------- vintoral.example --\r\n"
            "    GRACIAS POR PREFERIRNOS\r\n"
            "\r\n\r\n\r\n"
            "\r\n\r\n\r\n"_w);
}

/// The entry of an invoice whose format is empty, from behind its stamp to ahead of its total.
std::string Mitad(String detalle) {
  DatosFactura datos = Factura(std::move(detalle));
  datos.formato.Encabezado = "";
  datos.porcentaje = 0;
  const std::string entry = FacturaEnRegistro(datos).Bytes();
  const std::string stamp = "(20/11/2026)\r\n";
  const std::size_t begin = entry.find(stamp) + stamp.size();
  return entry.substr(begin, entry.find("======") - begin);
}

TEST(FacturaEnRegistro, TheDetailIsTrimmedOnceItsMarkIsGone) {
  const std::string rule = std::string(31, '-') + "\r\n";
  EXPECT_EQ(Mitad("  ENTRADA : 1\r\n\x1B  "_w), rule + "ENTRADA : 1\r\n\r\n");
  EXPECT_EQ(Mitad(" \x1B A\x1B"
                  "B "_w),
            rule +
                "A"
                "B\r\n");
  EXPECT_EQ(Mitad("  AGUA  "_w), rule + "DESCRIPCION     CANT      VALOR\r\n" + rule + "AGUA\r\n");
}

TEST(FacturaEnRegistro, AnEmptyFormatLeavesItsLinesEmpty) {
  DatosFactura datos = Venta();
  datos.formato = {};
  const std::string entry = FacturaEnRegistro(datos).Bytes();
  const std::string first = "\r\n\r\n\r\n\r\n  0                         P01\r\n";
  EXPECT_EQ(entry.substr(0, first.size()), first);
  const std::string last = " vintoral.example --\r\n\r\n\r\n\r\n\r\n\r\n\r\n";
  EXPECT_EQ(entry.substr(entry.size() - last.size()), last);
}

TEST(FacturaEnRegistro, HeaderAndFooterLoseTheirTrailingBlanksAlone) {
  DatosFactura datos = Venta();
  datos.formato.Encabezado = " A  \r\n  B   ";
  datos.formato.Pie = " C  \r\n  D   ";
  const std::string entry = FacturaEnRegistro(datos).Bytes();
  const std::string first = "\r\n\r\n\r\n A  \r\n  B\r\nNo.FACTURA";
  EXPECT_EQ(entry.substr(0, first.size()), first);
  const std::string last = " --\r\n C  \r\n  D\r\n\r\n\r\n\r\n\r\n\r\n";
  EXPECT_EQ(entry.substr(entry.size() - last.size()), last);
}

}  // namespace
}  // namespace vintoral
