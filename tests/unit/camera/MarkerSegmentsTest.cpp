#include "camera/cJpeg/MarkerSegments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "camera/cJpeg/cJpegError.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(MarkerSegments, StartAndEndOfImage) {
  Bytes file;
  WriteStartOfImage(file);
  WriteEndOfImage(file);
  EXPECT_THAT(file, ElementsAre(0xFF, 216, 0xFF, 217));
}

// ITU-T T.871, 10.1: length 16, "JFIF" and a zero, version 1.01, no unit, densities 1 and 1, thumbnail 0 by
// 0.
TEST(MarkerSegments, Jfif) {
  Bytes file;
  WriteJfif(file);
  EXPECT_THAT(file, ElementsAre(0xFF, 0xE0, 0, 16, 'J', 'F', 'I', 'F', 0, 1, 1, 0, 0, 1, 0, 1, 0, 0));
}

TEST(MarkerSegments, Comment) {
  Bytes file;
  WriteComment(file, "hola");
  EXPECT_THAT(file, ElementsAre(0xFF, 0xFE, 0, 6, 'h', 'o', 'l', 'a'));
}

TEST(MarkerSegments, CommentOfTheLargestLengthAndOneMore) {
  Bytes file;
  WriteComment(file, std::string(65533, 'x'));
  EXPECT_EQ(file.size(), 65537U);
  EXPECT_EQ(file[2], 0xFF);
  EXPECT_EQ(file[3], 0xFF);
  try {
    WriteComment(file, std::string(65534, 'x'));
    ADD_FAILURE() << "accepted";
  } catch (const cJpegError& error) {
    EXPECT_STREQ(error.what(), "Illegal Comment Length");
  }
}

// The entries travel in zig-zag order: of a table whose entries are their places plus one, the first are 1,
// 2, 9, 17, 10.
TEST(MarkerSegments, QuantizationTable) {
  QuantizationTable table;
  for (std::size_t i = 0; i < 64; ++i)
    table.entries[i] = static_cast<std::uint16_t>(i + 1);
  Bytes file;
  WriteQuantizationTable(file, 1, table);
  ASSERT_EQ(file.size(), 69U);
  EXPECT_THAT(Bytes(file.begin(), file.begin() + 10), ElementsAre(0xFF, 0xDB, 0, 67, 1, 1, 2, 9, 17, 10));
  EXPECT_EQ(file.back(), 64);
}

TEST(MarkerSegments, BadQuantizationTableIsNotWritten) {
  Bytes file;
  EXPECT_THROW(WriteQuantizationTable(file, 0, QuantizationTable{}), cJpegError);
  EXPECT_TRUE(file.empty());
}

TEST(MarkerSegments, BaselineFrame) {
  Bytes file;
  WriteBaselineFrame(file, Layout(0x1234, 0x0567, false, {{{2, 2}, {1, 1}, {1, 2}}}));
  EXPECT_THAT(file, ElementsAre(0xFF, 192, 0, 17, 8, 0x05, 0x67, 0x12, 0x34, 3,  //
                                1, 0x22, 0, 2, 0x11, 1, 3, 0x12, 1));
}

TEST(MarkerSegments, GreyFrameHasOneComponentOfFactorsOne) {
  Bytes file;
  WriteBaselineFrame(file, Layout(320, 240, true, {{{2, 2}, {1, 1}, {1, 1}}}));
  EXPECT_THAT(file, ElementsAre(0xFF, 192, 0, 11, 8, 0, 240, 1, 64, 1, 1, 0x11, 0));
}

TEST(MarkerSegments, HuffmanTable) {
  HuffmanTable table;
  table.codesOfLength[1] = 1;
  table.codesOfLength[3] = 2;
  table.symbols = {0x00, 0xF0, 0x25};
  Bytes file;
  WriteHuffmanTable(file, TableClass::Ac, 1, table);
  const int expected[] = {0xFF, 0xC4, 0, 22, 0x11, 1, 0, 2, 0, 0,    0,    0,
                          0,    0,    0, 0,  0,    0, 0, 0, 0, 0x00, 0xF0, 0x25};
  EXPECT_THAT(file, ElementsAreArray(expected));
}

TEST(MarkerSegments, BadHuffmanTableIsNotWritten) {
  HuffmanTable table;
  table.codesOfLength[1] = 2;
  table.symbols = {0, 1};
  Bytes file;
  EXPECT_THROW(WriteHuffmanTable(file, TableClass::Dc, 0, table), cJpegError);
  EXPECT_TRUE(file.empty());
}

TEST(MarkerSegments, ScanHeader) {
  Bytes file;
  WriteScanHeader(file, 0, 3);
  EXPECT_THAT(file, ElementsAre(0xFF, 0xDA, 0, 12, 3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0));
  file.clear();
  WriteScanHeader(file, 0, 1);
  EXPECT_THAT(file, ElementsAre(0xFF, 0xDA, 0, 8, 1, 1, 0x00, 0, 63, 0));
  file.clear();
  WriteScanHeader(file, 2, 1);
  EXPECT_THAT(file, ElementsAre(0xFF, 0xDA, 0, 8, 1, 3, 0x11, 0, 63, 0));
}

}  // namespace
}  // namespace vintoral
