#include "station/form1/Commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

constexpr int kNone = 0, kShift = 1, kControl = 2, kControlShift = 3, kAlt = 4, kShiftAlt = 5,
              kControlAlt = 6;
const std::vector<int> kAny = {0, 1, 2, 3, 4, 5, 6, 7};

constexpr int kNoButton = -1;

/// One row as the operator's table of keys has it.
struct Row {
  int first;
  int last;
  std::vector<int> masks;
  const char* log;
  int lock;
  int button;
};

const std::vector<Row> kRows = {
    {27, 27, kAny, "", 0, kNoButton},              // Esc
    {33, 33, kAny, "", 0, 1},                      // Page up
    {34, 34, kAny, "", 0, 2},                      // Page down
    {36, 36, kAny, "", 0, kNoButton},              // Home
    {37, 37, kAny, "", 0, kNoButton},              // Left
    {39, 39, kAny, "", 0, kNoButton},              // Right
    {45, 45, kAny, "", 0, 5},                      // Insert
    {46, 46, kAny, "", 0, 6},                      // Delete
    {48, 57, {kControl}, "", 0, kNoButton},        // 0 to 9
    {65, 65, {kControl}, "", 0, kNoButton},        // A
    {66, 66, {kControl}, "", 0, kNoButton},        // B
    {66, 66, {kControlAlt}, "15", 14, kNoButton},  // B
    {67, 67, {kControl}, "", 0, kNoButton},        // C
    {70, 70, {kControl}, "", 0, kNoButton},        // F
    {73, 73, {kControl}, "", 0, kNoButton},        // I
    {73, 73, {kControlAlt}, "", 0, kNoButton},     // I
    {73, 73, {kControlShift}, "", 0, kNoButton},   // I
    {75, 75, {kControlAlt}, "", 0, kNoButton},     // K
    {76, 76, {kControlAlt}, "", 0, kNoButton},     // L
    {77, 77, {kControlAlt}, "", 13, kNoButton},    // M
    {80, 80, {kControlAlt}, "", 0, kNoButton},     // P
    {82, 82, {kControlShift}, "", 17, kNoButton},  // R
    {82, 82, {kControlAlt}, "", 0, kNoButton},     // R
    {84, 84, {kControl}, "10", 1, kNoButton},      // T
    {87, 87, {kControl}, "", 0, kNoButton},        // W
    {87, 87, {kAlt}, "", 0, kNoButton},            // W
    {87, 87, {kShiftAlt}, "11", 0, kNoButton},     // W
    {87, 87, {kControlAlt}, "", 0, kNoButton},     // W
    {88, 88, {kControl}, "", 0, kNoButton},        // X
    {112, 112, {kControl}, "", 0, kNoButton},      // F1
    {112, 112, {kNone}, "", 0, 7},                 // F1
    {113, 113, kAny, "", 0, 8},                    // F2
    {114, 114, kAny, "", 0, 9},                    // F3
    {115, 115, kAny, "", 0, 3},                    // F4
    {116, 116, kAny, "", 0, 4},                    // F5
    {118, 118, kAny, "", 0, 12},                   // F7
    {119, 119, kAny, "", 0, 13},                   // F8
    {120, 120, kAny, "12", 0, kNoButton},          // F9
    {121, 121, kAny, "", 0, kNoButton},            // F10
    {123, 123, kAny, "", 0, kNoButton},            // F12
};

std::vector<int> MasksOf(const KeyCommand& row) {
  std::vector<int> masks;
  for (int mask = 0; mask < 8; ++mask) {
    if ((row.masks & OneMask(mask)) != 0) masks.push_back(mask);
  }
  return masks;
}

TEST(KeyCommands, StandRowByRowInTheOrderOfTheTable) {
  const auto rows = KeyCommands();
  ASSERT_EQ(rows.size(), kRows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE("row " + std::to_string(i) + ", key " + std::to_string(kRows[i].first));
    EXPECT_EQ(rows[i].code, kRows[i].first);
    EXPECT_EQ(rows[i].lastCode, kRows[i].last);
    EXPECT_EQ(MasksOf(rows[i]), kRows[i].masks);
    EXPECT_STREQ(rows[i].log == nullptr ? "" : rows[i].log, kRows[i].log);
    EXPECT_EQ(rows[i].lock, kRows[i].lock);
    EXPECT_EQ(rows[i].button ? static_cast<int>(*rows[i].button) : kNoButton, kRows[i].button);
    EXPECT_FALSE(rows[i].button && rows[i].action != nullptr);
  }
}

TEST(GuardedOperations, HoldThePositionsThatBelongToNoKeyOrButton) {
  const auto operations = GuardedOperations();
  ASSERT_EQ(operations.size(), 3u);
  EXPECT_STREQ(operations[0].operation, "ImgCambiarFondo_Click");
  EXPECT_EQ(operations[0].lock, 11);
  EXPECT_STREQ(operations[1].operation, "AbrirEtiqueta");
  EXPECT_EQ(operations[1].lock, 12);
  EXPECT_STREQ(operations[2].operation, "ChkFactura_Click");
  EXPECT_EQ(operations[2].lock, 9);
}

