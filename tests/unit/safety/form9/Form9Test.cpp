// The dialog of the panic alert as hands use it, and what it leaves in Vintoral.DAT.
#include "safety/form9/Form9.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "station/form1/Sonidos.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kDat = "Recursos\\Vintoral.DAT";
constexpr std::size_t kRecord = 46;

class Form9Test : public testing::Test {
 protected:
  Form9Test() { station_.StartConnected(); }
  /// Opens the dialog by its keys, does `step`, and leaves it by Esc where it has not been left already.
  void Dialog(const std::function<void()>& step) {
    station_.InDialog = {step, [this] { hands_.Key(keys::kEscape, 0); }};
    hands_.Key('P', keys::kControl | keys::kAlt);
    EXPECT_EQ(form_.Form9, nullptr);
    station_.InDialog.clear();
  }
  void Save() { hands_.Click(form_.Form9->CmdPanico); }
  TextBox& Text(std::size_t index) { return form_.Form9->TxtCall[index]; }
  /// The record of that number, from 1, as it stands on disk.
  std::string Record(std::size_t number) {
    return station_.Disk.Get(kDat).substr((number - 1) * kRecord, kRecord);
  }
  /// What the next start on this disk would read.
  std::array<String, 7> ReadAgain() {
    test::MemoryStation next;
    next.Disk.Put(kDat, station_.Disk.Get(kDat));
    next.Start();
    return next.Form.DatosCall;
  }

  test::MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
};

TEST_F(Form9Test, OpensWithTheValuesTrimmed) {
  form_.DatosCall = {"  ALERTA "_w, "Asalto"_w, "a@a"_w, " b@b"_w, ""_w, "d@d"_w, "e@e  "_w};
  Dialog([this] {
    EXPECT_EQ(form_.OpenForms.Active().Name(), "Form9");
    const std::array<String, 7> shown = {"ALERTA"_w, "Asalto"_w, "a@a"_w, "b@b"_w, ""_w, "d@d"_w, "e@e"_w};
    const std::array<String, 7> labels = {"Asunto "_w,    "Mensaje "_w,   "E-MAIL #1 "_w, "E-MAIL #2 "_w,
                                          "E-MAIL #3 "_w, "E-MAIL #4 "_w, "E-MAIL #5 "_w};
    for (std::size_t i = 0; i < shown.size(); ++i) {
      EXPECT_EQ(Text(i).Text(), shown[i]) << i;
      EXPECT_EQ(form_.Form9->LblCall[i].Caption, labels[i]) << i;
    }
    EXPECT_EQ(form_.Form9->CmdPanico.Caption, "ACTIVAR ALERTA"_w);
    EXPECT_EQ(form_.Form9->Focus(), &Text(0));
  });
  EXPECT_THAT(station_.Heard(), ElementsAre(String(sonido::kClic)));
}

TEST_F(Form9Test, EnterGoesRoundTheTexts) {
  form_.DatosCall[1] = "old"_w;
  Dialog([this] {
    for (std::size_t i = 0; i < 7; ++i) {
      EXPECT_EQ(form_.Form9->Focus(), &Text(i));
      hands_.Key(keys::kEnter, 0);
    }
    EXPECT_EQ(form_.Form9->Focus(), &Text(0));
    hands_.Key(keys::kEnter, 0);
    EXPECT_EQ(Text(1).SelLength, 3u);
    station_.Type("new");  // in place of what is marked
    EXPECT_EQ(Text(1).Text(), "new"_w);
    Text(1).SelectAll();
    hands_.Key(keys::kTab, 0);
    EXPECT_EQ(form_.Form9->Focus(), &Text(2));
    EXPECT_EQ(Text(1).SelLength, 0u);
  });
}

