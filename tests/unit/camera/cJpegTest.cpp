#include "camera/cJpeg/cJpeg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "camera/cJpeg/cJpegError.h"
#include "unit/camera/LibJpeg.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

std::string ErrorOf(const std::function<void()>& misuse) {
  try {
    misuse();
  } catch (const cJpegError& error) {
    return error.what();
  }
  return "";
}

// A marker and what its segment holds; the scan's data is left out.
struct Segment {
  int marker;
  Bytes parameters;
};

std::vector<Segment> SegmentsOf(const Bytes& file) {
  std::vector<Segment> segments;
  for (std::size_t at = 0; at + 1 < file.size();) {
    EXPECT_EQ(file[at], 0xFF) << "at " << at;
    const int marker = file[at + 1];
    at += 2;
    segments.push_back({marker, {}});
    if (marker == 216 || marker == 217) continue;
    const auto start = file.begin() + static_cast<std::ptrdiff_t>(at);
    const int length = start[0] << 8 | start[1];
    segments.back().parameters.assign(start + 2, start + length);
    at += static_cast<std::size_t>(length);
    // After a scan header comes coded data, in which a byte of ones is followed by a zero.
    if (marker == 0xDA) {
      while (file[at] != 0xFF || file[at + 1] == 0)
        ++at;
    }
  }
  return segments;
}

std::vector<int> MarkersOf(const Bytes& file) {
  std::vector<int> markers;
  for (const Segment& segment : SegmentsOf(file))
    markers.push_back(segment.marker);
  return markers;
}

// Four by two greys, in a picture with a palette.
constexpr Rgb kGreys[] = {{0, 0, 0}, {90, 90, 90}, {180, 180, 180}, {255, 255, 255}};
constexpr std::uint8_t kGreyPixels[] = {0, 1, 2, 3, 3, 2, 1, 0};
const PixelView kGreyPicture = {4, 2, 8, kGreyPixels, 4, kGreys};

class cJpegTest : public testing::Test {
 protected:
  made::MadePicture picture = made::Photograph(40, 24, 2);
  cJpeg jpeg;
};

TEST_F(cJpegTest, StartsWithQuality75AndNoComment) {
  EXPECT_EQ(jpeg.Quality(), 75);
  EXPECT_EQ(jpeg.Comment(), "");
}

TEST_F(cJpegTest, StartsWithFactors2And1) {
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  const std::vector<Segment> segments = SegmentsOf(jpeg.Encode());
  EXPECT_THAT(segments[5].parameters, ElementsAre(8, 0, 24, 0, 40, 3, 1, 0x22, 0, 2, 0x11, 1, 3, 0x11, 1));
}

TEST_F(cJpegTest, WritesTheSegmentsOfAColourPictureInOrder) {
  jpeg.Comment("hola");
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  const Bytes file = jpeg.Encode();
  // Image, JFIF, two comments, two quantisation tables, frame, four Huffman tables, scan, end.
  EXPECT_THAT(MarkersOf(file),
              ElementsAre(216, 0xE0, 0xFE, 0xFE, 0xDB, 0xDB, 192, 0xC4, 0xC4, 0xC4, 0xC4, 0xDA, 217));
  const std::vector<Segment> segments = SegmentsOf(file);
  EXPECT_EQ(std::string(segments[2].parameters.begin(), segments[2].parameters.end()), "hola");
  const std::string own(segments[3].parameters.begin(), segments[3].parameters.end());
  EXPECT_TRUE(own.starts_with("JPEG Encoder Class")) << own;
  std::vector<int> selectors;
  for (const std::size_t i : {4U, 5U, 7U, 8U, 9U, 10U})
    selectors.push_back(segments[i].parameters[0]);
  EXPECT_THAT(selectors, ElementsAre(0, 1, 0x00, 0x10, 0x01, 0x11));
}

TEST_F(cJpegTest, WritesOneOfEachTableForAGreyPicture) {
  ASSERT_TRUE(jpeg.SampleHDC(kGreyPicture, 4, 2));
  EXPECT_THAT(MarkersOf(jpeg.Encode()), ElementsAre(216, 0xE0, 0xFE, 0xDB, 192, 0xC4, 0xC4, 0xDA, 217));
}

