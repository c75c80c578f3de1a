#include "camera/DSPreview/FormatosCamara.h"

#include <gtest/gtest.h>

#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

constexpr std::string_view kFile = "Recursos\\Vintoral.CFG";

TEST(FormatosDe, ReadsWhatIsKeptOfEachDevice) {
  const auto formatos =
      FormatosDe("640x480@30 brightness=-12 contrast=3 | USB | Camera\r\nhue=1 | B\r\n1280x720@5 | C\r\n");
  ASSERT_TRUE(formatos);
  ASSERT_EQ(formatos->size(), 3u);
  const CameraFormat& first = formatos->at("USB | Camera"_w);
  EXPECT_EQ(first.mode, (CameraMode{640, 480, 30}));
  EXPECT_EQ(first.controls, (std::map<std::string, int>{{"brightness", -12}, {"contrast", 3}}));
  EXPECT_FALSE(formatos->at("B"_w).mode);
  EXPECT_EQ(formatos->at("C"_w).mode, (CameraMode{1280, 720, 5}));
}

TEST(FormatosDe, AnEmptyTextKeepsNothing) {
  ASSERT_TRUE(FormatosDe(""));
  EXPECT_TRUE(FormatosDe("")->empty());
}

TEST(FormatosDe, WhateverElseIsDamaged) {
  for (const std::string_view text :
       {"x", "640x480@30 | A", "640x480@30 A\r\n", "640x480@ | A\r\n", "640x480 | A\r\n", "0x480@30 | A\r\n",
        "640x0@30 | A\r\n", "640x480@0 | A\r\n", "640x480@30x | A\r\n", "640y480@30 | A\r\n",
        "x480@30 | A\r\n", "=3 | A\r\n", "b= | A\r\n", "b=3x | A\r\n", "b=1 b=2 | A\r\n",
        "640x480@30 320x240@30 | A\r\n", "b=1 | A\r\nb=2 | A\r\n", "b=99999999999 | A\r\n", "b=1 | A\r\nx"})
    EXPECT_FALSE(FormatosDe(text)) << text;
}

TEST(FormatosDe, AnySliceOfAFileIsReadOrDamagedAndNeverElse) {
  const std::string text = "640x480@30 brightness=-12 | A\r\nhue=1 | B\r\n";
  for (std::size_t end = 0; end <= text.size(); ++end) {
    const bool whole = end == 0 || end == 31 || end == text.size();
    EXPECT_EQ(FormatosDe(text.substr(0, end)).has_value(), whole) << end;
  }
}

TEST(TextoDe, IsReadAsItWasWritten) {
  FormatosCamara formatos;
  formatos["A"_w] = {CameraMode{640, 480, 30}, {{"hue", 2}, {"brightness", 1}}};
  formatos["B"_w] = {std::nullopt, {{"hue", -2}}};
  EXPECT_EQ(TextoDe(formatos), "640x480@30 brightness=1 hue=2 | A\r\nhue=-2 | B\r\n"_w);
  EXPECT_EQ(FormatosDe(TextoDe(formatos)), formatos);
  formatos["C"_w] = {};
  EXPECT_EQ(FormatosDe(TextoDe(formatos))->size(), 2u);
}

TEST(LeerFormatos, ADamagedFileIsDeletedThoughItIsReadOnly) {
  test::MemoryDisk disk;
  disk.Put(kFile, "\x01\x02 old times");
  disk.SetReadOnly(kFile);
  EXPECT_TRUE(LeerFormatos(disk).empty());
  EXPECT_FALSE(disk.Exists(kFile));
}

TEST(GuardarFormato, LeavesTheOtherDevicesAsTheyWere) {
  test::MemoryDisk disk;
  disk.Put(kFile, "hue=1 | A\r\nhue=2 | B\r\n");
  ASSERT_TRUE(GuardarFormato(disk, "A"_w, {CameraMode{320, 240, 15}, {}}));
  EXPECT_EQ(disk.Get(kFile), "320x240@15 | A\r\nhue=2 | B\r\n");
}

TEST(GuardarFormato, WhereTheFileCantBeReadItStays) {
  test::MemoryDisk disk;
  disk.Put(kFile, "hue=1 | A\r\nhue=2 | B\r\n");
  test::FaultyDisk faulty(disk);
  faulty.Set().failRead = 1;
  EXPECT_FALSE(GuardarFormato(faulty, "A"_w, {CameraMode{320, 240, 15}, {}}));
  EXPECT_EQ(disk.Get(kFile), "hue=1 | A\r\nhue=2 | B\r\n");
}

}  // namespace
}  // namespace vintoral