TEST_F(Form9Test, EscLeavesAllAsItWas) {
  const std::string before = station_.Disk.Exists(kDat) ? station_.Disk.Get(kDat) : "";
  form_.DatosCall[0] = "before"_w;
  Dialog([this] {
    hands_.ReplaceText(Text(0), "after"_w);
    hands_.Key(keys::kEscape, 0);
    EXPECT_EQ(form_.Form9, nullptr);
  });
  EXPECT_EQ(form_.DatosCall[0], "before"_w);
  EXPECT_FALSE(form_.ImgPanico.Visible);
  EXPECT_EQ(station_.Disk.Exists(kDat) ? station_.Disk.Get(kDat) : "", before);
}

TEST_F(Form9Test, TheButtonKeepsTheValuesAndArms) {
  const String longest = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcdefghijkl"_w;
  ASSERT_EQ(longest.Size(), 48u);
  Dialog([&] {
    hands_.ReplaceText(Text(0), "ALERTA EN P01"_w);
    hands_.ReplaceText(Text(1), longest + "TOO LONG"_w);
    hands_.ReplaceText(Text(6), " último@casa.example "_w);
    Save();
    EXPECT_EQ(form_.Form9, nullptr);
  });
  EXPECT_TRUE(form_.ImgPanico.Visible);
  EXPECT_THAT(station_.Heard(), ElementsAre(String(sonido::kClic), String(voz::kAlertaActivada)));
  EXPECT_EQ(form_.DatosCall[0], "ALERTA EN P01"_w);
  EXPECT_EQ(form_.DatosCall[1], longest);
  EXPECT_EQ(form_.DatosCall[6], " último@casa.example "_w);
  using namespace std::string_literals;
  // Type 8, length, characters, for both fields; the rest of the record is 0.
  EXPECT_EQ(Record(2),
            "\x08\0\x0C\0ALERTA EN P0\x08\0\x01\0"s
            "1" +
                std::string(25, '\0'));
  EXPECT_EQ(Record(3), "\x08\0\0\0\x08\0\0\0"s + std::string(38, '\0'));
  EXPECT_EQ(Record(4), "\x08\0\x0C\0ABCDEFGHIJKL\x08\0\x0C\0MNOPQRSTUVWX"s + std::string(14, '\0'));
  EXPECT_EQ(Record(5), "\x08\0\x0C\0YZ0123456789\x08\0\x0C\0abcdefghijkl"s + std::string(14, '\0'));
  EXPECT_EQ(Record(14), "\x08\0\x0C\0 \xFAltimo@casa\x08\0\x09\0.example "s + std::string(17, '\0'));
  EXPECT_EQ(station_.Disk.Get(kDat).size(), 16 * kRecord);
  EXPECT_EQ(ReadAgain(), form_.DatosCall);
}

TEST_F(Form9Test, ArmingOutlivesAPowerCutAndLeavesTheRestOfTheFile) {
  station_.Disk.Put(kDat, "");
  form_.CboMinutos.Tag = "0"_w;
  form_.PctBoton[boton::kUltimosEnIngresar].Tag = "45"_w;
  Dialog([this] { Save(); });
  test::MemoryStation next;
  next.Disk.Put(kDat, station_.Disk.Get(kDat));
  ASSERT_FALSE(next.Form.ImgPanico.Visible);
  next.Start();
  EXPECT_TRUE(next.Form.ImgPanico.Visible);
  // A state that was never stored would have said 0.
  EXPECT_EQ(next.Form.PctBoton[boton::kUltimosEnIngresar].Tag, "45"_w);
  // One that was is left alone until the closing.
  form_.PctBoton[boton::kUltimosEnIngresar].Tag = "90"_w;
  const std::string state = Record(1);
  form_.ImgPanico.Visible = false;
  Dialog([this] {
    hands_.ReplaceText(Text(0), "otra"_w);
    Save();
  });
  EXPECT_EQ(Record(1), state);
}

TEST_F(Form9Test, AReadOnlyFileIsWritten) {
  form_.GuardarEstadoPantalla();
  station_.Disk.SetReadOnly(kDat);
  Dialog([this] {
    hands_.ReplaceText(Text(2), "a@a"_w);
    Save();
  });
  EXPECT_EQ(ReadAgain()[2], "a@a"_w);
}