TEST_F(cJpegTest, GreyPicturesComeBackGrey) {
  jpeg.Quality(100);
  ASSERT_TRUE(jpeg.SampleHDC(kGreyPicture, 4, 2));
  const made::DecodedJpeg decoded = made::DecodeWithLibJpeg(jpeg.Encode());
  EXPECT_THAT(decoded.complaints, IsEmpty());
  ASSERT_EQ(decoded.components, 1);
  for (std::size_t i = 0; i < 8; ++i)
    EXPECT_NEAR(decoded.pixels[i], kGreys[kGreyPixels[i]].red, 2);
}

TEST_F(cJpegTest, OneColourInThePaletteMakesAColourPicture) {
  const Rgb palette[] = {{0, 0, 0}, {90, 90, 90}, {180, 180, 181}, {255, 255, 255}};
  PixelView coloured = kGreyPicture;
  coloured.palette = palette;
  ASSERT_TRUE(jpeg.SampleHDC(coloured, 4, 2));
  EXPECT_EQ(made::DecodeWithLibJpeg(jpeg.Encode()).components, 3);
}

TEST_F(cJpegTest, QualityOutside1To100ChangesNothing) {
  for (const int quality : {0, -1, 101, 1000}) {
    jpeg.Quality(quality);
    EXPECT_EQ(jpeg.Quality(), 75);
  }
  jpeg.Quality(1);
  EXPECT_EQ(jpeg.Quality(), 1);
  jpeg.Quality(100);
  EXPECT_EQ(jpeg.Quality(), 100);
}

TEST_F(cJpegTest, QualityMayChangeAfterSampling) {
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  jpeg.Quality(95);
  const Bytes changed = jpeg.Encode();
  // The first entry of table 0 at quality 95 is 2: (16 * 10 + 50) / 100.
  EXPECT_EQ(SegmentsOf(changed)[3].parameters[1], 2);
  cJpeg other;
  other.Quality(95);
  ASSERT_TRUE(other.SampleHDC(picture.View(), 40, 24));
  EXPECT_EQ(other.Encode(), changed);
}

TEST_F(cJpegTest, RefusesFactorsOutside1To4) {
  for (std::size_t i = 0; i < 6; ++i) {
    for (const int bad : {0, 5, -1}) {
      int f[] = {1, 1, 1, 1, 1, 1};
      f[i] = bad;
      EXPECT_EQ(ErrorOf([&] { jpeg.SetSamplingFrequencies(f[0], f[1], f[2], f[3], f[4], f[5]); }),
                "Invalid Sampling Value");
    }
  }
}

TEST_F(cJpegTest, TenBlocksInAUnitAreInterleaved) {
  jpeg.SetSamplingFrequencies(4, 2, 1, 1, 1, 1);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  EXPECT_THAT(MarkersOf(jpeg.Encode()),
              ElementsAre(216, 0xE0, 0xFE, 0xDB, 0xDB, 192, 0xC4, 0xC4, 0xC4, 0xC4, 0xDA, 217));
}

TEST_F(cJpegTest, ElevenBlocksInAUnitAreWrittenAsThreeScans) {
  jpeg.SetSamplingFrequencies(3, 3, 1, 1, 1, 1);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  const Bytes file = jpeg.Encode();
  EXPECT_THAT(MarkersOf(file), ElementsAre(216, 0xE0, 0xFE, 0xDB, 0xDB, 192, 0xC4, 0xC4, 0xDA, 0xC4, 0xC4,
                                           0xDA, 0xC4, 0xC4, 0xDA, 217));
  const std::vector<Segment> segments = SegmentsOf(file);
  EXPECT_EQ(segments[5].parameters[7], 0x33);
  // Each scan has one component, and right before it the tables of that component's selector.
  EXPECT_THAT(segments[8].parameters, ElementsAre(1, 1, 0x00, 0, 63, 0));
  EXPECT_THAT(segments[11].parameters, ElementsAre(1, 2, 0x11, 0, 63, 0));
  EXPECT_THAT(segments[14].parameters, ElementsAre(1, 3, 0x11, 0, 63, 0));
  std::vector<int> selectors;
  for (const std::size_t i : {6U, 7U, 9U, 10U, 12U, 13U})
    selectors.push_back(segments[i].parameters[0]);
  EXPECT_THAT(selectors, ElementsAre(0x00, 0x10, 0x01, 0x11, 0x01, 0x11));
}

