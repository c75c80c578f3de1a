#include "reports/Busqueda.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::MemoryDisk;
using testing::ElementsAre;
using testing::IsEmpty;

/// The whole of the 20th of November 2026.
Criterios UnDia() {
  Criterios criterios;
  criterios.desdeHora = "00:00"_w;
  criterios.desdeFecha = "20/11/2026"_w;
  criterios.hastaHora = "23:59"_w;
  criterios.hastaFecha = "20/11/2026"_w;
  return criterios;
}

/// Gone on that day.
RegistroFicha Salida(std::string_view marca = "14:05  (20/11/2026)") {
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.MarcaEntrada = "08:00  (19/11/2026)";
  ficha.MarcaSalida = marca;
  ficha.NumeroFicha = "0007";
  ficha.Placa = "ABC123";
  ficha.Nombre = "JUAN";
  ficha.Apellido =
      "NU\xD1"
      "EZ";
  ficha.Telefono = "3001234567";
  ficha.Observacion = " con casco ";
  ficha.Categoria = "AUTOMOVIL";
  ficha.PorteriaSalida = "01";
  return ficha;
}

bool Cumple(const Criterios& criterios, const RegistroFicha& ficha,
            SelloBuscado sello = SelloBuscado::kSalida) {
  PruebaRegistro prueba(criterios);
  const auto bytes = ficha.Encode();
  const std::optional<std::int32_t> fecha = prueba.Fecha(bytes, sello);
  return fecha && prueba.Cumple(bytes, sello, *fecha);
}

TEST(PruebaRegistro, TheStampLiesInTheRange) {
  EXPECT_TRUE(Cumple(UnDia(), Salida()));
  EXPECT_TRUE(Cumple(UnDia(), Salida("00:00  (20/11/2026)")));
  EXPECT_TRUE(Cumple(UnDia(), Salida("23:59  (20/11/2026)")));
  EXPECT_FALSE(Cumple(UnDia(), Salida("23:59  (19/11/2026)")));
  EXPECT_FALSE(Cumple(UnDia(), Salida("00:00  (21/11/2026)")));
}

TEST(PruebaRegistro, DatesAreComparedByYearMonthAndDay) {
  Criterios criterios = UnDia();
  criterios.desdeFecha = "30/11/2025"_w;
  criterios.hastaFecha = "01/02/2026"_w;
  EXPECT_TRUE(Cumple(criterios, Salida("14:05  (30/11/2025)")));
  EXPECT_TRUE(Cumple(criterios, Salida("14:05  (31/01/2026)")));
  EXPECT_TRUE(Cumple(criterios, Salida("14:05  (01/02/2026)")));
  EXPECT_FALSE(Cumple(criterios, Salida("14:05  (29/11/2025)")));
  EXPECT_FALSE(Cumple(criterios, Salida("14:05  (02/02/2026)")));
  EXPECT_FALSE(Cumple(criterios, Salida("14:05  (15/12/2026)")));
}

TEST(PruebaRegistro, DateAndTimeAreTestedApart) {
  Criterios criterios = UnDia();
  criterios.hastaFecha = "22/11/2026"_w;
  criterios.desdeHora = "08:30"_w;
  criterios.hastaHora = "10:15"_w;
  EXPECT_TRUE(Cumple(criterios, Salida("08:30  (20/11/2026)")));
  EXPECT_TRUE(Cumple(criterios, Salida("10:15  (22/11/2026)")));
  EXPECT_FALSE(Cumple(criterios, Salida("08:29  (21/11/2026)")));
  EXPECT_FALSE(Cumple(criterios, Salida("10:16  (21/11/2026)")));
  // No time of day is both from 22:00 and to 06:00.
  criterios.desdeHora = "22:00"_w;
  criterios.hastaHora = "06:00"_w;
  for (const std::string_view marca : {"23:00  (20/11/2026)", "05:00  (21/11/2026)", "12:00  (21/11/2026)"})
    EXPECT_FALSE(Cumple(criterios, Salida(marca))) << marca;
}

TEST(PruebaRegistro, TheStampOfTheEntryForFichasInside) {
  RegistroFicha ficha = Salida("??");
  ficha.MarcaEntrada = "14:05  (20/11/2026)";
  EXPECT_TRUE(Cumple(UnDia(), ficha, SelloBuscado::kEntrada));
  EXPECT_FALSE(Cumple(UnDia(), ficha, SelloBuscado::kSalida));
  EXPECT_FALSE(Cumple(UnDia(), Salida(), SelloBuscado::kEntrada));
}

