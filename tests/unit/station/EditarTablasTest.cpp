// What the operator makes of the tables: in the dialog's boxes, in memory, on disk.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/Bytes.h"
#include "support/MemoryStation.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using test::TariffFile;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kEmp = "Recursos\\Vintoral.EMP";
constexpr const char* kXtr = "Recursos\\Vintoral.XTR";
constexpr const char* kRje = "Recursos\\Vintoral.RJE";
constexpr const char* kDvs = "Recursos\\Vintoral.DVS";

/// A station with small tables of its own, and the steps of the dialog that will show them.
class EditarTablasTest : public testing::Test {
 protected:
  EditarTablasTest() {
    station_.Disk.Put(kEmp, TariffFile({" auto", " 1m = 5*", "", " moto"}));
    station_.Disk.Put(kXtr, TariffFile({"", " cafe = 5"}));
    station_.Disk.Put(kRje, TariffFile({" Minutos = Valor", " 120 = mil", ""}));
    station_.Disk.Put(kDvs, "COP\r\n");
    station_.StartConnected();
    Open();
  }
  void Open() {
    form_.OpenForms.UnloadDialogs();
    dialog_ = &form_.OpenForms.Load(std::make_unique<Form6>(form_));
  }
  void Save() {
    form_.ActualizarTarifas();
    form_.CopiarTarifas();
    form_.CopiarMoneda();
  }
  /// What goes to standard error meanwhile.
  std::string SaveFailing(test::Faults faults) {
    station_.Faulty.Set() = faults;
    testing::internal::CaptureStderr();
    Save();
    station_.Faulty.Repair();
    return testing::internal::GetCapturedStderr();
  }
  std::string Emp() const { return station_.Disk.Get(kEmp); }
  std::string Xtr() const { return station_.Disk.Get(kXtr); }
  std::string Rje() const { return station_.Disk.Get(kRje); }
  std::string Dvs() const { return station_.Disk.Get(kDvs); }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Form6* dialog_ = nullptr;
  ComboBox& categories_ = form_.CboTarifa[1];
};

// ---- Into the boxes
// ---------------------------------------------------------------------------------------------

TEST_F(EditarTablasTest, EachBoxShowsItsTable) {
  EXPECT_EQ(dialog_->TxtTarifas[0].Text(), "AUTO\r\n1M = 5*\r\n\r\nMOTO"_w);
  EXPECT_EQ(dialog_->TxtTarifas[1].Text(), "\r\nCAFE = 5"_w);
  EXPECT_EQ(dialog_->TxtTarifas[2].Text(), " Minutos = Valor\r\n 120 = mil\r\n"_w);
}

TEST_F(EditarTablasTest, ShowingTwiceShowsTheSame) {
  Open();
  EXPECT_EQ(dialog_->TxtTarifas[1].Text(), "\r\nCAFE = 5"_w);
}

TEST_F(EditarTablasTest, AChangeOfTextSetsTheTag) {
  dialog_->TxtTarifas[2].SetText("x"_w);
  EXPECT_EQ(dialog_->TxtTarifas[0].Tag, "0"_w);
  EXPECT_EQ(dialog_->TxtTarifas[1].Tag, "0"_w);
  EXPECT_EQ(dialog_->TxtTarifas[2].Tag, "1"_w);
  EXPECT_EQ(dialog_->TxtMoneda.Tag, "0"_w);
  dialog_->TxtMoneda.Insert("S/."_w);
  EXPECT_EQ(dialog_->TxtMoneda.Tag, "1"_w);
  EXPECT_EQ(dialog_->TxtTarifas[0].Tag, "0"_w);
}

TEST_F(EditarTablasTest, BoxesAreFoundByTheirNames) {
  EXPECT_EQ(dialog_->TxtTarifas[0].Name, "TxtTarifas(0)");
  EXPECT_EQ(dialog_->TxtTarifas[2].Name, "TxtTarifas(2)");
  EXPECT_EQ(dialog_->TxtMoneda.Name, "TxtMoneda");
}

// ---- Into the tables
// --------------------------------------------------------------------------------------------

