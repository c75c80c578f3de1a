// Password and selection on disk, and what the lock refuses.
#include <gtest/gtest.h>

#include <random>

#include "safety/form7/Form7.h"
#include "unit/safety/Bloqueos.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::ExtWith;
using test::Hex;
using test::kExt;
using test::kLockAt;
using test::LockFields;
using test::Locking;
using test::LockRecord;
using test::MemoryStation;
using test::Zeros;

const std::string kNone(18, '0');

class ContrasenaTest : public testing::Test {
 protected:
  ContrasenaTest() {
    station_.Disk.Put("Recursos\\x", "");
    // As no start leaves them: what is loaded must be seen to be loaded.
    form_.ContraseñaActual = "99999"_w;
    form_.FuncionesBloqueadas = "111"_w;
  }
  void Load(const std::string& ext) {
    station_.Disk.Put(kExt, ext);
    Sign().Visible = false;
    form_.CargarContraseña();
  }
  void ExpectNoLock(const std::string& why = "") const {
    EXPECT_EQ(form_.ContraseñaActual, ""_w) << why;
    EXPECT_EQ(form_.FuncionesBloqueadas.Bytes(), kNone) << why;
    EXPECT_FALSE(form_.ImgIndicador[indicador::kBloqueo].Visible) << why;
  }
  Image& Sign() { return form_.ImgIndicador[indicador::kBloqueo]; }
  std::string Ext() const { return station_.Disk.Get(kExt); }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

// ---- Loading
// ---------------------------------------------------------------------------------------------

TEST_F(ContrasenaTest, ANewInstallationHasAnEmptyLockBehindFiveThousandSales) {
  const std::string record = Hex("08 00 00 00  08 00 12 00") + std::string(18, '0') +
                             Hex("00 00  00 00 00 00 00 00 00 00  FF FF  00 00") + Zeros(6);
  ASSERT_FALSE(station_.Disk.Exists(kExt));
  form_.CargarContraseña();
  EXPECT_EQ(Ext(), ListaExtrasEnBlanco().Bytes() + record);
  EXPECT_EQ(Ext().size(), 5001u * 46);
  ExpectNoLock();
  station_.Disk.Put(kExt, "");
  form_.CargarContraseña();
  EXPECT_EQ(Ext(), ListaExtrasEnBlanco().Bytes() + record);
}

TEST_F(ContrasenaTest, PasswordAndSelectionComeUpLocked) {
  ASSERT_FALSE(Sign().Visible);
  Load(ExtWith("12345", Locking(17)));
  EXPECT_EQ(form_.ContraseñaActual, "12345"_w);
  EXPECT_EQ(form_.FuncionesBloqueadas, "000000000000000010"_w);
  EXPECT_TRUE(Sign().Visible);
  EXPECT_EQ(Ext(), ExtWith("12345", Locking(17)));
}

TEST_F(ContrasenaTest, OneWithoutTheOtherLocksNothing) {
  Load(ExtWith("12345", kNone));
  EXPECT_EQ(form_.ContraseñaActual, "12345"_w);
  EXPECT_FALSE(Sign().Visible);
  Load(ExtWith("", Locking(1)));
  EXPECT_EQ(form_.ContraseñaActual, ""_w);
  EXPECT_EQ(form_.FuncionesBloqueadas.Bytes(), Locking(1));
  EXPECT_FALSE(Sign().Visible);
}

TEST_F(ContrasenaTest, SeventeenDigitsAreReadAsEighteen) {
  Load(ExtWith("12345", "01000000000000001"));
  EXPECT_EQ(form_.FuncionesBloqueadas, "010000000000000010"_w);
}

TEST_F(ContrasenaTest, DigitsAreCountedWithoutTheBlanksAround) {
  Load(ExtWith("12345", "1"));
  EXPECT_EQ(form_.FuncionesBloqueadas, "100000000000000000"_w);
  Load(ExtWith("12345", " 1  "));
  // Four digits from the 1 on, and fourteen more.
  EXPECT_EQ(form_.FuncionesBloqueadas, " 1  000000000000000"_w);
}

TEST_F(ContrasenaTest, WithoutASelectionThereIsNoPasswordEither) {
  Load(ExtWith("12345", ""));
  ExpectNoLock();
}

TEST_F(ContrasenaTest, AListThatASaleLaidOutHasNoLock) {
  Load(ListaExtrasEnBlanco().Bytes());
  ExpectNoLock();
  EXPECT_EQ(Ext(), ListaExtrasEnBlanco().Bytes());
}

TEST_F(ContrasenaTest, ARecordCutAtAnyByteGivesWhatThereIsOfIt) {
  const std::string whole = ExtWith("12345", Locking(2));
  // The selection begins behind 4 and 5 bytes of password and 4 of its own.
  constexpr std::size_t kFirstDigit = 13;
  for (std::size_t length = 0; length < 46; ++length) {
    Load(whole.substr(0, kLockAt + length));
    if (length <= 11) {
      ExpectNoLock(std::to_string(length));
    } else {
      EXPECT_EQ(form_.ContraseñaActual, "12345"_w) << length;
      EXPECT_EQ(Sign().Visible, length > kFirstDigit + 1) << length;
    }
    EXPECT_GE(form_.FuncionesBloqueadas.Size(), 18u) << length;
    EXPECT_EQ(Ext().size(), kLockAt + length);
  }
  for (const std::size_t length : {1u, 45u, 4096u, 229'999u}) {
    Load(whole.substr(0, length));
    ExpectNoLock(std::to_string(length));
  }
}

TEST_F(ContrasenaTest, AnyBytesAreALockThatTheKeypadCanOpen) {
  std::mt19937 dice(7);
  for (int round = 0; round < 3000; ++round) {
    std::string record = LockRecord("12345", Locking(3));
    for (int damaged = 0; damaged < 3; ++damaged)
      record[dice() % 46] = static_cast<char>(dice());
    Load(ListaExtrasEnBlanco().Bytes() + record);
    const std::string password = form_.ContraseñaActual.Bytes();
    ASSERT_LE(password.size(), 5u);
    ASSERT_EQ(password.find_first_not_of("0123456789"), std::string::npos);
    ASSERT_GE(form_.FuncionesBloqueadas.Size(), 18u);
  }
}

TEST_F(ContrasenaTest, APasswordThatNobodyCanTypeIsNone) {
  for (const char* password : {"123456", "1234a", " 1234"}) {
    Load(ExtWith(password, Locking(3)));
    EXPECT_EQ(form_.ContraseñaActual, ""_w) << password;
    EXPECT_FALSE(Sign().Visible) << password;
  }
}

TEST_F(ContrasenaTest, AFileThatCannotBeReadLocksNothingAndSaysNothing) {
  station_.Disk.Put(kExt, ExtWith("12345", Locking(1)));
  for (const test::Faults& faults :
       {test::Faults{.failRead = 1}, test::Faults{.failLength = true}, test::Faults{.goneAfter = 0}}) {
    station_.Faulty.Set() = faults;
    form_.CargarContraseña();
    ExpectNoLock();
  }
  station_.Faulty.Set() = {.openReadOnly = true};
  form_.CargarContraseña();
  EXPECT_TRUE(Sign().Visible);
  EXPECT_TRUE(station_.Boxes.empty());
}

TEST_F(ContrasenaTest, AFullDiskStartsWithoutALock) {
  station_.Faulty.Set().failAllWrites = true;
  form_.CargarContraseña();
  ExpectNoLock();
  EXPECT_FALSE(station_.Disk.Exists(kExt));
}

TEST_F(ContrasenaTest, TheStartLoadsIt) {
  station_.Disk.Put(kExt, ExtWith("12345", Locking(4)));
  station_.Start();
  EXPECT_TRUE(Sign().Visible);
  EXPECT_EQ(Sign().ToolTipText, " Bloqueo de Funciones (Activado) "_w);
  EXPECT_EQ(form_.ContraseñaActual, "12345"_w);
}

// ---- Storing
// ---------------------------------------------------------------------------------------------

class CopiarTest : public ContrasenaTest {
 protected:
  CopiarTest() {
    form_.ContraseñaActual = {};
    station_.Form.OpenForms.Load(std::make_unique<Form7>(form_));
    form_.ContraseñaActual = "54321"_w;
    form_.FuncionesBloqueadas = "01000000000000001"_w;
  }
};

TEST_F(CopiarTest, OnlyTheFieldsOfItsOwnRecordChange) {
  std::string before = ExtWith("12345", Locking(1));
  for (std::size_t i = 0; i < kLockAt; i += 46)
    before[i + 5] = 'x';
  before.replace(kLockAt, 46, std::string(46, '\x7F'));
  station_.Disk.Put(kExt, before);
  form_.CopiarContraseña();
  // 4 + 5 + 4 + 17 + 2 + 8 + 2 + 2 of 46.
  EXPECT_EQ(Ext(), before.substr(0, kLockAt) + LockFields("54321", "01000000000000001") + Hex("7F 7F"));
  EXPECT_EQ(station_.Disk.Syncs(), 1);
}

TEST_F(CopiarTest, TheMarkStaysAsItStood) {
  std::string record = LockRecord("12345", Locking(1));
  record.replace(9 + 22, 2, Hex("FF FF"));
  station_.Disk.Put(kExt, ListaExtrasEnBlanco().Bytes() + record);
  form_.CopiarContraseña();
  EXPECT_EQ(Ext().substr(kLockAt + 9 + 21, 2), Hex("FF FF"));
}

TEST_F(CopiarTest, LaysTheFileOutWhereThereIsNone) {
  ASSERT_FALSE(station_.Disk.Exists(kExt));
  form_.CopiarContraseña();
  EXPECT_EQ(Ext(), ExtWith("54321", "01000000000000001"));
  station_.Disk.Put(kExt, "");
  form_.CopiarContraseña();
  EXPECT_EQ(Ext(), ExtWith("54321", "01000000000000001"));
}

TEST_F(CopiarTest, FillsACutListWithBlankSales) {
  const std::string whole = ExtWith("12345", Locking(1));
  for (const std::size_t length : {46u, 4600u, 230'000u, 230'020u}) {
    station_.Disk.Put(kExt, whole.substr(0, length));
    form_.CopiarContraseña();
    EXPECT_EQ(Ext(), ExtWith("54321", "01000000000000001")) << length;
  }
}

TEST_F(CopiarTest, AReadOnlyFileIsWrittenAllTheSame) {
  station_.Disk.Put(kExt, ExtWith("12345", Locking(1)));
  station_.Disk.SetReadOnly(kExt);
  form_.CopiarContraseña();
  EXPECT_EQ(Ext(), ExtWith("54321", "01000000000000001"));
}

TEST_F(CopiarTest, AFileThatCannotBeOpenedLeavesTheSignAsItIs) {
  station_.Disk.Put(kExt, ExtWith("12345", Locking(1)));
  for (const bool before : {false, true}) {
    Sign().Visible = before;
    station_.Faulty.Set() = {.openReadOnly = true};
    form_.CopiarContraseña();
    EXPECT_EQ(Sign().Visible, before);
  }
  EXPECT_EQ(Ext(), ExtWith("12345", Locking(1)));
  EXPECT_TRUE(station_.Boxes.empty());
}

TEST_F(CopiarTest, WhatTheDiskRefusesIsLockedForThisRun) {
  station_.Disk.Put(kExt, ExtWith("12345", Locking(1)));
  ASSERT_FALSE(Sign().Visible);
  station_.Faulty.Set() = {.failAllWrites = true};
  form_.CopiarContraseña();
  EXPECT_TRUE(Sign().Visible);
  EXPECT_EQ(Ext(), ExtWith("12345", Locking(1)));
}

TEST_F(CopiarTest, TheSignNeedsTabPasswordAndSelection) {
  station_.Disk.Put(kExt, ExtWith("", kNone));
  for (const bool locking : {false, true}) {
    for (const char* password : {"", "54321"}) {
      for (const std::string& functions : {kNone, Locking(9)}) {
        form_.Form7->LblFuncion[Form7::kBloquear].BackColor =
            locking ? Form7::kPestanaActiva : Form7::kOtraPestana;
        form_.ContraseñaActual = String(std::string_view(password));
        form_.FuncionesBloqueadas = String(functions);
        const bool expected = locking && *password != '\0' && functions != kNone;
        Sign().Visible = !expected;
        form_.CopiarContraseña();
        EXPECT_EQ(Sign().Visible, expected) << locking << password << functions;
      }
    }
  }
}

// ---- Refusing
// ---------------------------------------------------------------------------------------------

TEST(ExisteFuncion, DeniesWhenAllFourHold) {
  MemoryStation station;
  for (int mask = 0; mask < 16; ++mask) {
    station.Form.ContraseñaActual = (mask & 1) != 0 ? "12345"_w : ""_w;
    const std::uint8_t bit = (mask & 2) != 0 ? 1 : 0;
    const bool skip = (mask & 4) != 0;
    station.Form.ImgIndicador[indicador::kBloqueo].Visible = (mask & 8) != 0;
    const bool denied = mask == (1 | 2 | 8);
    station.Boxes.clear();
    station.Answers = denied ? std::deque<Answer>{Answer::kOk} : std::deque<Answer>{};
    EXPECT_EQ(station.Form.ExisteFuncion(bit, skip), !denied) << mask;
    EXPECT_EQ(station.Boxes.size(), denied ? 1u : 0u) << mask;
  }
  station.Answers = {Answer::kOk};
  station.Form.ContraseñaActual = "1"_w;
  station.Form.ImgIndicador[indicador::kBloqueo].Visible = true;
  EXPECT_TRUE(station.Form.ExisteFuncion(2, false));
  EXPECT_FALSE(station.Form.ExisteFuncion(1, false));
  EXPECT_EQ(station.Boxes.back().title, "Vintoral - Acceso Denegado"_w);
  EXPECT_EQ(station.Boxes.back().text, "Esta función ha sido bloqueada por el administrador."_w);
  EXPECT_EQ(station.Boxes.back().icon, Icon::kExclamation);
}

TEST(Permite, ReadsTheDigitOfThePosition) {
  MemoryStation station;
  station.Form.ContraseñaActual = "12345"_w;
  station.Form.ImgIndicador[indicador::kBloqueo].Visible = true;
  station.Form.FuncionesBloqueadas = "1x2 1"_w;
  station.Answers = {Answer::kOk, Answer::kOk};
  EXPECT_TRUE(station.Form.Permite(0));
  EXPECT_FALSE(station.Form.Permite(1));
  for (const int position : {2, 3, 4, 6, 18, 100})
    EXPECT_TRUE(station.Form.Permite(position)) << position;
  EXPECT_FALSE(station.Form.Permite(5));
}

}  // namespace
}  // namespace vintoral