TEST(PruebaRegistro, AStampThatIsNoneIsNoMatch) {
  Criterios all = UnDia();
  all.desdeFecha = "01/01/0001"_w;
  all.hastaFecha = "31/12/9999"_w;
  ASSERT_TRUE(Cumple(all, Salida()));
  for (const std::string_view marca :
       {"", "??", "14:05", "14:05  (31/02/2026)", "14:05  (00/11/2026)", "14:05  (20/13/2026)",
        "24:00  (20/11/2026)", "12:60  (20/11/2026)", "1a:05  (20/11/2026)", "a1:05  (20/11/2026)",
        "14:a5  (20/11/2026)", "14:0a  (20/11/2026)", "14.05  (20/11/2026)", " 4:05  (20/11/2026)",
        "14:05 (20/11/2026)", "14:05  (20-11-2026)", "14:05  (20/11/0000)"})
    EXPECT_FALSE(Cumple(all, Salida(marca))) << marca;
  RegistroFicha zeros = Salida();
  zeros.MarcaSalida = std::string("14:05") + std::string(15, '\0');
  EXPECT_FALSE(Cumple(all, zeros));
}

TEST(PruebaRegistro, ReadsAStampAsTheRestOfTheStationDoes) {
  EXPECT_TRUE(Cumple(UnDia(), Salida("14:05xx{20/11/2026}x")));  // what stands around it doesn't count
  Criterios criterios = UnDia();
  criterios.desdeFecha = criterios.hastaFecha = "02/01/2026"_w;
  EXPECT_TRUE(Cumple(criterios, Salida("14:05  ( 2/01/2026)")));
}

TEST(PruebaRegistro, ADayOfOneDigitMayBeTyped) {
  Criterios criterios = UnDia();
  criterios.desdeFecha = " 2/1/2026 "_w;
  criterios.hastaFecha = "02/01/2026"_w;
  criterios.desdeHora = " 8:05 "_w;
  EXPECT_TRUE(Cumple(criterios, Salida("08:05  (02/01/2026)")));
  EXPECT_FALSE(Cumple(criterios, Salida("08:04  (02/01/2026)")));
}

TEST(PruebaRegistro, ABoxThatHoldsNoDateFindsNothing) {
  ASSERT_TRUE(PruebaRegistro(UnDia()).RangoLegible());
  for (const String& wrong : {""_w, "  "_w, "ayer"_w, "31/02/2026"_w, "20/11/26"_w, "20/11/2026 10:00"_w}) {
    Criterios from = UnDia(), to = UnDia();
    from.desdeFecha = wrong;
    to.hastaFecha = wrong;
    EXPECT_FALSE(PruebaRegistro(from).RangoLegible()) << wrong.Bytes();
    EXPECT_FALSE(PruebaRegistro(to).RangoLegible()) << wrong.Bytes();
    EXPECT_FALSE(Cumple(from, Salida()));
    EXPECT_FALSE(Cumple(to, Salida()));
  }
  for (const String& wrong : {""_w, "24:00"_w, "8"_w, "x"_w}) {
    Criterios from = UnDia(), to = UnDia();
    from.desdeHora = wrong;
    to.hastaHora = wrong;
    EXPECT_FALSE(Cumple(from, Salida())) << wrong.Bytes();
    EXPECT_FALSE(Cumple(to, Salida())) << wrong.Bytes();
  }
}

bool ConFicha(const String& ficha, std::string_view numero = "0007") {
  Criterios criterios = UnDia();
  criterios.ficha = ficha;
  RegistroFicha registro = Salida();
  registro.NumeroFicha = numero;
  return Cumple(criterios, registro);
}

TEST(PruebaRegistro, TheNumberIsFilledWithZeros) {
  EXPECT_TRUE(ConFicha(""_w));
  EXPECT_TRUE(ConFicha("7"_w));
  EXPECT_TRUE(ConFicha(" 07 "_w));
  EXPECT_TRUE(ConFicha("0007"_w));
  EXPECT_FALSE(ConFicha("8"_w));
  EXPECT_FALSE(ConFicha("70"_w));
  EXPECT_FALSE(ConFicha("7"_w, "0070"));
  EXPECT_FALSE(ConFicha("7"_w, "1007"));
  EXPECT_FALSE(ConFicha("00007"_w));
  EXPECT_TRUE(ConFicha("1234"_w, "1234"));
  EXPECT_FALSE(ConFicha("7"_w, ""));
}