TEST_F(EditarTablasTest, TariffLinesAreTrimmedCutAndRaised) {
  dialog_->TxtTarifas[0].SetText("  camión \r\n 1h=6000 \r\n\r\nabcdefghijklmnopqrstuvwxyz"_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaTarifas, ElementsAre("CAMIÓN"_w, "1H=6000"_w, ""_w, "ABCDEFGHIJKLMNOPQRST"_w));
}

TEST_F(EditarTablasTest, TheHeadsAreTheCategoriesAndTheFirstIsChosen) {
  categories_.Select(1);
  dialog_->TxtTarifas[0].SetText("\r\ncamión\r\n1M = 7\r\n\r\n   \r\nabcdefghijklmnopqrstuvwxyz\r\nauto"_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(categories_.List(), ElementsAre("CAMIÓN"_w, "ABCDEFGHIJKLMNOPQRST"_w, "AUTO"_w));
  EXPECT_EQ(categories_.Text(), "CAMIÓN"_w);
  EXPECT_EQ(categories_.ListIndex(), 0);
}

TEST_F(EditarTablasTest, AnEqualsSignThatTheCutTakesAwayMakesNoCategory) {
  dialog_->TxtTarifas[0].SetText("auto\r\nnombre de veinte letras = 5"_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaTarifas, ElementsAre("AUTO"_w, "NOMBRE DE VEINTE LET"_w));
  EXPECT_THAT(categories_.List(), ElementsAre("AUTO"_w));
}

TEST_F(EditarTablasTest, RulesWithoutAHeadLeaveNoCategory) {
  dialog_->TxtTarifas[0].SetText("1M = 7"_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaTarifas, ElementsAre("1M = 7"_w));
  EXPECT_THAT(categories_.List(), IsEmpty());
  EXPECT_EQ(categories_.Text(), ""_w);
}

TEST_F(EditarTablasTest, ExtrasAreWrittenAnew) {
  dialog_->TxtTarifas[1].SetText(
      "ventas\r\n\r\n casco\tmoto=120000 \r\nabcdefghijklmnopqrstuvwxy = 1234567890\r\nambien liquido para=7"_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaExtras, ElementsAre("VENTAS"_w, ""_w, "CASCO MOTO = 120000"_w,
                                             "ABCDEFGHIJKLMNO = 123456789"_w, "AMBIEN LIQUIDO = 7"_w));
}

TEST_F(EditarTablasTest, PrepaidLoadsStandAsTyped) {
  dialog_->TxtTarifas[2].SetText("\r\n  Minutos = Valor\r\n\t120=mil  \r\nx"_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaPrepago, ElementsAre(""_w, "  Minutos = Valor"_w, "\t120=mil  "_w, "x"_w));
}

TEST_F(EditarTablasTest, TheBlanksAroundTheWholeTextAreLostInAllTabs) {
  dialog_->TxtTarifas[2].SetText("  120 = mil\r\n  180 = dos mil  "_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaPrepago, ElementsAre("120 = mil"_w, "  180 = dos mil"_w));
}

TEST_F(EditarTablasTest, AChangedTabLeavesTheTablesOfTheOthers) {
  const std::vector<String> tariffs = form_.TablaTarifas;
  const std::vector<String> loads = form_.TablaPrepago;
  categories_.Select(1);
  dialog_->TxtTarifas[1].SetText("te = 3"_w);
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaExtras, ElementsAre("TE = 3"_w));
  EXPECT_EQ(form_.TablaTarifas, tariffs);
  EXPECT_EQ(form_.TablaPrepago, loads);
  EXPECT_EQ(categories_.Text(), "MOTO"_w);
}

TEST_F(EditarTablasTest, OnlyATagOfOneCounts) {
  const std::vector<String> tariffs = form_.TablaTarifas;
  dialog_->TxtTarifas[0].SetText("camion"_w);
  for (const String& tag : {""_w, "0"_w, "2"_w, "10"_w, "-1"_w, "x1"_w}) {
    dialog_->TxtTarifas[0].Tag = tag;
    form_.ActualizarTarifas();
    EXPECT_EQ(form_.TablaTarifas, tariffs) << tag.Bytes();
  }
  dialog_->TxtTarifas[0].Tag = " 1"_w;  // as a number it is one
  form_.ActualizarTarifas();
  EXPECT_THAT(form_.TablaTarifas, ElementsAre("CAMION"_w));
}