TEST(KeyCommands, AKeyFindsTheFirstRowThatAnswersToCodeAndMask) {
  MemoryStation station;
  station.Disk.Put("Fuentes\\Vintoral.ttf", "");
  station.Disk.Put("Recursos\\Vintoral.HFC", "");
  station.Form.PctUsuario[0].Enabled = true;
  station.Form.PctBoton[5].Visible = station.Form.PctBoton[6].Visible = true;
  station.Form.PctBoton[10].BorderStyle = 1;
  for (int item = 0; item < 10; ++item)
    station.Form.CboTarifa[1].AddItem("X"_w);
  for (int code = 0; code < 256; ++code) {
    for (int mask = 0; mask < 8; ++mask) {
      const KeyCommand* expected = nullptr;
      for (std::size_t i = 0; i < kRows.size() && expected == nullptr; ++i) {
        const bool answers = code >= kRows[i].first && code <= kRows[i].last &&
                             std::count(kRows[i].masks.begin(), kRows[i].masks.end(), mask) > 0;
        if (answers) expected = &KeyCommands()[i];
      }
      const KeyCommand* const found = FindKeyCommand(station.Form, code, mask);
      EXPECT_EQ(found, expected) << "key " << code << ", mask " << mask;
    }
  }
}

TEST(KeyCommands, AKeyDoesNothingOnARowOfItsOwn) {
  const MemoryStation station;
  const KeyCommand* const row = FindKeyCommand(station.Form, 'I', kControlShift);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->action, DoNothing);
}

TEST(KeyCommands, F6AndF11AndWrongMasksHaveNoRow) {
  const MemoryStation station;
  for (int mask = 0; mask < 8; ++mask) {
    EXPECT_EQ(FindKeyCommand(station.Form, 117, mask), nullptr) << mask;
    EXPECT_EQ(FindKeyCommand(station.Form, 122, mask), nullptr) << mask;
  }
  EXPECT_EQ(FindKeyCommand(station.Form, 27, 8), nullptr);
  EXPECT_EQ(FindKeyCommand(station.Form, 27, -1), nullptr);
}

/// A key that is a command in one state of the screen and none in the other.
class ConditionTest : public testing::Test {
 protected:
  bool Answers(int code, int mask) { return FindKeyCommand(station_.Form, code, mask) != nullptr; }
  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(ConditionTest, ArrowsTurnPhotosWhileTheUsersCardIsEnabled) {
  for (const int arrow : {37, 39}) {
    form_.PctUsuario[0].Enabled = false;
    EXPECT_FALSE(Answers(arrow, kNone)) << arrow;
    form_.PctUsuario[0].Enabled = true;
    EXPECT_TRUE(Answers(arrow, kNone)) << arrow;
  }
}

TEST_F(ConditionTest, HomeGeneratesWhileTicketsAreOnAndNoNumberIsHeld) {
  EXPECT_FALSE(Answers(36, kNone));
  form_.PctBoton[10].BorderStyle = 1;
  EXPECT_TRUE(Answers(36, kNone));
  form_.TxtCampo[0].Enabled = false;  // of barcode mode
  EXPECT_TRUE(Answers(36, kNone));
  form_.TxtCampo[0].Locked = true;
  EXPECT_FALSE(Answers(36, kNone));
}

TEST_F(ConditionTest, InsertSavesWhileTheSaveButtonIsShown) {
  EXPECT_FALSE(Answers(45, kNone));
  form_.PctBoton[5].Visible = true;
  EXPECT_TRUE(Answers(45, kNone));
}

TEST_F(ConditionTest, DeleteRetiresAndPointsAreResetWhileTheRetireButtonIsShown) {
  EXPECT_FALSE(Answers(46, kNone));
  EXPECT_FALSE(Answers('R', kControlShift));
  form_.PctBoton[6].Visible = true;
  EXPECT_TRUE(Answers(46, kNone));
  EXPECT_TRUE(Answers('R', kControlShift));
}

TEST_F(ConditionTest, ADigitNeedsAsManyCategoriesAsItsKeyLess47) {
  for (int item = 0; item < 4; ++item)
    form_.CboTarifa[1].AddItem("X"_w);
  for (const char digit : {'0', '1', '2', '3'})
    EXPECT_TRUE(Answers(digit, kControl)) << digit;
  for (const char digit : {'4', '5', '6', '7', '8', '9'})
    EXPECT_FALSE(Answers(digit, kControl)) << digit;
}

TEST_F(ConditionTest, CameraKeysNeedTheCameraOn) {
  const std::vector<std::pair<int, int>> keys = {
      {'A', kControl}, {'W', kControl}, {'W', kAlt}, {'W', kControlAlt}};
  for (const auto& [code, mask] : keys) {
    form_.ImgIndicador[4].Visible = false;
    EXPECT_TRUE(Answers(code, mask)) << code << " " << mask;
    form_.ImgIndicador[4].Visible = true;
    EXPECT_FALSE(Answers(code, mask)) << code << " " << mask;
  }
  EXPECT_TRUE(Answers('W', kShiftAlt));
}

TEST_F(ConditionTest, AFileHasToBeThereToBeOpened) {
  EXPECT_FALSE(Answers('B', kControl));
  EXPECT_FALSE(Answers('F', kControl));
  station_.Disk.Put("Fuentes\\Vintoral.ttf", "");
  station_.Disk.Put("Recursos\\Vintoral.HFC", "");
  EXPECT_TRUE(Answers('B', kControl));
  EXPECT_TRUE(Answers('F', kControl));
}

TEST_F(ConditionTest, TheServerIsForgottenWhileConnecting) {
  EXPECT_TRUE(Answers('R', kControlAlt));
  form_.TmrConexion.SetInterval(10000);
  EXPECT_FALSE(Answers('R', kControlAlt));
}

TEST_F(ConditionTest, F10OpensThePathWhileTheBarsAreLightRed) {
  EXPECT_TRUE(Answers(121, kNone));
  form_.LblConexion[0].BackColor = 0xC0FFC0;
  EXPECT_FALSE(Answers(121, kNone));
}

}  // namespace
}  // namespace vintoral