bool ConCampo(std::size_t campo, const String& texto) {
  Criterios criterios = UnDia();
  criterios.campos[campo] = texto;
  return Cumple(criterios, Salida());
}

TEST(PruebaRegistro, EachTextIsAPartOfItsOwnField) {
  EXPECT_TRUE(ConCampo(0, "C12"_w));
  EXPECT_TRUE(ConCampo(1, "ua"_w));
  EXPECT_TRUE(ConCampo(2, "uñez"_w));
  EXPECT_TRUE(ConCampo(3, "4567"_w));
  EXPECT_TRUE(ConCampo(4, "N CAS"_w));
  for (const std::size_t other : {1U, 2U, 3U, 4U})
    EXPECT_FALSE(ConCampo(other, "ABC123"_w)) << other;
  EXPECT_FALSE(ConCampo(0, "JUAN"_w));
}

TEST(PruebaRegistro, AnIsInJuanAndInAna) {
  Criterios criterios = UnDia();
  criterios.campos[1] = "AN"_w;
  RegistroFicha ficha = Salida();
  for (const std::string_view name : {"JUAN", "ANA", "ana", "  juAn",
                                      "01234567890123456"
                                      "7AN"}) {
    ficha.Nombre = name;
    EXPECT_TRUE(Cumple(criterios, ficha)) << name;
  }
  for (const std::string_view name : {"", "NA", "A N",
                                      "012345678901234567"
                                      "8A"}) {
    ficha.Nombre = name;
    EXPECT_FALSE(Cumple(criterios, ficha)) << name;
  }
}

TEST(PruebaRegistro, ABeginningThatGoesOnOtherwiseIsPassedOver) {
  Criterios criterios = UnDia();
  criterios.campos[1] = "AAB"_w;
  RegistroFicha ficha = Salida();
  ficha.Nombre = "AAAB";
  EXPECT_TRUE(Cumple(criterios, ficha));
  ficha.Nombre = "AAAC";
  EXPECT_FALSE(Cumple(criterios, ficha));
}

TEST(PruebaRegistro, BlanksAroundATextDoNotCountAndThoseInItDo) {
  EXPECT_TRUE(ConCampo(1, "   "_w));
  EXPECT_TRUE(ConCampo(1, " AN "_w));
  EXPECT_TRUE(ConCampo(4, "con casco"_w));
  EXPECT_FALSE(ConCampo(4, "con  casco"_w));
}

TEST(PruebaRegistro, ATextLongerThanTheFieldIsInNone) {
  RegistroFicha ficha = Salida();
  ficha.Nombre = "01234567890123456789";
  Criterios criterios = UnDia();
  criterios.campos[1] = "01234567890123456789"_w;
  EXPECT_TRUE(Cumple(criterios, ficha));
  criterios.campos[1] = "012345678901234567890"_w;
  EXPECT_FALSE(Cumple(criterios, ficha));
}

TEST(PruebaRegistro, TheCategoryIsTheWholeOne) {
  const auto with = [](const String& category) {
    Criterios criterios = UnDia();
    criterios.categoria = category;
    return Cumple(criterios, Salida());
  };
  EXPECT_TRUE(with(""_w));
  EXPECT_TRUE(with("AUTOMOVIL"_w));
  EXPECT_TRUE(with(" automovil "_w));
  EXPECT_FALSE(with("AUTO"_w));
  EXPECT_FALSE(with("AUTOMOVILES"_w));
}

TEST(PruebaRegistro, AllCriteriaHoldTogether) {
  Criterios criterios = UnDia();
  criterios.ficha = "7"_w;
  criterios.campos = {"ABC"_w, "JU"_w, "EZ"_w, "300"_w, "CASCO"_w};
  criterios.categoria = "AUTOMOVIL"_w;
  ASSERT_TRUE(Cumple(criterios, Salida()));
  for (String& field : criterios.campos) {
    const String was = std::exchange(field, "ZZ"_w);
    EXPECT_FALSE(Cumple(criterios, Salida()));
    field = was;
  }
  criterios.categoria = "MOTO"_w;
  EXPECT_FALSE(Cumple(criterios, Salida()));
}

// ---- The history
// -------------------------------------------------------------------------------------------

