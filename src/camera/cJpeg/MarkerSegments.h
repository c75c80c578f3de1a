#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "camera/cJpeg/HuffmanTable.h"
#include "camera/cJpeg/Layout.h"
#include "camera/cJpeg/QuantizationTable.h"

namespace vintoral {

using Bytes = std::vector<std::uint8_t>;

// The length field counts itself, and has 16 bits.
inline constexpr std::size_t kMaxCommentLength = 65535 - 2;

enum class TableClass { Dc = 0, Ac = 1 };

// The component selectors are 1, 2, 3; component 1 uses the tables 0, each other one the tables 1.
inline int TableOf(int component) {
  return component == 0 ? 0 : 1;
}

// Each appends one segment to the file. Clauses are those of ITU-T T.81. A scan header names `components`
// components from `first` on.
void WriteStartOfImage(Bytes& file);                                                        // SOI, B.1.1.3
void WriteJfif(Bytes& file);                                                                // APP0, B.2.4.6
void WriteComment(Bytes& file, std::string_view text);                                      // COM, B.2.4.5
void WriteQuantizationTable(Bytes& file, int selector, const QuantizationTable& table);     // DQT, B.2.4.1
void WriteBaselineFrame(Bytes& file, const Layout& layout);                                 // SOF0, B.2.2
void WriteHuffmanTable(Bytes& file, TableClass kind, int selector, const HuffmanTable& t);  // DHT, B.2.4.2
void WriteScanHeader(Bytes& file, int first, int components);                               // SOS, B.2.3
void WriteEndOfImage(Bytes& file);                                                          // EOI, B.1.1.3

}  // namespace vintoral
