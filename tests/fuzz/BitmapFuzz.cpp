// Any bytes as a .bmp file: read, altered in every way, written and read again.
#include "camera/cImage/Bitmap.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto image = vintoral::ReadBitmapFile({data, size});
  if (!image) return 0;
  const auto again = vintoral::ReadBitmapFile(vintoral::WriteBitmapFile(*image));
  if (!again || vintoral::WritePackedBitmap(*again) != vintoral::WritePackedBitmap(*image)) __builtin_trap();
  const auto turned = image->Rotate(data[size - 1] * 90);
  const auto other = image->Resample(1 + data[size / 2] % 64, 1 + data[size / 3] % 64);
  if (!image->Greyscale() || !image->Mirror(data[2] % 2 == 0) || !other) __builtin_trap();
  if (turned) other->PaintHDC(vintoral::cImage(*turned).hDC(), data[3] - 128, data[4] - 128);
  return 0;
}