/// A row of the history, told apart by its plate.
std::string Fila(std::string_view placa, std::string_view marca) {
  RegistroFicha ficha = Salida(marca);
  ficha.Placa = placa;
  return Encoded(ficha);
}

std::vector<String> Placas(const std::string& historial, const Criterios& criterios) {
  MemoryDisk disk;
  disk.Put("HST", historial);
  PruebaRegistro prueba(criterios);
  std::vector<String> found;
  EXPECT_TRUE(BuscarHistorial(
      disk, "HST", prueba, [&](const RegistroFicha& ficha) { found.push_back(ficha.Placa.Trimmed()); },
      [](std::int64_t) { return true; }));
  return found;
}

const std::string kBlanco = Encoded(RegistroFicha{});

TEST(BuscarHistorial, NewestFirstDownToRecord2) {
  // A record 1 that is not blank is none all the same.
  const std::string file = Fila("UNO", "10:00  (20/11/2026)") + Fila("DOS", "10:00  (20/11/2026)") +
                           Fila("TRES", "11:00  (20/11/2026)") + Fila("CUATRO", "12:00  (20/11/2026)");
  EXPECT_THAT(Placas(file, UnDia()), ElementsAre("CUATRO"_w, "TRES"_w, "DOS"_w));
}

TEST(BuscarHistorial, AnEmptyOneFindsNothing) {
  EXPECT_THAT(Placas("", UnDia()), IsEmpty());
  EXPECT_THAT(Placas(kBlanco, UnDia()), IsEmpty());
}

TEST(BuscarHistorial, GivesTheRecordWhole) {
  MemoryDisk disk;
  RegistroFicha ficha = Salida();
  ficha.Posicion = 2;
  ficha.ValorCobrado = Money::FromUnits(1500);
  disk.Put("HST", kBlanco + Encoded(ficha));
  PruebaRegistro prueba(UnDia());
  std::vector<RegistroFicha> found;
  EXPECT_TRUE(BuscarHistorial(
      disk, "HST", prueba, [&](const RegistroFicha& match) { found.push_back(match); },
      [](std::int64_t) { return true; }));
  EXPECT_THAT(found, ElementsAre(ficha));
}

TEST(BuscarHistorial, EndsAtTheFirstRecordBeforeTheRange) {
  const std::string file = kBlanco + Fila("ATRAS", "10:00  (20/11/2026)") +
                           Fila("ANTES", "10:00  (19/11/2026)") + Fila("DESPUES", "10:00  (20/11/2026)");
  EXPECT_THAT(Placas(file, UnDia()), ElementsAre("DESPUES"_w));
}

TEST(BuscarHistorial, ALaterDayDoesNotEndIt) {
  const std::string file =
      kBlanco + Fila("HOY", "10:00  (20/11/2026)") + Fila("MANANA", "10:00  (21/11/2026)");
  EXPECT_THAT(Placas(file, UnDia()), ElementsAre("HOY"_w));
}

TEST(BuscarHistorial, AStampThatIsNoDateDoesNotEndIt) {
  const std::string file = kBlanco + Fila("A", "10:00  (20/11/2026)") + Fila("B", "??") +
                           Fila("C", "10:00  (99/99/0001)") + Fila("D", std::string(20, '\0')) +
                           Fila("E", "10:00  (20/11/2026)");
  EXPECT_THAT(Placas(file, UnDia()), ElementsAre("E"_w, "A"_w));
}

TEST(BuscarHistorial, TheSameDateIsReadOnceAndOthersAnew) {
  const std::string file = kBlanco + Fila("A", "10:00  (20/11/2026)") + Fila("B", "10:00  (21/11/2026)") +
                           Fila("C", "10:00  (20/11/2026)") + Fila("D", "10:00  (20/11/2026)");
  EXPECT_THAT(Placas(file, UnDia()), ElementsAre("D"_w, "C"_w, "A"_w));
}

TEST(BuscarHistorial, ATornLastRecordIsNone) {
  const std::string file =
      kBlanco + Fila("A", "10:00  (20/11/2026)") + Fila("B", "10:00  (20/11/2026)").substr(0, 187);
  EXPECT_THAT(Placas(file, UnDia()), ElementsAre("A"_w));
}

TEST(BuscarHistorial, NotInUseCountsToo) {
  RegistroFicha ficha = Salida();
  ficha.EnUso = false;
  EXPECT_THAT(Placas(kBlanco + Encoded(ficha), UnDia()), ElementsAre("ABC123"_w));
}

