#include "reports/Tiquete.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/reports/Slips.h"

namespace vintoral {
namespace {

using test::kLinea;
using test::Negrita;
using test::Normal;
using test::Textos;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Kind = PrintOperation::Kind;

const String kGuiones = "-------------------------------"_w;
const String kIguales = "==============================="_w;
const String kLineaPie = "----------- vintoral.example --"_w;

/// Everything that a ticket can have, the 20th of November 2026, good for 30 days.
DatosTiquete Todo() {
  DatosTiquete datos;
  datos.formato.Impresora = "POS-80";
  datos.formato.DimFuente = 10.5F;
  datos.formato.Encabezado = "        V I N T o r a l\r\n      B I E N V E N I D O\r\n";
  datos.formato.Foto = true;
  datos.formato.Pie = "\r\n     CONSERVE ESTE TIQUETE\r\n";
  datos.ficha = "0042"_w;
  datos.porteria = "01"_w;
  datos.marca = "14:05  (20/11/2026)"_w;
  datos.campos = {{{true, " PLACA "_w, " abc123 "_w},
                   {true, "NOMBRE"_w, "Ñandú"_w},
                   {true, "APELLIDO"_w, ""_w},
                   {true, "TELEFONO/CELULAR"_w, "300 123 4567"_w},
                   {true, "OBSERVACI"_w, "de diecinueve letras y mas"_w}}};
  datos.categoria = " Automóvil "_w;
  datos.foto = Picture("Multimedia\\0042.jpg"_w);
  datos.codigo = "ABC123DEF456"_w;
  datos.validez = {"30"_w, Validez::kDias, *Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14})};
  datos.direccion = "https://vintoral.example"_w;
  return datos;
}

PrintOperation Fuente(Kind kind) {
  PrintOperation font;
  font.kind = kind;
  font.text = "Fuentes\\Vintoral.ttf"_w;
  return font;
}

TEST(TiqueteImpreso, WithEverything) {
  const PrintDocument ticket = TiqueteImpreso(Todo());
  PrintOperation photo;
  photo.kind = Kind::kPicture;
  photo.picture = Picture("Multimedia\\0042.jpg"_w);
  photo.x = 252;  // two columns of 126
  photo.y = 13 * kLinea;
  photo.width = 3360;   // 10.5 × 320
  photo.height = 2520;  // 10.5 × 240
  const Twips below = 13 * kLinea + 2520;
  PrintOperation code = Normal(below + kLinea, "*ABC123DEF456*"_w);
  code.fontName = "Free 3 of 9"_w;
  code.fontSize = 31.5;
  code.x = 252;
  const Twips rest = below + kLinea + 630;  // the bars are as high as their size
  EXPECT_THAT(
      ticket.Operations(),
      ElementsAre(Normal(0, "        V I N T o r a l\r\n      B I E N V E N I D O\r\n"_w),
                  Negrita(3 * kLinea, "  No.FICHA  0042            P01"_w),
                  Negrita(4 * kLinea, "HORA/FECHA  14:05  (20/11/2026)"_w), Normal(5 * kLinea, kGuiones),
                  Negrita(6 * kLinea, "    PLACA : ABC123"_w), Normal(7 * kLinea, "   NOMBRE : ÑANDÚ"_w),
                  Normal(8 * kLinea, " APELLIDO : "_w), Normal(9 * kLinea, "TELEFONO/ : 300 123 4567"_w),
                  Normal(10 * kLinea, "OBSERVACI : DE DIECINUEVE LETRA"_w),
                  Negrita(11 * kLinea, "CATEGORIA : Automóvil"_w), Normal(12 * kLinea, kIguales), photo,
                  Normal(below, kIguales), Fuente(Kind::kAddFont), code, Fuente(Kind::kRemoveFont),
                  Normal(rest, kIguales), Negrita(rest + kLinea, "VALIDO 30 DIA(S)   (19/12/2026)"_w),
                  Normal(rest + 2 * kLinea, kGuiones), Normal(rest + 3 * kLinea, kLineaPie),
                  Normal(rest + 4 * kLinea, "\r\n     CONSERVE ESTE TIQUETE\r\n\r\n\r\n\r\n."_w)));
  EXPECT_EQ(ticket.PrinterWanted, "POS-80"_w);
  EXPECT_EQ(ticket.Height(), rest + 10 * kLinea);  // the last text has six lines
  EXPECT_EQ(ticket.Width(), 31 * 126);
}

TEST(TiqueteImpreso, WithNothingThatCanBeLeftOut) {
  DatosTiquete datos = Todo();
  datos.formato = {};
  datos.campos = {};
  datos.codigo.reset();
  const PrintDocument ticket = TiqueteImpreso(datos);
  EXPECT_THAT(
      ticket.Operations(),
      ElementsAre(Normal(0, ""_w), Negrita(kLinea, "  No.FICHA  0042            P01"_w),
                  Negrita(2 * kLinea, "HORA/FECHA  14:05  (20/11/2026)"_w), Normal(3 * kLinea, kGuiones),
                  Negrita(4 * kLinea, "CATEGORIA : Automóvil"_w), Normal(5 * kLinea, kGuiones),
                  Normal(6 * kLinea, kLineaPie), Normal(7 * kLinea, "\r\n\r\n\r\n."_w)));
  EXPECT_EQ(ticket.PrinterWanted, ""_w);
  EXPECT_EQ(ticket.Height(), 11 * kLinea);
}

