#include "driver/Driver.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/TempFolder.h"

namespace vintoral {
namespace {

using test::TempFolder;

class DriverTest : public testing::Test {
 protected:
  /// Runs `lines` to the end of the input; the replies, one for each operation.
  std::vector<Json> Run(std::deque<std::string> lines) {
    std::vector<Json> replies;
    const auto read = [&]() -> std::optional<std::string> {
      if (lines.empty()) return std::nullopt;
      std::string line = lines.front();
      lines.pop_front();
      return line;
    };
    Driver(read, [&](const std::string& reply) { replies.push_back(Json::parse(reply)); }).Run();
    return replies;
  }
  std::string Start() const {
    return Json{{"op", "start"}, {"dir", folder_.Path("p01")}, {"now", "2026-11-20 14:00:00"}}.dump();
  }
  /// A station that is connected, and then `lines`.
  std::deque<std::string> Connected(std::initializer_list<const char*> lines) const {
    std::deque<std::string> all = {Start(), R"({"op":"answer","button":"ok"})",
                                   R"({"op":"advance","ms":3000})"};
    all.insert(all.end(), lines.begin(), lines.end());
    return all;
  }
  /// Every file below the station's folder with its bytes.
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path())) {
      const std::string name = std::filesystem::relative(entry.path(), folder_.Path()).string();
      files[name] = entry.is_regular_file() ? folder_.Get(name) : "(folder)";
    }
    files.erase("p01/Recursos/Vintoral.FDR");  // each start is logged
    return files;
  }

  TempFolder folder_;
};

constexpr const char* kNumber = R"({"op":"type","text":"7\n"})";
constexpr const char* kPlate = R"({"op":"type","text":"abc123\n"})";
constexpr const char* kInsert = R"({"op":"key","code":45})";
constexpr const char* kDelete = R"({"op":"key","code":46})";
constexpr const char* kYes = R"({"op":"answer","button":"yes"})";
constexpr const char* kSecond = R"({"op":"advance","ms":1000})";
constexpr const char* kClose = R"({"op":"close"})";

TEST_F(DriverTest, EveryOperationIsAnsweredOnce) {
  const auto replies = Run(Connected({R"({"op":"state"})", "nonsense", R"({"op":"view"})"}));
  ASSERT_EQ(replies.size(), 6u);
  for (const Json& reply : replies) {
    for (const char* field : {"ok", "now", "waiting", "events"})
      EXPECT_TRUE(reply.contains(field)) << reply;
  }
}

TEST_F(DriverTest, NothingInIsNothingOut) {
  EXPECT_TRUE(Run({}).empty());
}

TEST_F(DriverTest, ABoxIsToldWhileItIsStillUp) {
  const auto replies = Run({Start(), R"({"op":"answer","button":"ok"})"});
  ASSERT_EQ(replies.size(), 2u);
  EXPECT_EQ(replies[0]["waiting"]["box"]["title"], "Vintoral - BIENVENIDO");
  EXPECT_EQ(replies[0]["waiting"]["box"]["icon"], "information");
  EXPECT_TRUE(replies[1]["waiting"].is_null());
}

TEST_F(DriverTest, HandsAreHeldByTheBoxAndTheStationStaysAsItWas) {
  const auto replies = Run(Connected({kNumber, kPlate, kInsert, R"({"op":"key","code":27})",
                                      R"j({"op":"get","controls":["TxtCampo(1)"]})j"}));
  EXPECT_FALSE(replies[6]["ok"].get<bool>());
  EXPECT_EQ(replies[6]["error"], "the box 'Vintoral - Confirmar Datos' is on screen");
  EXPECT_EQ(replies[6]["waiting"]["box"]["title"], "Vintoral - Confirmar Datos");
  EXPECT_EQ(replies[7]["values"]["TxtCampo(1)"]["Text"], "ABC123");
}

TEST_F(DriverTest, AWrongButtonLeavesTheBoxUp) {
  const auto replies = Run({Start(), kYes});
  EXPECT_FALSE(replies[1]["ok"].get<bool>());
  EXPECT_EQ(replies[1]["error"], "the box has no button 'yes'");
  EXPECT_FALSE(replies[1]["waiting"].is_null());
}

