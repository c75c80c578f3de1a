#include "reports/DocumentoID.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/MemoryDisk.h"
#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::En;
using test::Encoded;
using test::Filas;
using test::MemoryDisk;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kBlanco = Encoded(RegistroFicha{});
constexpr std::int64_t kLimite = 10946;
constexpr const char* kVacia = "|||||||||";
constexpr const char* kAhora = "18:00  (21/11/2026)|||||||||";

DatosDocumento De(Documento documento, bool turno = false) {
  return {.documento = documento,
          .porteria = "01"_w,
          .ahora = "18:00  (21/11/2026)"_w,
          .etiquetas = {"PLACA"_w, "NOMBRE"_w, "APELLIDO"_w, "TELEFONO"_w, "OBSERVACI"_w},
          .turnoActivo = turno,
          .limite = kLimite,
          .foto = test::SinFotos};
}

RegistroFicha Registro(std::string_view placa, std::string_view fecha, bool marca = false) {
  RegistroFicha ficha = test::FichaIda(fecha);
  ficha.Placa = placa;
  ficha.InicioTurno = marca;
  ficha.UsuarioPuntos = 42;
  return ficha;
}

std::string Pagina(const DatosDocumento& datos, const std::string& archivo) {
  MemoryDisk disk;
  disk.Put("ID", archivo);
  std::string page;
  EXPECT_TRUE(EscribirDocumentoID(datos, Register<RegistroFicha>(disk, "ID", OpenMode::kRead), En(page)));
  return page;
}

std::vector<std::string> Nuevos(const std::string& archivo, bool turno = false) {
  return Filas(Pagina(De(Documento::kNuevos, turno), archivo));
}
std::vector<std::string> Puntos(const std::string& archivo, bool turno = false) {
  return Filas(Pagina(De(Documento::kPuntos, turno), archivo));
}

std::string FilaNuevo(const std::string& placa, const std::string& fecha) {
  return "14:05  (" + fecha + ")|01|" + placa + "|JUAN|SIN IMAGEN|PEREZ|3001234567|CASCO|AUTOMOVIL|";
}
std::string FilaPuntos(const std::string& placa, const std::string& fecha) {
  return "16:35  (" + fecha + ")|" + placa + "|JUAN|SIN IMAGEN|PEREZ|3001234567|CASCO|AUTOMOVIL|42|";
}

TEST(DocumentoID, TitlesAndHeads) {
  const std::string users = Pagina(De(Documento::kNuevos), kBlanco);
  EXPECT_THAT(users, HasSubstr("<head><TITLE>Vintoral - NUEVOS P01</TITLE>\r\n"));
  const std::string next = "</td>\r\n  <td class=xl3125893 style='border-left:none'>";
  EXPECT_THAT(users, HasSubstr("  <td class=xl2925893>HORA ENTRADA</td>\r\n"
                               "  <td class=xl3025893 style='border-left:none'>PE" +
                               next + "PLACA" + next + "NOMBRE" + next + "IMAGEN" + next + "APELLIDO" + next +
                               "TELEFONO" + next + "OBSERVACI" + next + "CATEGORIA</td>\r\n </tr>\r\n"));
  const std::string points = Pagina(De(Documento::kPuntos), "");
  EXPECT_THAT(points, HasSubstr("<head><TITLE>Vintoral - PUNTOS P01</TITLE>\r\n"));
  EXPECT_THAT(points, HasSubstr("  <td class=xl2925893>HORA SALIDA" + next + "PLACA" + next + "NOMBRE" +
                                next + "IMAGEN" + next + "APELLIDO" + next + "TELEFONO" + next + "OBSERVACI" +
                                next + "CATEGORIA" + next + "PUNTOS</td>\r\n </tr>\r\n"));
}

TEST(DocumentoID, TheColumnsOfNewUsers) {
  EXPECT_THAT(
      Pagina(De(Documento::kNuevos), kBlanco),
      HasSubstr(
          " <col class=xl2825893 width=215 "
          "style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>\r\n"
          " <col class=xl2725893 width=40 style='mso-width-source:userset;mso-width-alt:1462;width:30pt'>\r\n"
          " <col class=xl2525893 width=215 "
          "style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>\r\n"
          " <col class=xl2525893 width=215 "
          "style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>\r\n"
          " <col class=xl2525893 width=75 style='mso-width-source:userset;mso-width-alt:2742;width:66pt'>\r\n"
          " <col class=xl2525893 width=215 "));
}

TEST(DocumentoID, NewUsersByDayNewestFirst) {
  const std::string file = kBlanco + Encoded(Registro("UNO", "19/11/2026")) +
                           Encoded(Registro("DOS", "19/11/2026")) + Encoded(Registro("TRES", "20/11/2026"));
  // Behind a day with another before it stand three empty rows, behind the oldest one.
  EXPECT_THAT(Nuevos(file), ElementsAre(FilaNuevo("TRES", "20/11/2026"), kVacia, kVacia, kVacia,
                                        FilaNuevo("DOS", "19/11/2026"), FilaNuevo("UNO", "19/11/2026"),
                                        kVacia, kVacia, kAhora, kVacia));
}

TEST(DocumentoID, WithoutNewUsersThereAreHeadsAlone) {
  EXPECT_THAT(Nuevos(kBlanco), ElementsAre(kVacia, kAhora, kVacia));
  EXPECT_THAT(Nuevos(""), ElementsAre(kVacia, kAhora, kVacia));
}

