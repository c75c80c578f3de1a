#include "driver/Operation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/MemoryStation.h"
#include "support/TempFolder.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using test::TempFolder;
using testing::StartsWith;

/// What the failure says.
template <class Step>
std::string Failure(Step step) {
  try {
    step();
  } catch (const std::exception& failure) {
    return failure.what();
  }
  return "(none)";
}

TEST(ParseOperation, TakesOneObject) {
  EXPECT_EQ(ParseOperation(R"({"op":"quit"})")["op"], "quit");
}

TEST(ParseOperation, RefusesWhatIsNoObject) {
  for (const char* line : {"", "{", "quit", "{\"op\":}", "\"op\"x", "{} {}"})
    EXPECT_EQ(Failure([&] { ParseOperation(line); }), "malformed line") << line;
  for (const char* line : {"[]", "1", "null", "\"op\""})
    EXPECT_EQ(Failure([&] { ParseOperation(line); }), "the line is no object") << line;
}

TEST(Field, NamesTheFieldThatIsMissingOrOfAnotherType) {
  const Json operation = Json::parse(R"({"code":"13","text":7,"none":null})");
  EXPECT_EQ(Failure([&] { Field<int>(operation, "mask"); }), "field 'mask' is missing");
  EXPECT_THAT(Failure([&] { Field<int>(operation, "code"); }), StartsWith("field 'code' "));
  EXPECT_EQ(Failure([&] { Field<std::string>(operation, "text"); }), "field 'text' has the wrong type");
  EXPECT_EQ(Failure([&] { Field<std::string>(operation, "none"); }), "field 'none' has the wrong type");
}

TEST(FieldOr, StandsInForAFieldThatIsMissingOrNullAndForNoOther) {
  const Json operation = Json::parse(R"({"instances":2,"desktop":null,"mask":"1"})");
  EXPECT_EQ(FieldOr(operation, "instances", 1), 2);
  EXPECT_EQ(FieldOr(operation, "seed", 5), 5);
  EXPECT_EQ(FieldOr(operation, "desktop", std::string("d")), "d");
  EXPECT_THAT(Failure([&] { FieldOr(operation, "mask", 0); }), StartsWith("field 'mask' "));
}

TEST(ParseMoment, ReadsSecondsAndMilliseconds) {
  EXPECT_EQ(ParseMoment("2026-11-20 14:25:03").Parts(),
            (Civil{.year = 2026, .month = 11, .day = 20, .hour = 14, .minute = 25, .second = 3}));
  EXPECT_EQ(ParseMoment("2026-11-20 14:25:03.500").Parts().millisecond, 500);
  EXPECT_EQ(ParseMoment("2028-02-29 23:59:59.999").Parts().day, 29);
}

TEST(ParseMoment, RefusesWhatIsNoTimeAndNamesIt) {
  for (const char* text :
       {"", "2026-11-20", "2026-11-20 14:25", "20/11/2026 14:25:03", "2026-13-01 00:00:00",
        "2026-02-29 00:00:00", "2026-11-20 24:00:00", "2026-11-20 14:60:00", "2026-11-20 14:25:60",
        "2026-11-20 14:25:03 ", "2026-11-20 14:25:03.5", "2026-11-20 14:25:03.", "2026-11-20 14:25:03.x",
        "2026-11-20 14:25:03.500x", "2026-11-20 14:25:03.5000", "2026-11-20 14:25:03,500",
        "2026-11-20 14:25:-3", "2026-11-20 14:25:03.-50", "0000-01-01 00:00:00"})
    EXPECT_EQ(Failure([&] { ParseMoment(text); }), "'" + std::string(text) + "' is no time") << text;
}

TEST(MomentText, GivesBackWhatWasRead) {
  EXPECT_EQ(MomentText(ParseMoment("2026-01-02 03:04:05.006")), "2026-01-02 03:04:05.006");
  EXPECT_EQ(MomentText(ParseMoment("2026-11-20 14:25:03")), "2026-11-20 14:25:03.000");
}

TEST(AnswerNamed, KnowsTheFourButtons) {
  EXPECT_EQ(AnswerNamed("ok"), Answer::kOk);
  EXPECT_EQ(AnswerNamed("yes"), Answer::kYes);
  EXPECT_EQ(AnswerNamed("no"), Answer::kNo);
  EXPECT_EQ(AnswerNamed("cancel"), Answer::kCancel);
  EXPECT_FALSE(AnswerNamed("Yes"));
  EXPECT_FALSE(AnswerNamed(""));
}