TEST_F(cJpegTest, EachScanHasTablesThatFitIt) {
  // Cb goes from 0 to 23 and back from block to block, Cr stays at 0.
  for (int y = 0; y < 24; ++y) {
    for (int x = 0; x < 40; ++x)
      picture.Set(x, y, (x / 8 + y / 8) % 2 == 0 ? Rgb{100, 100, 100} : Rgb{100, 92, 141});
  }
  jpeg.SetSamplingFrequencies(2, 2, 2, 2, 2, 2);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  const std::vector<Segment> segments = SegmentsOf(jpeg.Encode());
  const Bytes& cb = segments[9].parameters;
  const Bytes& cr = segments[12].parameters;
  EXPECT_GT(cb.size(), cr.size());
  // Sixteen numbers of codes after the selector, then the symbols: only that of no difference.
  EXPECT_THAT(Bytes(cr.begin() + 17, cr.end()), ElementsAre(0));
}

TEST_F(cJpegTest, TakesRoomForTheCodedSizeAndTheComment) {
  jpeg.Comment(std::string(5000, 'c'));
  picture = made::Photograph(200, 150, 2);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 200, 150));
  const Bytes file = jpeg.Encode();
  ASSERT_GT(file.size(), 8000U);
  // All but what stands before the scan's data, the comment and a few hundred bytes, counts once and three
  // tenths.
  EXPECT_GT(file.capacity(), 6000U + (file.size() - 5900) * 13 / 10);
  EXPECT_LT(file.capacity(), 6000U + (file.size() - 5200) * 13 / 10);
}

TEST_F(cJpegTest, KeepsTheFactorsWhenRefusing) {
  EXPECT_THROW(jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 5), cJpegError);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  EXPECT_EQ(SegmentsOf(jpeg.Encode())[5].parameters[7], 0x22);
}

TEST_F(cJpegTest, RefusesACommentThatNoSegmentHolds) {
  jpeg.Comment(std::string(65533, 'c'));
  EXPECT_EQ(ErrorOf([&] { jpeg.Comment(std::string(65534, 'd')); }), "Illegal Comment Length");
  EXPECT_EQ(jpeg.Comment(), std::string(65533, 'c'));
}

TEST_F(cJpegTest, TheLongestCommentIsReadBack) {
  const std::string comment(65533, '\xFF');
  jpeg.Comment(comment);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  const made::DecodedJpeg decoded = made::DecodeWithLibJpeg(jpeg.Encode());
  EXPECT_THAT(decoded.complaints, IsEmpty());
  ASSERT_EQ(decoded.comments.size(), 2U);
  EXPECT_EQ(decoded.comments[0], comment);
}

TEST_F(cJpegTest, SamplesARectangle) {
  // The left half is black, the right half white; the rectangle is all white but for one column.
  for (int y = 0; y < 24; ++y) {
    for (int x = 0; x < 40; ++x)
      picture.Set(x, y, x < 20 ? Rgb{0, 0, 0} : Rgb{255, 255, 255});
  }
  jpeg.Quality(100);
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 9, 5, 19, 3));
  const made::DecodedJpeg decoded = made::DecodeWithLibJpeg(jpeg.Encode());
  ASSERT_EQ(decoded.width, 9);
  ASSERT_EQ(decoded.height, 5);
  for (std::size_t i = 0; i < decoded.pixels.size(); ++i) {
    EXPECT_NEAR(decoded.pixels[i], i / 3 % 9 == 0 ? 0 : 255, 3);
  }
}