TEST_F(EditarTablasTest, AnEmptiedTabKeepsItsTableAndItsCategories) {
  const std::vector<String> tariffs = form_.TablaTarifas;
  for (const String& text : {""_w, "   "_w, "\r\n"_w, " \r\n \r\n"_w}) {
    dialog_->TxtTarifas[0].SetText("x"_w);
    dialog_->TxtTarifas[0].SetText(text);
    categories_.Select(1);
    form_.ActualizarTarifas();
    EXPECT_EQ(form_.TablaTarifas, tariffs) << testing::PrintToString(text.Bytes());
    EXPECT_EQ(categories_.Text(), "MOTO"_w);
  }
}

TEST_F(EditarTablasTest, AChangeCountsAtOnceButNotForTheFichaOnDisplay) {
  station_.Enter("7", "abc123");  // AUTO, 5 a minute
  station_.Pass(10 * 60'000);
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.LblValor.Caption, "COP 50.00"_w);
  dialog_->TxtTarifas[0].SetText("auto\r\n1m = 7*"_w);
  Save();
  station_.Pass(30'000);
  EXPECT_EQ(form_.LblValor.Caption, "COP 50.00"_w);
  station_.Hands.Key(keys::kEscape, 0);
  station_.TypeAndEnter("7");
  EXPECT_EQ(form_.LblValor.Caption, "COP 70.00"_w);
}

// ---- Into the files
// ---------------------------------------------------------------------------------------------

TEST_F(EditarTablasTest, SavingWithoutAChangeWritesNothing) {
  const int writes = station_.Disk.Syncs();
  Save();
  EXPECT_EQ(station_.Disk.Syncs(), writes);
  EXPECT_EQ(Emp(), TariffFile({" auto", " 1m = 5*", "", " moto"}));
  EXPECT_EQ(Dvs(), "COP\r\n");
}

TEST_F(EditarTablasTest, AChangedTabIsWrittenWholeAndTheOthersAreLeftAlone) {
  dialog_->TxtTarifas[0].SetText(dialog_->TxtTarifas[0].Text() + "\r\n1h = 900\r\n"_w);
  Save();
  EXPECT_EQ(Emp(), TariffFile({"AUTO", "1M = 5*", "", "MOTO", "1H = 900", ""}));
  EXPECT_EQ(Xtr(), TariffFile({"", " cafe = 5"}));
  EXPECT_EQ(Rje(), TariffFile({" Minutos = Valor", " 120 = mil", ""}));
  EXPECT_EQ(Dvs(), "COP\r\n");
}

TEST_F(EditarTablasTest, AFileShrinksWithItsTable) {
  dialog_->TxtTarifas[0].SetText(" automovil "_w);
  Save();
  EXPECT_EQ(Emp(), TariffFile({"AUTOMOVIL"}));
  Open();
  EXPECT_EQ(dialog_->TxtTarifas[0].Text(), "AUTOMOVIL"_w);
}

TEST_F(EditarTablasTest, ChangedExtrasLeaveTheTariffFileAsItWas) {
  dialog_->TxtTarifas[1].SetText("abcdefghijklmnopqrstuvwxy = 1234567890"_w);
  Save();
  EXPECT_EQ(Xtr(), TariffFile({"ABCDEFGHIJKLMNO = 123456789"}));
  EXPECT_EQ(Emp(), TariffFile({" auto", " 1m = 5*", "", " moto"}));
}

TEST_F(EditarTablasTest, PrepaidLoadsKeepTheirCaseAndTheirBlanksInFront) {
  dialog_->TxtTarifas[2].SetText("\r\n Minutos = Valor\r\n  120 = Mil\r\n"_w);
  Save();
  EXPECT_EQ(Rje(), TariffFile({"", " Minutos = Valor", "  120 = Mil", ""}));
}

TEST_F(EditarTablasTest, ALongPrepaidLineEndsWithItsRecord) {
  dialog_->TxtTarifas[2].SetText("x\r\n"_w + String(120, 'a') + "\r\ny"_w);
  Save();
  EXPECT_EQ(Rje(), TariffFile({"x", std::string(100, 'a'), "y"}));
  EXPECT_EQ(form_.TablaPrepago[1].Size(), 100u);
}

TEST_F(EditarTablasTest, TheStarsOfALongLineVanishWithTheFirstSave) {
  // 25 characters, the stars at 24 and 25.
  const std::string line = "1M = 100               **";
  ASSERT_EQ(line.size(), 25u);
  MemoryStation station;
  station.Disk.Put(kEmp, TariffFile({"AUTO", line}));
  station.Form.CargarTablas();
  EXPECT_EQ(station.Form.TablaTarifas[1], "1M = 100            "_w);  // 20 characters
  EXPECT_EQ(station.Disk.Get(kEmp), TariffFile({"AUTO", line}));
  station.Form.OpenForms.Load(std::make_unique<Form6>(station.Form));
  EXPECT_EQ(station.Form.Form6->TxtTarifas[0].Text(), "AUTO\r\n1M = 100"_w);
  station.Form.Form6->TxtTarifas[0].Tag = "1"_w;
  station.Form.ActualizarTarifas();
  station.Form.CopiarTarifas();
  EXPECT_EQ(station.Disk.Get(kEmp), TariffFile({"AUTO", "1M = 100"}));
}

TEST_F(EditarTablasTest, ALongLineThatIsTypedIsCutOnItsWayToTheFile) {
  dialog_->TxtTarifas[0].SetText("auto\r\n 1m = 100               **"_w);
  Save();
  EXPECT_EQ(Emp(), TariffFile({"AUTO", "1M = 100"}));
}

TEST_F(EditarTablasTest, TheFileOfAnEmptiedTabIsWrittenFromItsOldTable) {
  dialog_->TxtTarifas[0].SetText(""_w);
  Save();
  EXPECT_EQ(Emp(), TariffFile({"AUTO", "1M = 5*", "", "MOTO"}));
  EXPECT_THAT(categories_.List(), ElementsAre("AUTO"_w, "MOTO"_w));
}

TEST_F(EditarTablasTest, EmptiedExtrasAndLoadsAreWrittenFromTheirOldTablesToo) {
  dialog_->TxtTarifas[1].SetText(" \r\n"_w);
  dialog_->TxtTarifas[2].SetText(""_w);
  Save();
  EXPECT_EQ(Xtr(), TariffFile({"", "CAFE = 5"}));
  EXPECT_EQ(Rje(), TariffFile({" Minutos = Valor", " 120 = mil", ""}));
  EXPECT_THAT(form_.TablaExtras, ElementsAre(""_w, "CAFE = 5"_w));
}

TEST_F(EditarTablasTest, AReadOnlyFileIsWrittenAllTheSame) {
  station_.Disk.SetReadOnly(kRje);
  dialog_->TxtTarifas[2].SetText("x"_w);
  EXPECT_EQ(SaveFailing({}), "");
  EXPECT_EQ(Rje(), TariffFile({"x"}));
}

TEST_F(EditarTablasTest, AFileThatIsMissingIsMadeAnew) {
  ASSERT_TRUE(station_.Disk.Remove(kXtr));
  dialog_->TxtTarifas[1].SetText("te = 3"_w);
  Save();
  EXPECT_EQ(Xtr(), TariffFile({"TE = 3"}));
}

TEST_F(EditarTablasTest, AFileThatCannotBeWrittenKeepsTheLaterOnesAsTheyWere) {
  dialog_->TxtTarifas[0].SetText("camion"_w);
  dialog_->TxtTarifas[1].SetText("te = 3"_w);
  dialog_->TxtTarifas[2].SetText("x"_w);
  EXPECT_EQ(SaveFailing({.failWrite = 2}), "vintoral: use a faulty disk: No space left on device\n");
  EXPECT_EQ(Emp(), TariffFile({"CAMION"}));
  EXPECT_EQ(Xtr(), TariffFile({"", " cafe = 5"}));
  EXPECT_EQ(Rje(), TariffFile({" Minutos = Valor", " 120 = mil", ""}));
  // The station goes on with what was typed.
  EXPECT_THAT(form_.TablaExtras, ElementsAre("TE = 3"_w));
  EXPECT_THAT(form_.TablaPrepago, ElementsAre("x"_w));
}

TEST_F(EditarTablasTest, TheNextStartReadsWhatWasSaved) {
  dialog_->TxtTarifas[0].SetText("camion\r\n1m = 9"_w);
  dialog_->TxtTarifas[1].SetText("te=3"_w);
  dialog_->TxtTarifas[2].SetText("x\r\n Y"_w);
  dialog_->TxtMoneda.SetText("S/."_w);
  Save();
  MemoryStation again;
  for (const char* file : {kEmp, kXtr, kRje, kDvs})
    again.Disk.Put(file, station_.Disk.Get(file));
  again.StartConnected();
  EXPECT_EQ(again.Form.TablaTarifas, form_.TablaTarifas);
  EXPECT_THAT(again.Form.TablaExtras, ElementsAre("TE = 3"_w));
  EXPECT_THAT(again.Form.TablaPrepago, ElementsAre(String(TariffFile({"x"})), String(TariffFile({" Y"}))));
  EXPECT_THAT(again.Form.CboTarifa[1].List(), ElementsAre("CAMION"_w));
  EXPECT_EQ(again.Form.Moneda, "S/."_w);
}

// ---- The currency
// -----------------------------------------------------------------------------------------------

TEST_F(EditarTablasTest, TheCurrencyIsWrittenTrimmedAsOneLine) {
  dialog_->TxtMoneda.SetText("  US$ "_w);
  Save();
  EXPECT_EQ(form_.Moneda, "US$"_w);
  EXPECT_EQ(Dvs(), "US$\r\n");
  EXPECT_EQ(Emp(), TariffFile({" auto", " 1m = 5*", "", " moto"}));
  EXPECT_EQ(Xtr(), TariffFile({"", " cafe = 5"}));
  EXPECT_EQ(Rje(), TariffFile({" Minutos = Valor", " 120 = mil", ""}));
}

TEST_F(EditarTablasTest, TheCurrencyHasTenCharacters) {
  dialog_->TxtMoneda.SetText(" ABCDEFGHIJK"_w);
  Save();
  EXPECT_EQ(form_.Moneda, "ABCDEFGHIJ"_w);
  EXPECT_EQ(Dvs(), "ABCDEFGHIJ\r\n");
}

TEST_F(EditarTablasTest, TheCurrencyIsWindows1252OnDisk) {
  dialog_->TxtMoneda.SetText("€"_w);
  Save();
  EXPECT_EQ(Dvs(), "\x80\r\n");
}

TEST_F(EditarTablasTest, TheCurrencyMayBeEmptied) {
  dialog_->TxtMoneda.SetText(""_w);
  Save();
  EXPECT_EQ(form_.Moneda, ""_w);
  EXPECT_EQ(Dvs(), "\r\n");
}

TEST_F(EditarTablasTest, ACurrencyThatIsUnchangedIsNotWritten) {
  dialog_->TxtMoneda.SetText("US$"_w);
  dialog_->TxtMoneda.Tag = "0"_w;
  Save();
  EXPECT_EQ(form_.Moneda, "COP"_w);
  EXPECT_EQ(Dvs(), "COP\r\n");
}

TEST_F(EditarTablasTest, ACurrencyThatCannotBeWrittenStaysAsItWas) {
  dialog_->TxtMoneda.SetText("US$"_w);
  EXPECT_EQ(SaveFailing({.failWrite = 1}), "vintoral: use a faulty disk: No space left on device\n");
  EXPECT_EQ(form_.Moneda, "COP"_w);
  EXPECT_EQ(Dvs(), "COP\r\n");
}

}  // namespace
}  // namespace vintoral
