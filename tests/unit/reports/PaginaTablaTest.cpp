#include "reports/PaginaTabla.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/EstilosPagina.h"
#include "reports/InformeFichas.h"
#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::ConCrLf;
using test::En;
using test::Filas;
using testing::ElementsAre;
using testing::HasSubstr;

// "P\xE1gina" is written in the page's own letters.
const std::string kCabeza = ConCrLf(R"page(<html xmlns:o="urn:schemas-microsoft-com:office:office"
xmlns:x="urn:schemas-microsoft-com:office:excel"
xmlns="http://www.w3.org/TR/REC-html40">

<head><TITLE>Vintoral - ESTADO P01</TITLE>
<meta http-equiv=Content-Type content="text/html; charset=windows-1252">
<meta name=ProgId content=Excel.Sheet>
<meta name=Generator content="Microsoft Excel 11">
<link rel=File-List href="P)page"
                                    "\xE1"
                                    R"page(gina_archivos/filelist.xml">
<style id="Vintoral_25893_Styles">
<!--table
 {mso-displayed-decimal-separator:"\,";
 mso-displayed-thousand-separator:"\.";}
)page");

const std::string kEstilos = ConCrLf(R"page(.xl2425893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:general;
	vertical-align:bottom;
	mso-background-source:auto;
	mso-pattern:auto;
	white-space:nowrap;}
.xl2525893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:center;
	vertical-align:bottom;
	border-top:none;
	border-right:1.0pt solid windowtext;
	border-bottom:none;
	border-left:1.0pt solid windowtext;
	mso-background-source:auto;
	mso-pattern:auto;
	white-space:nowrap;}
.xl2525894
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:right;
	vertical-align:bottom;
	border-top:none;
	border-right:1.0pt solid windowtext;
	border-bottom:none;
	border-left:1.0pt solid windowtext;
	mso-background-source:auto;
	mso-pattern:auto;
	white-space:nowrap;}
.xl2625893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:blue;
	font-size:10.0pt;
	font-weight:400;
	font-style:normal;
	text-decoration:underline;
	text-underline-style:single;
	font-family:Arial;
	mso-generic-font-family:auto;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:center;
	vertical-align:bottom;
	border-top:none;
	border-right:1.0pt solid windowtext;
	border-bottom:none;
	border-left:1.0pt solid windowtext;
	mso-background-source:auto;
	mso-pattern:auto;
	white-space:nowrap;}
.xl2725893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:left;
	vertical-align:bottom;
	border-top:none;
	border-right:1.0pt solid windowtext;
	border-bottom:none;
	border-left:none;
	mso-background-source:auto;
	mso-pattern:auto;
	white-space:nowrap;}
.xl2825893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:center;
	vertical-align:bottom;
	border-top:none;
	border-right:none;
	border-bottom:none;
	border-left:1.0pt solid windowtext;
	mso-background-source:auto;
	mso-pattern:auto;
	white-space:nowrap;}
.xl2925893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:center;
	vertical-align:middle;
	border-top:1.0pt solid windowtext;
	border-right:none;
	border-bottom:1.0pt solid windowtext;
	border-left:1.0pt solid windowtext;
	background:#FFCC99;
	mso-pattern:auto none;
	white-space:nowrap;}
.xl3025893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:left;
	vertical-align:middle;
	border-top:1.0pt solid windowtext;
	border-right:1.0pt solid windowtext;
	border-bottom:1.0pt solid windowtext;
	border-left:none;
	background:#FFCC99;
	mso-pattern:auto none;
	white-space:nowrap;}
.xl3125893
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:center;
	vertical-align:middle;
	border-top:1.0pt solid windowtext;
	border-right:1.0pt solid windowtext;
	border-bottom:1.0pt solid windowtext;
	border-left:1.0pt solid windowtext;
	background:#FFCC99;
	mso-pattern:auto none;
	white-space:nowrap;}