TEST_F(DriverTest, FailuresNameTheCulpritAndTheDriverGoesOn) {
  const std::vector<std::pair<const char*, const char*>> failures = {
      {R"({"op":"jump"})", "unknown operation 'jump'"},
      {R"j({"op":"click","control":"TxtCampo(9)"})j", "unknown control 'TxtCampo(9)'"},
      {R"({"op":"get","controls":["Nada"]})", "unknown control 'Nada'"},
      {R"({"code":1})", "field 'op' is missing"},
      {R"({"op":"key"})", "field 'code' is missing"},
      {R"({"op":"answer","button":"ok"})", "no box is on screen"},
      {R"({"op":"advance","ms":-1})", "field 'ms' is out of range"},
      {R"({"op":"clock","now":"mañana"})", "'mañana' is no time"},
      {R"({"op":"set","control":"LblValor","text":"1"})", "control 'LblValor' is hidden"},
      {R"({"op":"focus","control":"LblFechaEnt"})", "control 'LblFechaEnt' takes no focus"},
      {R"j({"op":"select","control":"CboTarifa(1)","index":99})j", "control 'CboTarifa(1)' has no such item"},
      {R"({"op":"check","control":"LblFechaEnt","value":1})", "control 'LblFechaEnt' takes no such value"},
      {R"({"op":"unload","form":"Form4"})", "form 'Form4' is not loaded"},
      {R"({"op":"unload","form":"Form1"})", "form 'Form1' is no dialog"},
      {R"({"op":"start","dir":"/tmp/x\u0000y"})", "a path holds a zero byte"},
      {R"j({"op":"select","control":"CboTarifa(1)","index":null})j", "field 'text' is missing"},
  };
  std::deque<std::string> lines = Connected({});
  for (const auto& [line, failure] : failures)
    lines.emplace_back(line);
  lines.emplace_back(R"({"op":"state"})");
  const auto replies = Run(lines);
  ASSERT_EQ(replies.size(), failures.size() + 4);
  for (std::size_t i = 0; i < failures.size(); ++i) {
    EXPECT_FALSE(replies[i + 3]["ok"].get<bool>()) << failures[i].first;
    EXPECT_EQ(replies[i + 3]["error"], failures[i].second);
  }
  EXPECT_TRUE(replies.back()["ok"].get<bool>());
}

TEST_F(DriverTest, WithoutAStationThereIsNothingToDrive) {
  const auto replies = Run({R"({"op":"state"})", R"({"op":"quit"})", R"({"op":"state"})"});
  ASSERT_EQ(replies.size(), 2u);
  EXPECT_EQ(replies[0]["error"], "no station is started");
  EXPECT_TRUE(replies[0]["now"].is_null());
  EXPECT_TRUE(replies[1]["ok"].get<bool>());
}

TEST_F(DriverTest, ARoundThroughTheGate) {
  const auto replies =
      Run(Connected({kNumber, kPlate, kInsert, kYes, R"({"op":"advance","ms":2220000})", kNumber, kSecond,
                     R"({"op":"get","controls":["LblValor"]})", kDelete, kYes, R"({"op":"view"})"}));
  EXPECT_EQ(replies[10]["values"]["LblValor"]["Caption"], "$ 3700.00");  // 37 minutes at 100
  EXPECT_EQ(replies[11]["waiting"]["box"]["title"], "Vintoral - Confirmar Ficha");
  EXPECT_TRUE(replies[13]["view"].empty());
  EXPECT_EQ(folder_.Get("p01/Multimedia/Vintoral.HST").size(), 2u * 188);
}

TEST_F(DriverTest, InputThatEndsUnderTheQuestionOfSavingWritesNothingMore) {
  Run(Connected({kNumber, kPlate}));
  const auto before = Files();
  Run(Connected({kNumber, kPlate, kInsert}));
  EXPECT_EQ(Files(), before);
}

TEST_F(DriverTest, InputThatEndsUnderTheQuestionOfRetiringWritesNothingMore) {
  Run(Connected({kNumber, kPlate, kInsert, kYes}));
  const auto before = Files();
  const auto replies = Run(Connected({kNumber, kSecond, kDelete}));
  ASSERT_EQ(replies.back()["waiting"]["box"]["title"], "Vintoral - Confirmar Ficha");
  EXPECT_EQ(Files(), before);
}

TEST_F(DriverTest, InputThatEndsUnderTheQuestionOfClosingStoresNoScreenState) {
  const auto replies = Run(Connected({kClose}));
  ASSERT_EQ(replies.back()["waiting"]["box"]["title"], "Vintoral - Cerrar Aplicación");
  EXPECT_FALSE(Files().contains("p01/Recursos/Vintoral.DAT"));
}

TEST_F(DriverTest, InputThatEndsUnderTheWelcomeLeavesTheStationHalfStarted) {
  Run({Start()});
  EXPECT_TRUE(Files().contains("p01/Objetos/Servidor.INI"));
  EXPECT_FALSE(Files().contains("p01/Multimedia/Vintoral.ACT"));
}

TEST_F(DriverTest, QuitUnderABoxIsAnsweredAndRunsNothingMore) {
  Run(Connected({kNumber, kPlate}));
  const auto before = Files();
  const auto replies = Run(Connected({kNumber, kPlate, kInsert, R"({"op":"quit"})", kYes}));
  ASSERT_EQ(replies.size(), 7u);
  EXPECT_TRUE(replies.back()["ok"].get<bool>());
  EXPECT_EQ(Files(), before);
}