TEST_F(Form9Test, WhatCouldNotBeKeptCountsAllTheSame) {
  form_.GuardarEstadoPantalla();
  const std::string before = station_.Disk.Get(kDat);
  for (const bool folder : {false, true}) {
    form_.ImgPanico.Visible = false;
    form_.DatosCall.fill("old"_w);
    station_.Faulty.Set().failAllWrites = !folder;
    station_.Faulty.Set().openReadOnly = folder;
    testing::internal::CaptureStderr();
    Dialog([this] {
      hands_.ReplaceText(Text(2), "a@a"_w);
      Save();
    });
    EXPECT_THAT(testing::internal::GetCapturedStderr(), Not(IsEmpty()));
    station_.Faulty.Repair();
    EXPECT_EQ(station_.Disk.Get(kDat), before);
    EXPECT_EQ(form_.DatosCall[2], "a@a"_w);
    EXPECT_TRUE(form_.ImgPanico.Visible);
  }
}

TEST_F(Form9Test, AFileCutAnywhereTakesTheValuesWhole) {
  form_.GuardarEstadoPantalla();
  form_.GuardarMarcas();
  const std::string whole = station_.Disk.Get(kDat);
  ASSERT_EQ(whole.size(), 16 * kRecord);
  std::array<String, 7> values;
  for (std::size_t i = 0; i < values.size(); ++i)
    values[i] = String(48, static_cast<char>('a' + i));
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    station_.Disk.Put(kDat, whole.substr(0, cut));
    form_.ImgPanico.Visible = false;
    Dialog([&] {
      for (std::size_t i = 0; i < values.size(); ++i)
        hands_.ReplaceText(Text(i), values[i]);
      Save();
    });
    ASSERT_EQ(station_.Disk.Get(kDat).size(), whole.size()) << cut;
    form_.DatosCall.fill(""_w);
    form_.CargarDatosCall();
    ASSERT_EQ(form_.DatosCall, values) << cut;
  }
}

TEST_F(Form9Test, AKillLeavesTheOldValuesOrTheNewOnes) {
  const auto all = [](const char* text) {
    std::array<String, 7> values;
    values.fill(String(std::string_view(text)));
    return values;
  };
  const auto keep = [&](const char* text) {
    form_.ImgPanico.Visible = false;
    Dialog([&] {
      for (std::size_t i = 0; i < 7; ++i)
        hands_.ReplaceText(Text(i), all(text)[i]);
      Save();
    });
  };
  keep("old");
  const std::string before = station_.Disk.Get(kDat);
  int seen[2] = {0, 0};
  bool whole = false;
  for (int operations = 0; !whole; ++operations) {
    ASSERT_LT(operations, 100);
    station_.Disk.Put(kDat, before);
    // The disk is gone after so many operations, as it is for a process that was killed.
    station_.Faulty.Set().goneAfter = operations;
    testing::internal::CaptureStderr();
    keep("new");
    testing::internal::GetCapturedStderr();
    whole = station_.Faulty.Set().goneAfter > 0;
    station_.Faulty.Repair();
    const std::array<String, 7> values = ReadAgain();
    ASSERT_TRUE(values == all("old") || values == all("new")) << operations;
    ++seen[values == all("new") ? 1 : 0];
  }
  EXPECT_GT(seen[0], 0);
  EXPECT_GT(seen[1], 0);
}

TEST_F(Form9Test, WithoutTheDialogNothingIsKept) {
  form_.DatosCall[0] = "x"_w;
  form_.GuardarDatosCall();
  EXPECT_EQ(form_.DatosCall[0], "x"_w);
  EXPECT_FALSE(form_.ImgPanico.Visible);
  EXPECT_THAT(station_.Heard(), Not(Contains(String(voz::kAlertaActivada))));
}

}  // namespace
}  // namespace vintoral
