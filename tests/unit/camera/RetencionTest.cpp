// Photos older than the site keeps them go; those of whoever is inside, and everything younger, stay.
#include "camera/Retencion.h"

#include <gtest/gtest.h>

#include "support/MemoryStation.h"
#include "support/Photos.h"
#include "support/Registers.h"

namespace vintoral {
namespace {

using test::At;
using test::Encoded;
using test::MemoryDisk;
using test::MemoryStation;

const String kHst = "Multimedia\\Imágenes HST\\"_w;
const String kDtl = "Multimedia\\Imágenes DTL\\"_w;

TEST(PlazosDe, AreDaysAndNothingElse) {
  const PlazosFotos plazos =
      PlazosDe("; x\r\nDiasFotosSalida = 30\r\nDiasFotosAdicionales=-3\r\nDiasFotosUsuarios = 99999999\r\n");
  EXPECT_EQ(plazos.salida, 30);
  EXPECT_EQ(plazos.adicionales, 0);
  EXPECT_EQ(plazos.usuarios, 0);
  EXPECT_FALSE(plazos.Ninguno());
  EXPECT_TRUE(PlazosDe("").Ninguno());
}

TEST(LeerPlazos, TheFileIsMadeWithNothingToDelete) {
  MemoryDisk disk;
  disk.Put("Objetos\\x", "");
  EXPECT_TRUE(LeerPlazos(disk).Ninguno());
  ASSERT_TRUE(disk.Exists("Objetos\\Retencion.INI"));
  disk.Put("Objetos\\Retencion.INI", "DiasFotosUsuarios = 7");
  EXPECT_EQ(LeerPlazos(disk).usuarios, 7);
}

TEST(MomentoDeCarpeta, IsThatOfAFinalNameAlone) {
  EXPECT_EQ(MomentoDeCarpeta("ABC P01 20-11-2026 140530"), At(14, 5, 30));
  EXPECT_EQ(MomentoDeCarpeta(" P02 20-11-2026 000000"), At(0, 0));
  for (const std::string_view name :
       {"ABC0007", "ABC P01 20-11-2026 14053", "ABC P01 31-02-2026 140530", "ABC X01 20-11-2026 140530",
        "ABC P01 20-11-2026 240530", "ABC P01 20.11-2026 140530", ""})
    EXPECT_EQ(MomentoDeCarpeta(name), std::nullopt) << name;
}

/// It is the 20th of November, 14:00. Rows of the history: 2 of the 1st, 3 of the 10th, 4 of the 19th.
class RetencionTest : public testing::Test {
 protected:
  RetencionTest() {
    std::string rows = Encoded(RegistroFicha{});
    for (const auto& [plate, day] : {std::pair{"OLD", 1}, {"MID", 10}, {"NEW", 19}}) {
      RegistroFicha row;
      row.EnUso = true;
      row.Placa = plate;
      row.MarcaSalida = StampOf(At(14, 0, 0, day));
      rows += Encoded(row);
    }
    station_.StartConnected();
    station_.Disk.Put("Multimedia\\Vintoral.HST", rows);
    for (int i = 1; i <= 5; ++i)
      station_.Disk.Put(kHst + "00000"_w + String(std::to_string(i)) + ".jpg"_w, "photo");
  }
  void Keep(const std::string& days) { station_.Disk.Put("Objetos\\Retencion.INI", days); }
  /// The next day begins, and a minute of it passes.
  void NextDay() {
    station_.Clock.Set(At(14, 0, 0, 21));
    station_.Pass(60'000);
  }
  bool There(const String& path) const { return station_.Disk.Exists(path); }
  std::string Rows() const {
    std::string rows;
    for (int i = 1; i <= 5; ++i)
      rows += There(kHst + "00000"_w + String(std::to_string(i)) + ".jpg"_w) ? '1' : '0';
    return rows;
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(RetencionTest, NothingGoesUnlessTheSiteSaysSo) {
  NextDay();
  EXPECT_EQ(Rows(), "11111");
  EXPECT_TRUE(There("Objetos\\Retencion.INI"_w));
}

TEST_F(RetencionTest, PhotosOfExitsLongerAgoGo) {
  Keep("DiasFotosSalida = 5");
  station_.Disk.SetReadOnly(kHst + "000002.jpg"_w);
  NextDay();
  // Row 5 is none yet; row 1 is the blank one.
  EXPECT_EQ(Rows(), "10011");
}

TEST_F(RetencionTest, ADayLessIsKept) {
  // On the 21st at 14:00 the row of the 10th at 14:00 is 11 days old, and not longer.
  Keep("DiasFotosSalida = 11");
  station_.Clock.Set(At(14, 0, 0, 21));
  form_.TmrHorario_Timer();
  for (int i = 0; i < 20; ++i)
    form_.TmrHorario_Timer();
  EXPECT_EQ(Rows(), "10111");
}

TEST_F(RetencionTest, FoldersOfAdditionalPhotosGoByTheirName) {
  Keep("DiasFotosAdicionales = 5");
  for (const std::string_view name :
       {"OLD P01 01-11-2026 140000", "NEW P01 19-11-2026 140000", "ABC0007", "OLD P01 01-11-2026"})
    station_.Disk.Put(kDtl + String(name) + "\\0007-1.jpg"_w, "photo");
  NextDay();
  EXPECT_FALSE(station_.Disk.HasFolder(kDtl + "OLD P01 01-11-2026 140000"_w));
  EXPECT_TRUE(There(kDtl + "NEW P01 19-11-2026 140000\\0007-1.jpg"_w));
  EXPECT_TRUE(There(kDtl + "ABC0007\\0007-1.jpg"_w));
  EXPECT_TRUE(There(kDtl + "OLD P01 01-11-2026\\0007-1.jpg"_w));
  EXPECT_EQ(Rows(), "11111");
}

TEST_F(RetencionTest, AFichaInsideWhosePlateLooksLikeAFinalNameKeepsItsFolder) {
  Keep("DiasFotosAdicionales = 5");
  RegistroFicha inside;
  inside.EnUso = true;
  inside.Placa = "X P01 01-01-2000 14";
  station_.PutSlot(5, inside);
  for (const std::string_view name : {"X P01 01-01-2000 140005", "X P01 01-01-2000 140006"})
    station_.Disk.Put(kDtl + String(name) + "\\x.jpg"_w, "photo");
  NextDay();
  EXPECT_TRUE(There(kDtl + "X P01 01-01-2000 140005\\x.jpg"_w));
  EXPECT_FALSE(There(kDtl + "X P01 01-01-2000 140006\\x.jpg"_w));
}

TEST_F(RetencionTest, ARowOfAClockThatWasWrongKeepsNoOthers) {
  Keep("DiasFotosSalida = 5");
  RegistroFicha ahead;
  ahead.MarcaSalida = "14:00  (01/01/2099)";
  test::PutRecord(station_.Disk, "Multimedia\\Vintoral.HST", 2, ahead);
  NextDay();
  EXPECT_EQ(Rows(), "11011");
}

TEST_F(RetencionTest, PhotosOfUsersWhoWereNotSeenSinceGo) {
  Keep("DiasFotosUsuarios = 15");
  station_.Enter("7", "in");
  std::string users;
  for (const char* plate : {"OLD", "MID", "NEW", "IN", "NEVER"}) {
    RegistroUsuario user;
    user.Placa = plate;
    users += Encoded(user);
  }
  station_.Disk.Put(test::kUsr, users);
  for (int i = 1; i <= 5; ++i) {
    station_.Disk.Put("Multimedia\\Imágenes USR\\00000"_w + String(std::to_string(i)) + ".jpg"_w, "photo");
    station_.Disk.Put("Multimedia\\Imágenes INI\\00000"_w + String(std::to_string(i)) + ".jpg"_w, "photo");
  }
  NextDay();
  for (const String& folder : {"Multimedia\\Imágenes USR\\00000"_w, "Multimedia\\Imágenes INI\\00000"_w}) {
    std::string there;
    for (int i = 1; i <= 5; ++i)
      there += There(folder + String(std::to_string(i)) + ".jpg"_w) ? '1' : '0';
    EXPECT_EQ(there, "01110");
  }
}

TEST_F(RetencionTest, WhereTheHistoryCantBeReadNobodysPhotoGoes) {
  Keep("DiasFotosUsuarios = 15");
  RegistroUsuario user;
  user.Placa = "NEVER";
  station_.Disk.Put(test::kUsr, Encoded(user));
  station_.Disk.Put("Multimedia\\Imágenes USR\\000001.jpg"_w, "photo");
  station_.Disk.Remove("Multimedia\\Vintoral.HST").PassOver();
  NextDay();
  EXPECT_TRUE(There("Multimedia\\Imágenes USR\\000001.jpg"_w));
}

TEST_F(RetencionTest, IsDoneOnceADay) {
  Keep("DiasFotosSalida = 5");
  NextDay();
  station_.Disk.Put(kHst + "000002.jpg"_w, "again");
  station_.Pass(60'000);
  EXPECT_EQ(Rows(), "11011");
}

TEST_F(RetencionTest, WaitsWhileAFichaIsUnderWay) {
  Keep("DiasFotosSalida = 5");
  station_.TypeAndEnter("7");
  NextDay();
  EXPECT_EQ(Rows(), "11111");
  station_.Hands.Key(keys::kEscape, 0);
  station_.Pass(60'000);
  EXPECT_EQ(Rows(), "10011");
}

TEST_F(RetencionTest, IsTheMainGatesAlone) {
  Keep("DiasFotosSalida = 5");
  form_.EsCliente = -1;
  NextDay();
  EXPECT_EQ(Rows(), "11111");
}

TEST_F(RetencionTest, OneTickDoesNoMoreThanASlice) {
  Keep("DiasFotosSalida = 5");
  std::string rows;
  RegistroFicha row;
  row.MarcaSalida = StampOf(At(14, 0, 0, 1));
  for (int i = 1; i <= 450; ++i)
    rows += Encoded(row);
  station_.Disk.Put("Multimedia\\Vintoral.HST", rows);
  for (const std::string_view name : {"000200", "000201", "000401"})
    station_.Disk.Put(kHst + String(name) + ".jpg"_w, "photo");
  station_.Clock.Set(At(14, 0, 0, 21));
  form_.TmrHorario_Timer();
  EXPECT_FALSE(There(kHst + "000200.jpg"_w));
  EXPECT_TRUE(There(kHst + "000201.jpg"_w));
  form_.TmrHorario_Timer();
  EXPECT_FALSE(There(kHst + "000201.jpg"_w));
  EXPECT_TRUE(There(kHst + "000401.jpg"_w));
  form_.TmrHorario_Timer();
  EXPECT_FALSE(There(kHst + "000401.jpg"_w));
}

}  // namespace
}  // namespace vintoral
