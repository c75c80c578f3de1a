#include "reports/HojaFicha.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::ConCrLf;
using test::En;
using testing::HasSubstr;

DatosHoja Datos() {
  return {.porteria = "01"_w,
          .moneda = " $ "_w,
          .etiquetas = {"¬¬¬¬PLACA"_w, "¬¬¬NOMBRE"_w, "¬APELLIDO"_w, "¬TELEFONO"_w, "OBSERVACI"_w},
          .foto = test::SinFotos};
}

std::string Hoja(const DatosHoja& datos, const RegistroFicha& ficha) {
  std::string page;
  EXPECT_TRUE(EscribirHoja(datos, ficha, En(page)));
  return page;
}

TEST(HojaFicha, EveryLineOfOneGone) {
  DatosHoja datos = Datos();
  datos.foto = [](std::string_view, std::int64_t) { return std::optional("srv/000007.jpg"_w); };
  EXPECT_EQ(Hoja(datos, test::FichaIda()),
            ConCrLf("<HTML><HEAD><TITLE>Vintoral - B\xDASQUEDA P01</TITLE></HEAD>\n"
                    R"(<BODY text=#000000 bgColor=#ffffff>
<P><IMG src="file:///srv/000007.jpg" width="320" height="240" border=1></P>
<P><FONT face="Courier New" size=3><B>&nbsp;&nbsp;&nbsp;&nbsp;No.FICHA : 0042<BR><BR>
 ENTRADA : 14:05  (20/11/2026)&nbsp;P01<BR>
&nbsp; SALIDA : 16:35  (20/11/2026)&nbsp;P02<BR>
&nbsp;&nbsp;&nbsp;&nbsp;PLACA : ABC123<BR><BR>
&nbsp;&nbsp;&nbsp;NOMBRE : JUAN<BR>
&nbsp;APELLIDO : PEREZ<BR>
&nbsp;TELEFONO : 3001234567<BR>
OBSERVACI : CASCO<BR>
&nbsp;&nbsp;&nbsp;CATEGORIA : AUTOMOVIL<BR><BR>
&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;TIEMPO : 02H 30M<BR>
&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;VALOR : $ 1500.00</B></FONT></P>
<P>&nbsp;</P></BODY></HTML>
)"));
}

TEST(HojaFicha, OneInsideHasNeitherExitNorValue) {
  const std::string page = Hoja(Datos(), test::FichaAdentro());
  EXPECT_THAT(page, HasSubstr("\r\n&nbsp; SALIDA : ??&nbsp;P?\?<BR>\r\n"));
  EXPECT_THAT(page, HasSubstr("&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;TIEMPO : ?\?<BR>\r\n"
                              "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;VALOR : ?\?</B></FONT></P>\r\n"));
}

TEST(HojaFicha, WithoutAPhotoThereIsNoPicture) {
  EXPECT_THAT(Hoja(Datos(), test::FichaIda()),
              HasSubstr("<BODY text=#000000 bgColor=#ffffff>\r\n<P><FONT face="));
}

TEST(HojaFicha, APhotoIsLookedForWhereItsFichaIs) {
  std::vector<std::string> asked;
  DatosHoja datos = Datos();
  datos.foto = [&](std::string_view folder, std::int64_t number) -> std::optional<String> {
    asked.push_back(String(folder).ToUtf8() + " " + std::to_string(number));
    return std::nullopt;
  };
  Hoja(datos, test::FichaIda());
  Hoja(datos, test::FichaAdentro());
  EXPECT_THAT(asked, testing::ElementsAre("Imágenes HST 7", "Imágenes ACT 7"));
}

TEST(HojaFicha, WhatIsTypedShowsAsTyped) {
  RegistroFicha ficha = test::FichaIda();
  ficha.Placa = "<B>&";
  ficha.Categoria = "A\"B";
  DatosHoja datos = Datos();
  datos.etiquetas[0] = "¬<P>"_w;
  datos.moneda = "<$>"_w;
  const std::string page = Hoja(datos, ficha);
  EXPECT_THAT(page, HasSubstr("&nbsp;&lt;P&gt; : &lt;B&gt;&amp;<BR><BR>\r\n"));
  EXPECT_THAT(page, HasSubstr("CATEGORIA : A&quot;B<BR><BR>\r\n"));
  EXPECT_THAT(page, HasSubstr("VALOR : &lt;$&gt; 1500.00</B>"));
}

TEST(HojaFicha, ADiskThatIsFullIsTold) {
  EXPECT_EQ(EscribirHoja(Datos(), test::FichaIda(), test::Lleno()).Error(), ENOSPC);
}

}  // namespace
}  // namespace vintoral
