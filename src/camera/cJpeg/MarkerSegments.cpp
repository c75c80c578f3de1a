#include "camera/cJpeg/MarkerSegments.h"

#include <initializer_list>

#include "camera/cJpeg/cJpegError.h"

namespace vintoral {

namespace {

// ITU-T T.81, table B.1.
enum Marker {
  kStartOfFrame0 = 0xC0,
  kDefineHuffmanTable = 0xC4,
  kStartOfImage = 0xD8,
  kEndOfImage = 0xD9,
  kStartOfScan = 0xDA,
  kDefineQuantizationTable = 0xDB,
  kApplication0 = 0xE0,
  kComment = 0xFE,
};

void PutByte(Bytes& file, int value) {
  file.push_back(static_cast<std::uint8_t>(value));
}

// Parameters of 16 bits have their high byte first (B.1.1.1).
void PutWord(Bytes& file, int value) {
  PutByte(file, value >> 8);
  PutByte(file, value & 0xFF);
}

void PutMarker(Bytes& file, Marker marker) {
  PutByte(file, 0xFF);
  PutByte(file, marker);
}

// The length of a segment counts its own two bytes, but not the marker (B.1.1.4).
void PutSegment(Bytes& file, Marker marker, std::size_t parameters) {
  PutMarker(file, marker);
  PutWord(file, static_cast<int>(parameters + 2));
}

}  // namespace

void WriteStartOfImage(Bytes& file) {
  PutMarker(file, kStartOfImage);
}

void WriteEndOfImage(Bytes& file) {
  PutMarker(file, kEndOfImage);
}

// The parameters are those of ITU-T T.871, 10.1: version 1.01, no unit, square pixels, no thumbnail.
void WriteJfif(Bytes& file) {
  PutSegment(file, kApplication0, 14);
  constexpr std::uint8_t kParameters[] = {'J', 'F', 'I', 'F', 0, 1, 1, 0, 0, 1, 0, 1, 0, 0};
  file.insert(file.end(), std::begin(kParameters), std::end(kParameters));
}

void WriteComment(Bytes& file, std::string_view text) {
  if (text.size() > kMaxCommentLength) throw cJpegError("Illegal Comment Length");
  PutSegment(file, kComment, text.size());
  file.insert(file.end(), text.begin(), text.end());
}

void WriteQuantizationTable(Bytes& file, int selector, const QuantizationTable& table) {
  CheckQuantization(table);
  PutSegment(file, kDefineQuantizationTable, 1 + kBlockSize);
  PutByte(file, table.precision << 4 | selector);
  for (const std::uint8_t place : kZigZag)
    PutByte(file, table.entries[place]);
}

void WriteBaselineFrame(Bytes& file, const Layout& layout) {
  PutSegment(file, kStartOfFrame0, 6 + 3 * static_cast<std::size_t>(layout.components));
  PutByte(file, 8);  // bits in a sample
  PutWord(file, layout.height);
  PutWord(file, layout.width);
  PutByte(file, layout.components);
  for (int i = 0; i < layout.components; ++i) {
    PutByte(file, i + 1);
    PutByte(file, layout.Factor(i).horizontal << 4 | layout.Factor(i).vertical);
    PutByte(file, TableOf(i));
  }
}

void WriteHuffmanTable(Bytes& file, TableClass kind, int selector, const HuffmanTable& table) {
  CheckHuffmanTable(table);
  PutSegment(file, kDefineHuffmanTable, 1 + kMaxCodeLength + table.symbols.size());
  PutByte(file, static_cast<int>(kind) << 4 | selector);
  for (std::size_t length = 1; length <= kMaxCodeLength; ++length)
    PutByte(file, table.codesOfLength[length]);
  file.insert(file.end(), table.symbols.begin(), table.symbols.end());
}

void WriteScanHeader(Bytes& file, int first, int components) {
  PutSegment(file, kStartOfScan, 4 + 2 * static_cast<std::size_t>(components));
  PutByte(file, components);
  for (int i = first; i < first + components; ++i) {
    PutByte(file, i + 1);
    PutByte(file, TableOf(i) << 4 | TableOf(i));  // Huffman tables for DC and AC
  }
  for (const int byte : {0, kBlockSize - 1, 0})
    PutByte(file, byte);  // the whole spectrum, in one approximation
}

}  // namespace vintoral
