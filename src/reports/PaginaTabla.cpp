#include "reports/PaginaTabla.h"

#include <array>

#include "reports/EstilosPagina.h"

namespace vintoral {
namespace {

constexpr std::array<std::string_view, 3> kRaiz = {
    "<html xmlns:o=\"urn:schemas-microsoft-com:office:office\"",
    "xmlns:x=\"urn:schemas-microsoft-com:office:excel\"", "xmlns=\"http://www.w3.org/TR/REC-html40\">"};
constexpr std::array<std::string_view, 8> kMetadatos = {
    "<meta http-equiv=Content-Type content=\"text/html; charset=windows-1252\">",
    "<meta name=ProgId content=Excel.Sheet>",
    "<meta name=Generator content=\"Microsoft Excel 11\">",
    "<link rel=File-List href=\"P\xE1gina_archivos/filelist.xml\">",
    "<style id=\"Vintoral_25893_Styles\">",
    "<!--table",
    " {mso-displayed-decimal-separator:\"\\,\";",
    " mso-displayed-thousand-separator:\"\\.\";}"};
constexpr std::array<std::string_view, 7> kCuerpo = {
    "-->",
    "</style>",
    "</head>",
    "<body>",
    "<!--[if !excel]>&nbsp;&nbsp;<![endif]-->",
    "<div id=\"Vintoral_25893\" align=center x:publishsource=\"Excel\">",
    "<table x:str border=0 cellpadding=0 cellspacing=0 width=1090 class=xl2425893 "
    "style='border-collapse:collapse;table-layout:fixed;width:816pt'>"};
constexpr std::array<std::string_view, 2> kFin = {" <![if supportMisalignedColumns]>",
                                                  " <tr height=0 style='display:none'>"};
constexpr std::array<std::string_view, 6> kCierre = {" </tr>", " <![endif]>", "</table>",
                                                     "</div>", "</body>",     "</html>"};
constexpr std::string_view kFilaRotulos = " <tr height=44 style='mso-height-source:userset;height:33.0pt'>";
constexpr std::string_view kFila = " <tr height=22 style='height:16.5pt'>\r\n";
constexpr std::string_view kFinFila = " </tr>";
constexpr std::string_view kFinCelda = "</td>\r\n";

template <std::size_t N>
void EscribirLineas(Escritor& escritor, const std::array<std::string_view, N>& lineas) {
  for (const std::string_view linea : lineas)
    escritor.Linea(linea);
}

/// Two cells that meet have one line between them.
std::string AperturaDeCelda(std::string_view clase, bool primera) {
  return "  <td class=" + std::string(clase) + (primera ? ">" : " style='border-left:none'>");
}

std::string LineaDeColumna(const TipoColumna& tipo) {
  return " <col class=" + std::string(tipo.clase) + " width=" + std::to_string(tipo.ancho) +
         " style='mso-width-source:userset;mso-width-alt:" + std::to_string(tipo.anchoHoja) +
         ";width:" + std::to_string(tipo.puntos) + "pt'>";
}

std::string CeldaOculta(const TipoColumna& tipo) {
  return "  <td width=" + std::to_string(tipo.ancho) + " style='width:" + std::to_string(tipo.puntosOcultos) +
         "pt'></td>";
}

}  // namespace

PaginaTabla::PaginaTabla(Destino destino, std::vector<Columna> columnas, const String& titulo)
    : escritor_(std::move(destino)), columnas_(std::move(columnas)) {
  for (const Columna& columna : columnas_)
    aperturas_.push_back(AperturaDeCelda(columna.tipo->claseCelda, aperturas_.empty()));
  aperturas_.front().insert(0, kFila);
  EscribirCabeza(titulo);
  EscribirColumnas();
  EscribirRotulos();
}

void PaginaTabla::EscribirCabeza(const String& titulo) {
  EscribirLineas(escritor_, kRaiz);
  escritor_.Linea();
  escritor_.Linea("<head><TITLE>Vintoral - "_w + titulo + "</TITLE>"_w);
  EscribirLineas(escritor_, kMetadatos);
  escritor_.Escribir(EstilosPagina());
  EscribirLineas(escritor_, kCuerpo);
}

void PaginaTabla::EscribirColumnas() {
  for (const Columna& columna : columnas_)
    escritor_.Linea(LineaDeColumna(*columna.tipo));
}

void PaginaTabla::EscribirRotulos() {
  escritor_.Linea(kFilaRotulos);
  for (const Columna& columna : columnas_) {
    escritor_.Escribir(AperturaDeCelda(columna.tipo->claseCabeza, &columna == columnas_.data()));
    escritor_.EscribirVisible(TrimBlanks(columna.cabeza));
    escritor_.Escribir(kFinCelda);
  }
  escritor_.Linea(kFinFila);
}

void PaginaTabla::EmpezarCelda() {
  escritor_.Escribir(aperturas_[columna_++]);
}

void PaginaTabla::Celda(std::string_view texto) {
  EmpezarCelda();
  escritor_.EscribirVisible(TrimBlanks(texto));
  escritor_.Escribir(kFinCelda);
}

void PaginaTabla::CeldaFoto(const std::optional<String>& ruta) {
  if (!ruta) return Celda("SIN IMAGEN");
  EmpezarCelda();
  escritor_.Escribir("<a href=\"file:///");
  escritor_.EscribirVisible(*ruta);
  escritor_.Escribir("\" target=\"_blank\">VER FOTO</a>");
  escritor_.Escribir(kFinCelda);
}

void PaginaTabla::SaltarA(std::size_t columna) {
  while (columna_ < columna)
    Celda({});
}

void PaginaTabla::TerminarFila() {
  SaltarA(columnas_.size());
  escritor_.Linea(kFinFila);
  columna_ = 0;
}

void PaginaTabla::FilaDe(std::string_view texto) {
  Celda(texto);
  TerminarFila();
}

Outcome PaginaTabla::Terminar() {
  EscribirLineas(escritor_, kFin);
  for (const Columna& columna : columnas_)
    escritor_.Linea(CeldaOculta(*columna.tipo));
  EscribirLineas(escritor_, kCierre);
  return escritor_.Terminar();
}

}  // namespace vintoral