TEST(RequireKnown, NamesAnOperationThatThereIsNot) {
  EXPECT_EQ(Failure([] { RequireKnown("key"); }), "(none)");
  EXPECT_EQ(Failure([] { RequireKnown("advance"); }), "(none)");
  EXPECT_EQ(Failure([] { RequireKnown("jump"); }), "unknown operation 'jump'");
}

TEST(RequireUsable, NamesTheControlThatNoHandReaches) {
  MemoryStation station;
  TextBox& field = station.Form.TxtCampo[1];
  EXPECT_EQ(Failure([&] { RequireUsable(field); }), "(none)");
  field.Enabled = false;
  EXPECT_EQ(Failure([&] { RequireUsable(field); }), "control 'TxtCampo(1)' is disabled");
  field.Visible = false;
  EXPECT_EQ(Failure([&] { RequireUsable(field); }), "control 'TxtCampo(1)' is hidden");
}

TEST(RequireText, OnlyBoxesAndListsHaveAText) {
  MemoryStation station;
  EXPECT_EQ(Failure([&] { RequireText(station.Form.TxtCampo[1]); }), "(none)");
  EXPECT_EQ(Failure([&] { RequireText(station.Form.CboMinutos); }), "(none)");
  EXPECT_EQ(Failure([&] { RequireText(station.Form.LblValor); }),
            "control 'LblValor' has no property 'Text'");
}

TEST(FindNamed, TakesANameWithOrWithoutTheForm) {
  MemoryStation station;
  const Forms& forms = station.Form.OpenForms;
  EXPECT_EQ(FindNamed(forms, "TxtCampo(1)"), &station.Form.TxtCampo[1]);
  EXPECT_EQ(FindNamed(forms, "form1.txtcampo(1)"), &station.Form.TxtCampo[1]);
  EXPECT_EQ(FindNamed(forms, "Form9.TxtCampo(1)"), nullptr);
  EXPECT_EQ(FindNamed(forms, "Form1.TxtCampo(9)"), nullptr);
  EXPECT_EQ(FindNamed(forms, "Form6.TxtMoneda"), nullptr);
  Form6& dialog = station.Form.OpenForms.Load(std::make_unique<Form6>(station.Form));
  EXPECT_EQ(FindNamed(forms, "Form6.TxtMoneda"), &dialog.TxtMoneda);
  EXPECT_EQ(FindNamed(forms, "TxtMoneda"), nullptr);
}

TEST(ItemIndex, FindsByIndexOrText) {
  ComboBox list;
  for (const String& item : {"Auto"_w, "AUTO "_w, "CAMIÓN"_w})
    list.AddItem(item);
  EXPECT_EQ(ItemIndex(list, Json::parse(R"({"index":2})")), 2);
  EXPECT_EQ(ItemIndex(list, Json::parse(R"({"text":"AUTO "})")), 1);
  EXPECT_EQ(ItemIndex(list, Json::parse(R"({"text":"auto"})")), 0);
  EXPECT_EQ(ItemIndex(list, Json::parse(R"({"text":" camión "})")), 2);
  EXPECT_EQ(ItemIndex(list, Json::parse(R"({"text":"BUS"})")), -1);
  EXPECT_EQ(ItemIndex(Label(), Json::parse(R"({"index":0})")), -1);
  EXPECT_EQ(Failure([&] { ItemIndex(list, Json::object()); }), "field 'text' is missing");
}

TEST(MakeFolders, MakesAllAboveAndGivesTheAbsolutePath) {
  const TempFolder folder;
  const std::string made = MakeFolders(folder.Path("a/./b/../c"));
  EXPECT_EQ(made, std::filesystem::canonical(folder.Path("a/c")).string());
  folder.Put("file", "");
  EXPECT_EQ(Failure([&] { MakeFolders(folder.Path("file/x")); }),
            "folder '" + folder.Path("file/x") + "' can't be made");
}

TEST(BoxJson, HasAllThatTheOperatorSees) {
  const Box box{"Título"_w, "¿Sí?"_w, Icon::kExclamation, {Answer::kYes, Answer::kNo}, Answer::kNo};
  EXPECT_EQ(
      BoxJson(box).dump(),
      R"({"box":{"title":"Título","text":"¿Sí?","icon":"exclamation","buttons":["yes","no"],"default":"no"}})");
}