TEST_F(cJpegTest, RowsMayLieAnywhere) {
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  const Bytes expected = jpeg.Encode();
  // Bottom to top, each row 5 bytes longer than it need be.
  constexpr std::size_t kRow = 3 * 40 + 5;
  Bytes turned(kRow * 24, 0xAA);
  for (int y = 0; y < 24; ++y) {
    std::copy_n(picture.At(0, y), 120, turned.begin() + static_cast<std::ptrdiff_t>(kRow) * (23 - y));
  }
  ASSERT_TRUE(
      jpeg.SampleHDC({40, 24, 24, turned.data() + kRow * 23, -static_cast<std::ptrdiff_t>(kRow)}, 40, 24));
  EXPECT_EQ(jpeg.Encode(), expected);
}

TEST_F(cJpegTest, EveryDepthGivesTheFileOfItsColours) {
  const Rgb palette[] = {{0, 0, 0}, {255, 0, 0}, {0, 255, 0}, {255, 255, 255}};
  constexpr std::uint8_t k4[] = {0x01, 0x23, 0x32, 0x10};  // two rows of four
  constexpr std::uint8_t k16[] = {0,    0,    0x00, 0x7C, 0xE0, 0x03, 0xFF, 0x7F,
                                  0xFF, 0x7F, 0xE0, 0x03, 0x00, 0x7C, 0,    0};
  constexpr std::uint8_t k24[] = {0,   0,   0,   0, 0,   255, 0, 255, 0,   255, 255, 255,
                                  255, 255, 255, 0, 255, 0,   0, 0,   255, 0,   0,   0};
  constexpr std::uint8_t k32[] = {0,   0,   0,   9, 0, 0,   255, 9, 0, 255, 0,   9, 255, 255, 255, 9,
                                  255, 255, 255, 9, 0, 255, 0,   9, 0, 0,   255, 9, 0,   0,   0,   9};
  ASSERT_TRUE(jpeg.SampleHDC({4, 2, 24, k24, 12}, 4, 2));
  const Bytes expected = jpeg.Encode();
  const PixelView others[] = {
      {4, 2, 4, k4, 2, palette}, {4, 2, 8, kGreyPixels, 4, palette}, {4, 2, 16, k16, 8}, {4, 2, 32, k32, 16}};
  for (const PixelView& other : others) {
    ASSERT_TRUE(jpeg.SampleHDC(other, 4, 2));
    EXPECT_EQ(jpeg.Encode(), expected) << other.bitCount;
  }
}

TEST_F(cJpegTest, RefusesRectanglesThatAreNotInThePicture) {
  const PixelView view = picture.View();
  EXPECT_FALSE(jpeg.SampleHDC(view, 0, 24));
  EXPECT_FALSE(jpeg.SampleHDC(view, 40, -1));
  EXPECT_FALSE(jpeg.SampleHDC(view, 41, 24));
  EXPECT_FALSE(jpeg.SampleHDC(view, 40, 25));
  EXPECT_FALSE(jpeg.SampleHDC(view, 40, 24, 1, 0));
  EXPECT_FALSE(jpeg.SampleHDC(view, 40, 24, 0, -1));
  EXPECT_FALSE(jpeg.SampleHDC(view, 2147483647, 1, 2147483647, 0));
  EXPECT_FALSE(jpeg.SampleHDC({}, 1, 1));
}

TEST_F(cJpegTest, RefusesMoreThan65500OnASide) {
  const made::MadePicture wide = made::Flat(65501, 1, {}), high = made::Flat(1, 65501, {});
  EXPECT_FALSE(jpeg.SampleHDC(wide.View(), 65501, 1));
  EXPECT_FALSE(jpeg.SampleHDC(high.View(), 1, 65501));
  EXPECT_TRUE(jpeg.SampleHDC(wide.View(), 65500, 1));
  EXPECT_TRUE(jpeg.SampleHDC(high.View(), 1, 65500, 0, 1));
}

TEST_F(cJpegTest, HoldsNothingAfterARefusal) {
  ASSERT_TRUE(jpeg.SampleHDC(picture.View(), 40, 24));
  EXPECT_FALSE(jpeg.SampleHDC(picture.View(), 41, 24));
  EXPECT_THAT(jpeg.Encode(), IsEmpty());
}

TEST_F(cJpegTest, EncodesNothingBeforeSampling) {
  EXPECT_THAT(jpeg.Encode(), IsEmpty());
}

}  // namespace
}  // namespace vintoral
