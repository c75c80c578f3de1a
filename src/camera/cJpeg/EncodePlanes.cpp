#include "camera/cJpeg/EncodePlanes.h"

#include "camera/cJpeg/Scan.h"

namespace vintoral {

namespace {

using CodingTables = std::array<BlockCoder::Tables, 2>;

// The size of the coded data in bytes, stuffed bytes not counted.
std::size_t FitTables(const SymbolCounter& counter, CodingTables& tables) {
  std::uint64_t bits = 0;
  for (int selector = 0; selector < 2; ++selector) {
    BlockCoder::Tables& table = tables[static_cast<std::size_t>(selector)];
    table.dc = BuildHuffmanTable(counter.DcCounts(selector));
    table.ac = BuildHuffmanTable(counter.AcCounts(selector));
    bits += CodedBits(counter.DcCounts(selector), table.dc) + CodedBits(counter.AcCounts(selector), table.ac);
  }
  return static_cast<std::size_t>(bits / 8 + 1);
}

// Enough for all but contrived pictures, for which the coder makes more: stuffed bytes, and the segments
// around the scan.
std::size_t RoomFor(std::size_t codedSize, std::string_view comment) {
  return codedSize * 13 / 10 + 1000 + comment.size();
}

}  // namespace

Bytes EncodePlanes(const ColourPlanes& planes, const std::array<QuantizationTable, 2>& tables,
                   const SamplingFactors& factors, std::string_view comment, const Kernels& kernels) {
  const Layout layout(planes.Width(), planes.Height(), planes.IsGrey(), factors);
  const std::array<Quantizer, 2> quantizers = {Quantizer(tables[0]), Quantizer(tables[1])};
  const int selectors = layout.components > 1 ? 2 : 1;

  SymbolCounter counter;
  ForEachBlock(planes, layout, quantizers, kernels, counter);
  CodingTables coding;
  const std::size_t room = RoomFor(FitTables(counter, coding), comment);

  Bytes file;
  file.reserve(room);
  WriteStartOfImage(file);
  WriteJfif(file);
  if (!comment.empty()) WriteComment(file, comment);
  WriteComment(file, kEncoderComment);
  for (int i = 0; i < selectors; ++i)
    WriteQuantizationTable(file, i, tables[static_cast<std::size_t>(i)]);
  WriteBaselineFrame(file, layout);
  for (int i = 0; i < selectors; ++i) {
    WriteHuffmanTable(file, TableClass::Dc, i, coding[static_cast<std::size_t>(i)].dc);
    WriteHuffmanTable(file, TableClass::Ac, i, coding[static_cast<std::size_t>(i)].ac);
  }
  WriteScanHeader(file, layout.components);
  BlockCoder coder(file, room - file.size(), coding);
  ForEachBlock(planes, layout, quantizers, kernels, coder);
  coder.Finish();
  WriteEndOfImage(file);
  return file;
}

}  // namespace vintoral