TEST(DocumentoID, PointsByDayWithTheirCount) {
  const std::string file = Encoded(Registro("UNO", "19/11/2026")) + Encoded(Registro("DOS", "19/11/2026")) +
                           Encoded(Registro("TRES", "20/11/2026"));
  EXPECT_THAT(Puntos(file), ElementsAre(FilaPuntos("TRES", "20/11/2026"), kVacia, "|1||||||||",
                                        FilaPuntos("DOS", "19/11/2026"), FilaPuntos("UNO", "19/11/2026"),
                                        kVacia, "|2||||||||", kVacia, kAhora, kVacia));
}

TEST(DocumentoID, ABlankFirstRecordOfThePointsIsNoMovement) {
  EXPECT_THAT(Puntos(kBlanco + Encoded(Registro("UNO", "19/11/2026"))),
              ElementsAre(FilaPuntos("UNO", "19/11/2026"), kVacia, "|1||||||||", kVacia, kAhora, kVacia));
  EXPECT_THAT(Puntos(""), ElementsAre(kVacia, kAhora, kVacia));
}

TEST(DocumentoID, AShiftEndsAtItsMark) {
  const std::string users = kBlanco + Encoded(Registro("ANTES", "20/11/2026")) +
                            Encoded(Registro("MARCA", "20/11/2026", true)) +
                            Encoded(Registro("UNO", "20/11/2026"));
  EXPECT_THAT(Nuevos(users, true),
              ElementsAre(FilaNuevo("UNO", "20/11/2026"), kVacia, kVacia, kVacia, kVacia, kAhora, kVacia));
  const std::string points =
      Encoded(Registro("MARCA", "20/11/2026", true)) + Encoded(Registro("UNO", "20/11/2026"));
  EXPECT_THAT(Puntos(points, true),
              ElementsAre(FilaPuntos("UNO", "20/11/2026"), kVacia, "|1||||||||", kVacia, kAhora, kVacia));
  // Without a shift the mark says nothing.
  EXPECT_EQ(Puntos(points)[1], FilaPuntos("MARCA", "20/11/2026"));
}

TEST(DocumentoID, AMarkInRecord2HasMoreBeforeIt) {
  const std::string file =
      kBlanco + Encoded(Registro("MARCA", "20/11/2026", true)) + Encoded(Registro("UNO", "20/11/2026"));
  EXPECT_THAT(Nuevos(file, true),
              ElementsAre(FilaNuevo("UNO", "20/11/2026"), kVacia, kVacia, kVacia, kVacia, kAhora, kVacia));
  // The blank record may carry it too.
  RegistroFicha blank;
  blank.InicioTurno = true;
  EXPECT_THAT(Nuevos(Encoded(blank) + Encoded(Registro("UNO", "20/11/2026")), true),
              ElementsAre(FilaNuevo("UNO", "20/11/2026"), kVacia, kVacia, kAhora, kVacia));
}

TEST(DocumentoID, AShiftWithNothingInItYet) {
  EXPECT_THAT(Puntos(Encoded(Registro("MARCA", "20/11/2026", true)), true),
              ElementsAre(kVacia, "|0||||||||", kVacia, kAhora, kVacia));
}

TEST(DocumentoID, NoMoreRecordsThanTheLimit) {
  std::string file;
  for (std::int64_t i = 0; i < kLimite + 1; ++i)
    file += Encoded(Registro(i == 0 ? "PRIMERO" : i == 1 ? "SEGUNDO" : "X", "19/11/2026"));
  const std::vector<std::string> rows = Puntos(file);
  ASSERT_EQ(rows.size(), 10946U + 5);
  EXPECT_EQ(rows[10945], FilaPuntos("SEGUNDO", "19/11/2026"));
  EXPECT_EQ(rows[10947], "|10946||||||||");
}

TEST(DocumentoID, TheBlockInWhichTheLimitEndsIsTheOldestOfItsPage) {
  const std::string file = kBlanco + Encoded(Registro("UNO", "19/11/2026")) +
                           Encoded(Registro("DOS", "19/11/2026")) + Encoded(Registro("TRES", "20/11/2026"));
  DatosDocumento datos = De(Documento::kNuevos);
  datos.limite = 2;
  EXPECT_THAT(Filas(Pagina(datos, file)),
              ElementsAre(FilaNuevo("TRES", "20/11/2026"), kVacia, kVacia, kVacia,
                          FilaNuevo("DOS", "19/11/2026"), kVacia, kVacia, kAhora, kVacia));
}

TEST(DocumentoID, WhereThePhotosAre) {
  std::vector<std::string> asked;
  const auto ask = [&](std::string_view folder, std::int64_t number) -> std::optional<String> {
    asked.push_back(String(folder).ToUtf8() + " " + std::to_string(number));
    return "foto.jpg"_w;
  };
  DatosDocumento users = De(Documento::kNuevos), points = De(Documento::kPuntos);
  users.foto = points.foto = ask;
  const std::string file = kBlanco + Encoded(Registro("UNO", "19/11/2026"));
  EXPECT_THAT(Pagina(users, file), HasSubstr("<a href=\"file:///foto.jpg\" target=\"_blank\">VER FOTO</a>"));
  Pagina(points, file);
  EXPECT_THAT(asked, ElementsAre("Imágenes INI 6", "Imágenes HST 7"));
}

TEST(DocumentoID, OneNotInUseIsListedToo) {
  RegistroFicha ficha = Registro("UNO", "19/11/2026");
  ficha.EnUso = false;
  EXPECT_EQ(Puntos(Encoded(ficha))[0], FilaPuntos("UNO", "19/11/2026"));
}

TEST(DocumentoID, ADiskThatIsFullIsTold) {
  MemoryDisk disk;
  disk.Put("ID", kBlanco);
  EXPECT_EQ(EscribirDocumentoID(De(Documento::kNuevos), Register<RegistroFicha>(disk, "ID", OpenMode::kRead),
                                test::Lleno())
                .Error(),
            ENOSPC);
}

}  // namespace
}  // namespace vintoral