.xl3125894
	{padding-top:1px;
	padding-right:1px;
	padding-left:1px;
	mso-ignore:padding;
	color:windowtext;
	font-size:12.0pt;
	font-weight:700;
	font-style:normal;
	text-decoration:none;
	font-family:"Courier New", monospace;
	mso-font-charset:0;
	mso-number-format:General;
	text-align:right;
	vertical-align:middle;
	border-top:1.0pt solid windowtext;
	border-right:1.0pt solid windowtext;
	border-bottom:1.0pt solid windowtext;
	border-left:1.0pt solid windowtext;
	background:#FFCC99;
	mso-pattern:auto none;
	white-space:nowrap;}
)page");

const std::string kCuerpo = ConCrLf(R"page(-->
</style>
</head>
<body>
<!--[if !excel]>&nbsp;&nbsp;<![endif]-->
<div id="Vintoral_25893" align=center x:publishsource="Excel">
<table x:str border=0 cellpadding=0 cellspacing=0 width=1090 class=xl2425893 style='border-collapse:collapse;table-layout:fixed;width:816pt'>
)page");

const std::string kColumnas = ConCrLf(
    R"page( <col class=xl2825893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2725893 width=40 style='mso-width-source:userset;mso-width-alt:1462;width:30pt'>
 <col class=xl2825893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2725893 width=40 style='mso-width-source:userset;mso-width-alt:1462;width:30pt'>
 <col class=xl2525893 width=75 style='mso-width-source:userset;mso-width-alt:2742;width:56pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2525893 width=75 style='mso-width-source:userset;mso-width-alt:2742;width:66pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
 <col class=xl2525893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>
)page");

const std::string kRotulos = ConCrLf(R"page( <tr height=44 style='mso-height-source:userset;height:33.0pt'>
  <td class=xl2925893>HORA ENTRADA</td>
  <td class=xl3025893 style='border-left:none'>PE</td>
  <td class=xl2925893 style='border-left:none'>HORA SALIDA</td>
  <td class=xl3025893 style='border-left:none'>PS</td>
  <td class=xl3125893 style='border-left:none'>FICHA</td>
  <td class=xl3125893 style='border-left:none'>CATEGORIA</td>
  <td class=xl3125893 style='border-left:none'>IMAGEN</td>
  <td class=xl3125893 style='border-left:none'>TIEMPO</td>
  <td class=xl3125893 style='border-left:none'>VALOR</td>
  <td class=xl3125893 style='border-left:none'>PLACA</td>
  <td class=xl3125893 style='border-left:none'>NOMBRE</td>
  <td class=xl3125893 style='border-left:none'>APELLIDO</td>
  <td class=xl3125893 style='border-left:none'>TELEFONO</td>
  <td class=xl3125893 style='border-left:none'>OBSERVACI</td>
 </tr>
)page");

const std::string kFilaVacia = ConCrLf(R"page( <tr height=22 style='height:16.5pt'>
  <td class=xl2825893></td>
  <td class=xl2725893 style='border-left:none'></td>
  <td class=xl2825893 style='border-left:none'></td>
  <td class=xl2725893 style='border-left:none'></td>
  <td class=xl2525893 style='border-left:none'></td>
  <td class=xl2525893 style='border-left:none'></td>
  <td class=xl2625893 style='border-left:none'></td>
  <td class=xl2525894 style='border-left:none'></td>
  <td class=xl2525894 style='border-left:none'></td>
  <td class=xl2525893 style='border-left:none'></td>
  <td class=xl2525893 style='border-left:none'></td>
  <td class=xl2525893 style='border-left:none'></td>
  <td class=xl2525893 style='border-left:none'></td>
  <td class=xl2525893 style='border-left:none'></td>
 </tr>
)page");

const std::string kFin = ConCrLf(R"page( <![if supportMisalignedColumns]>
 <tr height=0 style='display:none'>
  <td width=215 style='width:161pt'></td>
  <td width=40 style='width:30pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=40 style='width:30pt'></td>
  <td width=75 style='width:56pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=75 style='width:56pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=215 style='width:161pt'></td>
  <td width=215 style='width:161pt'></td>
 </tr>
 <![endif]>
</table>
</div>
</body>
</html>
)page");