TEST(BuscarHistorial, TellsHowFarItIsAndEndsWhenToldSo) {
  // 4000 rows are six blocks of 675 records of 188 bytes, the last one smaller.
  std::string file = kBlanco;
  for (int i = 0; i < 4000; ++i)
    file += Fila("X", "10:00  (20/11/2026)");
  MemoryDisk disk;
  disk.Put("HST", file);
  PruebaRegistro prueba(UnDia());
  std::vector<std::int64_t> left;
  std::int64_t found = 0;
  const auto count = [&](const RegistroFicha&) { ++found; };
  EXPECT_TRUE(BuscarHistorial(disk, "HST", prueba, count, [&](std::int64_t rest) {
    left.push_back(rest);
    return true;
  }));
  EXPECT_THAT(left, ElementsAre(3325, 2650, 1975, 1300, 625, 0));
  EXPECT_EQ(found, 4000);
  found = 0;
  EXPECT_TRUE(BuscarHistorial(disk, "HST", prueba, count, [](std::int64_t rest) { return rest > 2000; }));
  EXPECT_EQ(found, 2025);
}

TEST(BuscarHistorial, AnUnreadableRangeReadsNothing) {
  Criterios criterios = UnDia();
  criterios.desdeFecha = "ayer"_w;
  EXPECT_THAT(Placas(kBlanco + Fila("A", "10:00  (20/11/2026)"), criterios), IsEmpty());
}

TEST(BuscarHistorial, ADiskThatFailsIsTold) {
  std::string file = kBlanco;
  for (int i = 0; i < 1000; ++i)
    file += Fila("X", "10:00  (20/11/2026)");
  MemoryDisk memory;
  memory.Put("HST", file);
  test::FaultyDisk disk(memory);
  PruebaRegistro prueba(UnDia());
  std::int64_t found = 0;
  const auto count = [&](const RegistroFicha&) { ++found; };
  disk.Set().failRead = 2;  // 675 records are read at a time
  EXPECT_EQ(BuscarHistorial(disk, "HST", prueba, count, [](std::int64_t) { return true; }).Error(), EIO);
  EXPECT_EQ(found, 675);
  disk.Set().failRead = 1;
  EXPECT_EQ(BuscarActivas(disk, "HST", 1000, prueba, count).Error(), EIO);
  disk.Set().failLength = true;
  EXPECT_FALSE(BuscarHistorial(disk, "HST", prueba, count, [](std::int64_t) { return true; }));
}

TEST(BuscarHistorial, AMissingFileSaysSo) {
  MemoryDisk disk;
  PruebaRegistro prueba(UnDia());
  const auto none = [](const RegistroFicha&) {};
  EXPECT_TRUE(BuscarHistorial(disk, "HST", prueba, none, [](std::int64_t) { return true; }).Missing());
  EXPECT_TRUE(BuscarActivas(disk, "ACT", 1000, prueba, none).Missing());
}

// ---- The slots
// ---------------------------------------------------------------------------------------------

std::string Puesto(std::string_view placa, bool enUso = true) {
  RegistroFicha ficha = Salida("??");
  ficha.EnUso = enUso;
  ficha.MarcaEntrada = "10:00  (20/11/2026)";
  ficha.Placa = placa;
  return Encoded(ficha);
}

std::vector<String> PlacasAdentro(const std::string& puestos, std::int64_t ultima) {
  MemoryDisk disk;
  disk.Put("ACT", puestos);
  PruebaRegistro prueba(UnDia());
  std::vector<String> found;
  EXPECT_TRUE(BuscarActivas(disk, "ACT", ultima, prueba,
                            [&](const RegistroFicha& ficha) { found.push_back(ficha.Placa.Trimmed()); }));
  return found;
}

TEST(BuscarActivas, InTheOrderOfTheSlotsThoseInUse) {
  const std::string file = Puesto("UNO") + Puesto("DOS", false) + Puesto("TRES") + kBlanco + Puesto("CINCO");
  EXPECT_THAT(PlacasAdentro(file, 1000), ElementsAre("UNO"_w, "TRES"_w, "CINCO"_w));
  EXPECT_THAT(PlacasAdentro(file, 4), ElementsAre("UNO"_w, "TRES"_w));
  EXPECT_THAT(PlacasAdentro(file, 0), IsEmpty());
}

}  // namespace
}  // namespace vintoral
