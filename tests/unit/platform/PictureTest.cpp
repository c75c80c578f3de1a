#include "platform/Picture.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

std::shared_ptr<const cImage> Frame() {
  auto frame = std::make_shared<cImage>();
  EXPECT_TRUE(frame->Create(4, 3, 24));
  return frame;
}

TEST(Picture, IsNothingAtFirst) {
  const Picture nothing;
  EXPECT_TRUE(nothing.Empty());
  EXPECT_TRUE(nothing.Path().Empty());
  EXPECT_EQ(nothing.Pixels(), nullptr);
  EXPECT_TRUE(Picture(String()).Empty());
  EXPECT_TRUE(Picture(std::shared_ptr<const cImage>()).Empty());
}

TEST(Picture, IsAFile) {
  Picture picture(Frame());
  picture = "Fondos\\a.jpg"_w;
  EXPECT_FALSE(picture.Empty());
  EXPECT_EQ(picture.Path(), "Fondos\\a.jpg"_w);
  EXPECT_EQ(picture.Pixels(), nullptr);
}

TEST(Picture, IsPixelsThatAreShared) {
  const auto frame = Frame();
  Picture picture = "Fondos\\a.jpg"_w;
  picture = frame;
  EXPECT_FALSE(picture.Empty());
  EXPECT_TRUE(picture.Path().Empty());
  EXPECT_EQ(picture.Pixels(), frame);
}

TEST(Picture, IsTheSameByPathOrByTheVeryPixels) {
  const auto frame = Frame();
  EXPECT_EQ(Picture(frame), Picture(frame));
  EXPECT_NE(Picture(frame), Picture(Frame()));
  EXPECT_NE(Picture(frame), Picture());
  EXPECT_EQ(Picture("a.jpg"_w), Picture("a.jpg"_w));
  EXPECT_NE(Picture("a.jpg"_w), Picture("A.jpg"_w));
  EXPECT_NE(Picture("a.jpg"_w), Picture());
}

TEST(Picture, AnotherFileOfTheSameNameIsAnotherPicture) {
  const Picture picture("a.jpg"_w, {1000, 7});
  EXPECT_EQ(picture.Path(), "a.jpg"_w);
  EXPECT_EQ(picture.Mark(), (FileMark{1000, 7}));
  EXPECT_FALSE(picture.Empty());
  EXPECT_EQ(picture, Picture("a.jpg"_w, {1000, 7}));
  EXPECT_NE(picture, Picture("a.jpg"_w, {1001, 7}));
  EXPECT_NE(picture, Picture("a.jpg"_w, {1000, 8}));
  EXPECT_NE(picture, Picture("a.jpg"_w));
}

}  // namespace
}  // namespace vintoral