/// The row with a text in its first cell, or with one in the cell of a class that stands there once.
std::string Con(std::string fila, std::size_t celda, const std::string& texto) {
  std::size_t at = 0;
  for (std::size_t i = 0; i <= celda; ++i)
    at = fila.find("</td>", at + 1);
  return fila.insert(at, texto);
}

std::string PaginaDe(const DatosInforme& datos, std::span<const RegistroFicha> vista) {
  std::string page;
  EXPECT_TRUE(InformeEstado(datos, vista, En(page)).pagina);
  return page;
}

TEST(PaginaTabla, EveryLineOfAPageWithoutRows) {
  const std::string total = Con(Con(Con(kFilaVacia, 0, "0 Registro(s)"), 5, "TOTAL"), 8, "$ 0.00");
  EXPECT_EQ(PaginaDe(test::Datos(), {}), kCabeza + kEstilos + kCuerpo + kColumnas + kRotulos + kFilaVacia +
                                             Con(kFilaVacia, 0, "18:00  (21/11/2026)") + kFilaVacia + total +
                                             kFin);
}

TEST(EstilosPagina, HasEachClassOnce) {
  EXPECT_EQ(EstilosPagina().Bytes(), kEstilos);
}

TEST(PaginaTabla, TheLabelsAreTheHeads) {
  DatosInforme datos = test::Datos();
  datos.etiquetas = {" A&B "_w, "\"C\""_w, "<D>"_w, ""_w, "E"_w};
  const std::string page = PaginaDe(datos, {});
  EXPECT_THAT(
      page, HasSubstr(">A&amp;B</td>\r\n  <td class=xl3125893 style='border-left:none'>&quot;C&quot;</td>"));
  EXPECT_THAT(page, HasSubstr(">&lt;D&gt;</td>\r\n  <td class=xl3125893 style='border-left:none'></td>"));
}

const std::vector<Columna> kDos = {{"A"_w, &tipo::kMomento}, {"B"_w, &tipo::kImagen}};

TEST(PaginaTabla, WhatIsLeftOutOfARowIsEmpty) {
  std::string page;
  PaginaTabla table(En(page), kDos, "X P01"_w);
  table.Celda(" uno ");
  table.Celda("dos");
  table.TerminarFila();
  table.FilaDe("tres");
  table.FilaVacia();
  table.SaltarA(1);
  table.Celda("cuatro");
  table.SaltarA(1);  // which has been passed
  table.TerminarFila();
  EXPECT_TRUE(table.Terminar());
  EXPECT_THAT(Filas(page), ElementsAre("uno|dos|", "tres||", "||", "|cuatro|"));
}

TEST(PaginaTabla, APlateLikeATagShowsAsTyped) {
  RegistroFicha ficha = test::FichaIda();
  ficha.Placa = "<B>&\"";
  ficha.Categoria = "A<B";
  const std::vector<std::string> rows = Filas(PaginaDe(test::Datos(), std::span(&ficha, 1)));
  EXPECT_EQ(rows[0],
            "14:05  (20/11/2026)|01|16:35  (20/11/2026)|02|0042|A&lt;B|SIN IMAGEN|02H 30M|1500.00|"
            "&lt;B&gt;&amp;&quot;|JUAN|PEREZ|3001234567|CASCO|");
}

TEST(PaginaTabla, APhotoIsALink) {
  std::string page;
  PaginaTabla table(En(page), kDos, "X P01"_w);
  table.SaltarA(1);
  table.CeldaFoto("srv/A&B/000007.jpg"_w);
  table.TerminarFila();
  EXPECT_TRUE(table.Terminar());
  EXPECT_THAT(page,
              HasSubstr("  <td class=xl2625893 style='border-left:none'><a "
                        "href=\"file:///srv/A&amp;B/000007.jpg\" target=\"_blank\">VER FOTO</a></td>\r\n"));
}

TEST(PaginaTabla, ADiskThatIsFullIsTold) {
  PaginaTabla table(test::Lleno(), kDos, "X P01"_w);
  EXPECT_EQ(table.Terminar().Error(), ENOSPC);
}

}  // namespace
}  // namespace vintoral