TEST(TiqueteImpreso, TheFirstFieldAloneIsBold) {
  DatosTiquete datos = Todo();
  datos.campos[0].imprimir = false;
  EXPECT_THAT(TiqueteImpreso(datos).Operations(), Contains(Normal(6 * kLinea, "   NOMBRE : ÑANDÚ"_w)));
  datos.campos[0].imprimir = true;
  for (std::size_t i = 1; i < datos.campos.size(); ++i)
    datos.campos[i].imprimir = false;
  EXPECT_THAT(TiqueteImpreso(datos).Operations(), Contains(Negrita(7 * kLinea, "CATEGORIA : Automóvil"_w)));
}

TEST(TiqueteImpreso, CutsLabelsValuesAndCategory) {
  DatosTiquete datos = Todo();
  datos.campos[0] = {true, "1234567890"_w, "1234567890123456789X"_w};
  datos.categoria = "1234567890123456789x"_w;
  EXPECT_THAT(Textos(TiqueteImpreso(datos)), Contains("123456789 : 1234567890123456789"_w));
  EXPECT_THAT(Textos(TiqueteImpreso(datos)), Contains("CATEGORIA : 1234567890123456789"_w));
}

TEST(TiqueteImpreso, TheNumberOfTheFichaFillsSixteenColumns) {
  DatosTiquete datos = Todo();
  datos.ficha = " 7 "_w;
  EXPECT_THAT(Textos(TiqueteImpreso(datos)), Contains("  No.FICHA  7               P01"_w));
  datos.ficha = "1234567890123456"_w;
  EXPECT_THAT(Textos(TiqueteImpreso(datos)), Contains("  No.FICHA  1234567890123456P01"_w));
  datos.ficha = "12345678901234567"_w;
  EXPECT_THAT(Textos(TiqueteImpreso(datos)), Contains("  No.FICHA  12345678901234567P01"_w));
}

TEST(TiqueteImpreso, PhotoAndBarsFollowTheSize) {
  DatosTiquete datos = Todo();
  datos.formato.DimFuente = 5.1F;  // as a single somewhat less: 1631.99997 twips
  const PrintDocument ticket = TiqueteImpreso(datos);
  const PrintOperation& photo = ticket.Operations()[11];
  EXPECT_EQ(photo.kind, Kind::kPicture);
  EXPECT_EQ(photo.x, 122);  // 0.6 × 5.1 × 20 × 2 = 122.4
  EXPECT_EQ(photo.width, 1632);
  EXPECT_EQ(photo.height, 1224);
  const PrintOperation& rule = ticket.Operations()[12];
  EXPECT_EQ(rule.y, 13 * 116 + 1224);  // 2320 / 2048 × 5.1 × 20 = 115.5
  const PrintOperation& code = ticket.Operations()[14];
  EXPECT_EQ(code.fontSize, 3 * static_cast<double>(5.1F));
  EXPECT_EQ(code.x, 122);
}

TEST(TiqueteImpreso, ADamagedSizePrintsAsTheDefault) {
  DatosTiquete datos = Todo();
  const PrintDocument ticket = TiqueteImpreso(datos);
  datos.formato.DimFuente = -1e30F;
  EXPECT_EQ(TiqueteImpreso(datos).Operations(), ticket.Operations());
}

TEST(TiqueteImpreso, WithoutPhotoInTheFormatThereIsNeitherPictureNorRule) {
  DatosTiquete datos = Todo();
  datos.formato.Foto = false;
  const PrintDocument ticket = TiqueteImpreso(datos);
  EXPECT_THAT(ticket.Operations(), Not(Contains(testing::Field(&PrintOperation::kind, Kind::kPicture))));
  EXPECT_THAT(ticket.Operations(), Contains(Normal(12 * kLinea, kIguales)));  // the one of the bars
  EXPECT_THAT(ticket.Operations(), Contains(Fuente(Kind::kAddFont)));
  EXPECT_EQ(ticket.Height(), TiqueteImpreso(Todo()).Height() - kLinea - 2520);
}

TEST(TiqueteImpreso, APhotoThatIsNotThereLeavesItsRuleAndItsPlace) {
  DatosTiquete datos = Todo();
  datos.foto = {};
  std::vector<PrintOperation> expected = TiqueteImpreso(Todo()).Operations();
  expected.erase(expected.begin() + 11);
  EXPECT_EQ(TiqueteImpreso(datos).Operations(), expected);
  EXPECT_EQ(TiqueteImpreso(datos).Height(), TiqueteImpreso(Todo()).Height());
}

TEST(TiqueteImpreso, PrintsTheCodeAsItStands) {
  DatosTiquete datos = Todo();
  datos.codigo = " ab 1 "_w;
  EXPECT_THAT(Textos(TiqueteImpreso(datos)), Contains("* ab 1 *"_w));
  datos.codigo = ""_w;
  EXPECT_THAT(Textos(TiqueteImpreso(datos)), Contains("**"_w));
}

TEST(TiqueteImpreso, HeaderAndFooterLoseTheirTrailingBlanksAlone) {
  DatosTiquete datos = Todo();
  datos.formato.Encabezado = "  A  \r\n B   ";
  datos.formato.Pie = "  C  \r\n D   ";
  const std::vector<String> texts = Textos(TiqueteImpreso(datos));
  EXPECT_EQ(texts.front(), "  A  \r\n B"_w);
  EXPECT_EQ(texts.back(), "  C  \r\n D\r\n\r\n\r\n."_w);
}

TEST(TiqueteImpreso, HeaderAndFooterMayFillTheirFields) {
  DatosTiquete datos = Todo();
  datos.formato.Encabezado = std::string(5000, 'e');
  datos.formato.Pie = std::string(5000, 'p');
  const std::vector<String> texts = Textos(TiqueteImpreso(datos));
  EXPECT_EQ(texts.front(), String(5000, 'e'));
  EXPECT_EQ(texts.back(), String(5000, 'p') + "\r\n\r\n\r\n."_w);
}

}  // namespace
}  // namespace vintoral
