#include "camera/cJpeg/EncodePlanes.h"

#include <vector>

#include "camera/cJpeg/ScanCoder.h"
#include "camera/cJpeg/Scans.h"

namespace vintoral {

namespace {

using Tables = std::array<CodingTables, 2>;

void WriteTables(Bytes& file, int selector, const Tables& tables) {
  const CodingTables& table = tables[static_cast<std::size_t>(selector)];
  WriteHuffmanTable(file, TableClass::Dc, selector, table.dc);
  WriteHuffmanTable(file, TableClass::Ac, selector, table.ac);
}

// What stands before the first scan.
void WriteHead(Bytes& file, const Layout& layout, const std::array<QuantizationTable, 2>& tables,
               std::string_view comment) {
  WriteStartOfImage(file);
  WriteJfif(file);
  if (!comment.empty()) WriteComment(file, comment);
  WriteComment(file, kEncoderComment);
  WriteQuantizationTable(file, 0, tables[0]);
  if (layout.components > 1) WriteQuantizationTable(file, 1, tables[1]);
  WriteBaselineFrame(file, layout);
}

// One scan with the tables that it uses; those of the scan before it give way.
void WriteScan(Bytes& file, int first, int components, const ScanSymbols& symbols, const Tables& tables) {
  WriteTables(file, TableOf(first), tables);
  if (components > 1) WriteTables(file, 1, tables);
  WriteScanHeader(file, first, components);
  CodeScan(symbols, tables, file);
}

}  // namespace

std::size_t RoomForFile(std::size_t codedSize, std::size_t commentLength) {
  return codedSize * 13 / 10 + 1000 + commentLength;
}

Bytes EncodePlanes(const ColourPlanes& planes, const std::array<QuantizationTable, 2>& tables,
                   const SamplingFactors& factors, std::string_view comment, const Kernels& kernels) {
  const Layout layout(planes.Width(), planes.Height(), planes.IsGrey(), factors);
  const std::array<Quantizer, 2> quantizers = {Quantizer(tables[0]), Quantizer(tables[1])};
  const std::vector<ScanSymbols> scans = CollectScans(planes, layout, quantizers, kernels);

  std::vector<Tables> coding;
  std::size_t codedSize = 0;
  for (const ScanSymbols& scan : scans) {
    coding.push_back(FitTables(scan));
    codedSize += CodedSize(scan, coding.back());
  }
  Bytes file;
  file.reserve(RoomForFile(codedSize, comment.size()));
  WriteHead(file, layout, tables, comment);
  for (std::size_t i = 0; i < scans.size(); ++i)
    WriteScan(file, static_cast<int>(i), layout.components / layout.Scans(), scans[i], coding[i]);
  WriteEndOfImage(file);
  return file;
}

}  // namespace vintoral