TEST_F(DriverTest, AnEndedProgramCanBeStartedAgain) {
  const auto replies = Run(
      Connected({kClose, kYes, R"({"op":"state"})", Start().c_str(), R"({"op":"answer","button":"ok"})"}));
  EXPECT_EQ(replies[4]["events"].back()["event"], "end");
  EXPECT_EQ(replies[5]["error"], "the program has ended");
  EXPECT_TRUE(replies[6]["ok"].get<bool>());
  EXPECT_TRUE(replies[7]["ok"].get<bool>());
}

TEST_F(DriverTest, AStationUnderABoxIsNotStartedAgain) {
  const auto replies = Run({Start(), Start()});
  ASSERT_EQ(replies.size(), 2u);
  EXPECT_EQ(replies[1]["error"], "the box 'Vintoral - BIENVENIDO' is on screen");
}

TEST_F(DriverTest, ASetClockLetsNoTimePass) {
  const char* const get = R"({"op":"get","controls":["LblFechaEnt"]})";
  const auto replies =
      Run(Connected({kSecond, R"({"op":"clock","now":"2026-11-21 08:00:00"})", get, kSecond, get}));
  EXPECT_EQ(replies[4]["now"], "2026-11-21 08:00:00.000");
  EXPECT_EQ(replies[5]["values"]["LblFechaEnt"]["Caption"], "14:00  (20/11/2026)");
  EXPECT_EQ(replies[7]["values"]["LblFechaEnt"]["Caption"], "08:00  (21/11/2026)");
}

TEST_F(DriverTest, TextIsUtf8InBothDirections) {
  const auto replies = Run(Connected(
      {kNumber, R"({"op":"type","text":"ñandú 漢"})", R"j({"op":"get","controls":["TxtCampo(1)"]})j"}));
  EXPECT_EQ(replies[5]["values"]["TxtCampo(1)"]["Text"], "ÑANDÚ ?");
}

TEST_F(DriverTest, AStationInAFolderThatWindows1252CantNameKeepsItsFichas) {
  const std::string start = Json{
      {"op", "start"},
      {"dir", folder_.Path("Стоянка 漢")},
      {"now", "2026-11-20 14:00:00"},
      {"desktop",
       folder_.Path()}}.dump();
  Run({start, R"({"op":"answer","button":"ok"})", R"({"op":"advance","ms":3000})", kNumber, kPlate, kInsert,
       kYes});
  const std::string act = folder_.Get("Стоянка 漢/Multimedia/Vintoral.ACT");
  ASSERT_EQ(act.size(), 188'188u);
  EXPECT_EQ(act.substr(6 * 188 + 46, 6), "ABC123");
}

TEST_F(DriverTest, SameInputSameRepliesAndSameBytes) {
  const auto session = Connected({kNumber, kPlate, kInsert, kYes, R"({"op":"advance","ms":600000})", kNumber,
                                  kSecond, kDelete, kYes, R"({"op":"state"})", kClose, kYes});
  const auto first = Run(session);
  const auto firstFiles = Files();
  std::filesystem::remove_all(folder_.Path("p01"));
  EXPECT_EQ(Run(session), first);
  EXPECT_EQ(Files(), firstFiles);
}

TEST_F(DriverTest, ACamerasSettingsAreChosenInTheirDialog) {
  const auto replies = Run(
      Connected({R"({"op":"devices","cameras":["USB"]})",
                 R"({"op":"camera","name":"USB","modes":[{"width":640,"height":480,"rate":30}],)"
                 R"("controls":[{"id":"hue","label":"Tono","least":-9,"most":9,"value":1}]})",
                 R"({"op":"advance","ms":60000})", R"({"op":"key","code":87,"mask":5})",
                 R"get({"op":"get","controls":["FormCamara.LblControl(0)","FormCamara.TxtControl(0)"]})get",
                 R"({"op":"select","control":"FormCamara.CboModo","index":1})",
                 R"set({"op":"set","control":"FormCamara.TxtControl(0)","text":"-4"})set",
                 R"({"op":"key","code":13})"}));
  ASSERT_EQ(replies.size(), 11U);
  EXPECT_EQ(replies[6]["waiting"], (Json{{"form", "FormCamara"}}));
  EXPECT_EQ(replies[7]["values"]["FormCamara.LblControl(0)"]["Caption"], "Tono");
  EXPECT_EQ(replies[7]["values"]["FormCamara.TxtControl(0)"]["Text"], "1");
  EXPECT_TRUE(replies[10]["waiting"].is_null());
  EXPECT_EQ(folder_.Get("p01/Recursos/Vintoral.CFG"), "640x480@30 hue=-4 | USB\r\n");
}

TEST_F(DriverTest, ASettingThatIsNoneIsRefused) {
  const auto replies = Run(Connected({R"({"op":"camera","name":"USB","modes":[{"width":640,"rate":30}]})",
                                      R"({"op":"camera","name":"USB","controls":[7]})"}));
  ASSERT_EQ(replies.size(), 5U);
  EXPECT_EQ(replies[3]["error"], "field 'height' is missing");
  EXPECT_EQ(replies[4]["error"], "field 'id' is missing");
}

}  // namespace
}  // namespace vintoral