class NamedForm final : public ScreenForm {
 public:
  const std::string& Name() const override { return name_; }
  bool Shown() const override { return true; }

 private:
  const std::string name_ = "Form4";
};

TEST(WaitingJson, TellsTheBoxTheDialogOrTheMillisecondsLeft) {
  const Box box{"Título"_w, "¿Sí?"_w, Icon::kExclamation, {Answer::kYes}, Answer::kYes};
  const NamedForm form;
  const Waiting forBox{.box = &box}, forForm{.form = &form}, forTime{.until = 12'500};
  EXPECT_EQ(WaitingJson(nullptr, 0), nullptr);
  EXPECT_EQ(WaitingJson(&forBox, 7), BoxJson(box));
  EXPECT_EQ(WaitingJson(&forForm, 7).dump(), R"({"form":"Form4"})");
  EXPECT_EQ(WaitingJson(&forTime, 10'500).dump(), R"({"wait":2000})");
  EXPECT_EQ(WaitingJson(&forTime, 12'501).dump(), R"({"wait":0})");
}

TEST(EventJson, TellsEachDevice) {
  using Kind = DeviceEvent::Kind;
  EXPECT_EQ(EventJson({Kind::kSound, "Sonidos\\a.wav"_w, true}).dump(),
            R"({"event":"sound","file":"Sonidos\\a.wav","played":true})");
  EXPECT_EQ(EventJson({Kind::kLaunch, "Explorer.exe Fondos"_w, false}).dump(),
            R"({"event":"launch","command":"Explorer.exe Fondos"})");
  EXPECT_EQ(EventJson({Kind::kBeep, {}, false}).dump(), R"({"event":"beep"})");
  EXPECT_EQ(EventJson({Kind::kEnd, {}, false}).dump(), R"({"event":"end"})");
}

TEST(EventJson, TellsADocumentStepByStep) {
  PrintDocument document;
  document.FontSize = 10.5;
  document.FontBold = true;
  document.Print("PEÑA"_w);
  document.AddFontResource("Fuentes\\Vintoral.ttf");
  document.PaintPicture({}, 252, 238, 3360, 2520);
  document.RemoveFontResource("Fuentes\\Vintoral.ttf");
  // A line of 10.5 points is 10.5 * 20 * 2320 / 2048 = 237.9 twips high.
  EXPECT_EQ(EventJson({DeviceEvent::Kind::kPrint, "Tira80"_w, false, document.Operations()}).dump(),
            R"({"event":"print","printer":"Tira80","ops":[)"
            R"({"op":"text","text":"PEÑA","font":"Courier New","size":10.5,"bold":true,"x":0,"y":0},)"
            R"({"op":"addfont","file":"Fuentes\\Vintoral.ttf"},)"
            R"({"op":"picture","x":252,"y":238,"width":3360,"height":2520},)"
            R"({"op":"removefont","file":"Fuentes\\Vintoral.ttf"}]})");
}

TEST(PrintersOf, TakesWhatIsToldAndKeepsTheRest) {
  const PrinterList both = PrintersOf(Json::parse(R"({"printers":["A","Ñ"],"printer":"Ñ"})"), {});
  EXPECT_EQ(both.names, (std::vector{"A"_w, "Ñ"_w}));
  EXPECT_EQ(both.current, "Ñ"_w);
  EXPECT_EQ(PrintersOf(Json::parse(R"({})"), both).names, both.names);
  EXPECT_EQ(PrintersOf(Json::parse(R"({})"), both).current, "Ñ"_w);
  EXPECT_EQ(PrintersOf(Json::parse(R"({"printer":"A"})"), both).current, "A"_w);
  EXPECT_EQ(PrintersOf(Json::parse(R"({"printer":"A"})"), both).names, both.names);
  EXPECT_EQ(PrintersOf(Json::parse(R"({"printers":["B","C"]})"), both).current, "B"_w);
  EXPECT_EQ(PrintersOf(Json::parse(R"({"printers":["B","Ñ"]})"), both).current, "Ñ"_w);
  EXPECT_EQ(PrintersOf(Json::parse(R"({"printers":[]})"), both).current, ""_w);
  EXPECT_THROW(PrintersOf(Json::parse(R"({"printers":"A"})"), both), std::runtime_error);
}

}  // namespace
}  // namespace vintoral
