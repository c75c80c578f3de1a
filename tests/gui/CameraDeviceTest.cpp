// Frames of GStreamer's own test pictures, through the same threads and pipelines as those of real cameras.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <thread>

#include "platform/desktop/DesktopCamera.h"

namespace vintoral {
namespace {

using namespace std::chrono_literals;

String Name(const char* name) {
  return String::FromUtf8(name);
}

/// Comes true within the patience of a busy machine.
template <class Met>
bool Soon(Met met) {
  const auto limit = std::chrono::steady_clock::now() + 20s;
  while (!met() && std::chrono::steady_clock::now() < limit)
    std::this_thread::sleep_for(5ms);
  return met();
}

/// Blue, green and red of a point, counted from the upper left corner.
std::array<int, 3> Point(const cImage& image, int x, int y) {
  const std::uint8_t* const row =
      image.DIBitsPtr() + static_cast<std::size_t>(image.Height() - 1 - y) * image.BytesPerScanLine();
  return {row[3 * x], row[3 * x + 1], row[3 * x + 2]};
}

MATCHER_P3(Nearly, blue, green, red, "") {
  constexpr int kRounding = 5;  // GStreamer reckons colours with eight bits
  return std::abs(arg[0] - blue) <= kRounding && std::abs(arg[1] - green) <= kRounding &&
         std::abs(arg[2] - red) <= kRounding;
}

class CameraDevice : public testing::Test {
 protected:
  /// A camera of that description runs, and its first picture is there.
  void Run(const std::string& description) {
    camera_.AddDevice(Name("Cámara"), description);
    camera_.Start({Name("Cámara"), {}, {}});
    camera_.Begin();
    ASSERT_TRUE(Soon([&] { return camera_.Snap() != nullptr; }));
  }
  DesktopCamera camera_;
};

TEST_F(CameraDevice, IsToldOfOnceTheSystemHasBeenAsked) {
  camera_.AddDevice(Name("Cámara"), "videotestsrc");
  EXPECT_EQ(camera_.Devices(), std::nullopt);
  camera_.Begin();
  ASSERT_TRUE(Soon([&] { return camera_.Devices().has_value(); }));
  EXPECT_EQ(camera_.Devices()->back(), Name("Cámara"));
}

TEST_F(CameraDevice, GivesNothingBeforeTheBeginning) {
  camera_.AddDevice(Name("Cámara"), "videotestsrc");
  camera_.Start({Name("Cámara"), {}, {}});
  EXPECT_EQ(camera_.State(), CameraState::kRunning);
  EXPECT_EQ(camera_.Snap(), nullptr);
}

constexpr int kWidth = 358, kHeight = 251;  // rows that need padding, and no whole number of slices

std::string Bars(const std::string& format, int rate = 30) {
  return "videotestsrc is-live=true pattern=smpte75 ! capsfilter caps=video/x-raw,width=" +
         std::to_string(kWidth) + ",height=" + std::to_string(kHeight) +
         ",framerate=" + std::to_string(rate) + "/1,format=" + format;
}

class CameraColours : public CameraDevice, public testing::WithParamInterface<const char*> {};

// The bars at 75 percent, that is 191 of 255.
TEST_P(CameraColours, AreThoseOfThePicture) {
  Run(Bars(GetParam()));
  const auto still = camera_.Snap();
  ASSERT_NE(still, nullptr);
  EXPECT_EQ(still->Width(), kWidth);
  EXPECT_EQ(still->Height(), kHeight);
  EXPECT_EQ(still->BitCount(), 24);
  const std::array<std::array<int, 3>, 7> bars = {
      {{191, 191, 191}, {0, 191, 191}, {191, 191, 0}, {0, 191, 0}, {191, 0, 191}, {0, 0, 191}, {191, 0, 0}}};
  for (int bar = 0; bar < 7; ++bar) {
    SCOPED_TRACE(bar);
    const auto& [blue, green, red] = bars.at(static_cast<std::size_t>(bar));
    for (const int y : {0, 20, 166})
      EXPECT_THAT(Point(*still, kWidth * (2 * bar + 1) / 14, y), Nearly(blue, green, red));
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, CameraColours,
                         testing::Values("I420", "YV12", "YUY2", "UYVY", "NV12", "Y42B", "BGRx", "RGB"));

TEST_F(CameraDevice, OfGreysGivesGreys) {
  Run(Bars("GRAY8"));
  const auto still = camera_.Snap();
  const auto [blue, green, red] = Point(*still, 20, 20);
  EXPECT_EQ(blue, green);
  EXPECT_EQ(green, red);
  EXPECT_GT(blue, Point(*still, 80, 20)[0]);
}

// Below the bars stands a strip that begins with blue.
TEST_F(CameraDevice, GivesStillsTheRightWayUp) {
  Run("videotestsrc is-live=true pattern=smpte ! capsfilter "
      "caps=video/x-raw,width=320,height=240,format=I420");
  const auto still = camera_.Snap();
  const auto top = Point(*still, 20, 2), strip = Point(*still, 20, 170);
  EXPECT_GT(*std::min_element(top.begin(), top.end()), 150);
  EXPECT_GT(strip[0], 150);
  EXPECT_LT(strip[1] + strip[2], 20);
}

TEST_F(CameraDevice, LeavesAStillAloneThatSomebodyHas) {
  Run(Bars("I420"));
  const auto one = camera_.Snap();
  const auto other = camera_.Snap();
  ASSERT_TRUE(one && other);
  EXPECT_NE(one->DIBitsPtr(), other->DIBitsPtr());
}

TEST_F(CameraDevice, GivesNoStillWhileItRests) {
  Run(Bars("I420"));
  EXPECT_TRUE(camera_.Pause());
  EXPECT_EQ(camera_.State(), CameraState::kPaused);
  EXPECT_EQ(camera_.Snap(), nullptr);
  EXPECT_TRUE(camera_.Resume());
  EXPECT_EQ(camera_.State(), CameraState::kRunning);
  EXPECT_TRUE(Soon([&] { return camera_.Snap() != nullptr; }));
  camera_.Stop();
  EXPECT_EQ(camera_.State(), CameraState::kStopped);
  EXPECT_EQ(camera_.Snap(), nullptr);
  EXPECT_FALSE(camera_.Pause());
  EXPECT_FALSE(camera_.Resume());
}

TEST_F(CameraDevice, StartedOnceMoreGoesOnAsItWas) {
  Run(Bars("I420", 1));  // one picture a second: a new start would have none yet
  camera_.Stop();
  camera_.Start({Name("Cámara"), {}, {}});
  EXPECT_NE(camera_.Snap(), nullptr);
}

TEST_F(CameraDevice, ForgetsThePicturesOfTheOneBefore) {
  camera_.AddDevice(
      Name("Otra"),
      "videotestsrc is-live=true pattern=white ! capsfilter caps=video/x-raw,width=64,height=48");
  Run(Bars("I420"));
  camera_.Start({Name("Otra"), {}, {}});
  ASSERT_TRUE(Soon([&] {
    const auto still = camera_.Snap();
    EXPECT_TRUE(still == nullptr || still->Width() == 64);
    return still != nullptr;
  }));
  camera_.Start({Name("Cámara"), {}, {}});
  ASSERT_TRUE(Soon([&] {
    const auto still = camera_.Snap();
    EXPECT_TRUE(still == nullptr || still->Width() == kWidth);
    return still != nullptr;
  }));
}

// Two seconds without a picture, and then five until it is asked anew.
TEST_F(CameraDevice, GivesNoOldPictureAndIsAskedAnew) {
  Run("videotestsrc is-live=true ! capsfilter caps=video/x-raw,framerate=1/60");
  ASSERT_TRUE(Soon([&] { return camera_.Snap() == nullptr; }));
  const auto began = std::chrono::steady_clock::now();
  EXPECT_EQ(camera_.Snap(), nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - began, 100ms) << "waited for a camera that has frozen";
  EXPECT_TRUE(Soon([&] { return camera_.Snap() != nullptr; }));
}

TEST_F(CameraDevice, IsAskedAnewWhenItEnds) {
  std::atomic<int> news = 0;
  camera_.Show(10, 10, [&] { ++news; });
  Run("videotestsrc is-live=true num-buffers=1");
  EXPECT_TRUE(Soon([&] { return news >= 3; }));
}

TEST_F(CameraDevice, PaintsAsLargeAsFits) {
  std::atomic<int> news = 0;
  camera_.Show(100, 100, [&] { ++news; });
  Run("videotestsrc is-live=true pattern=red ! capsfilter "
      "caps=video/x-raw,width=400,height=300,framerate=60/1");
  ASSERT_TRUE(Soon([&] { return camera_.Live() != nullptr; }));
  const auto live = camera_.Live();
  EXPECT_EQ(live->width, 100);
  EXPECT_EQ(live->height, 75);
  ASSERT_EQ(live->pixels.size(), 100U * 75 * 4);
  EXPECT_LE(live->pixels[0], 3);
  EXPECT_LE(live->pixels[1], 3);
  EXPECT_GE(live->pixels[2], 252);
  camera_.Show(20, 300, [&] { ++news; });
  ASSERT_TRUE(Soon([&] { return camera_.Live()->width == 20; }));
  EXPECT_EQ(camera_.Live()->height, 15);
}

TEST_F(CameraDevice, PaintsNoMoreThanFifteenTimesASecond) {
  Run("videotestsrc is-live=true pattern=red ! capsfilter "
      "caps=video/x-raw,width=40,height=30,framerate=60/1");
  std::atomic<int> news = 0;
  camera_.Show(40, 30, [&] { ++news; });
  ASSERT_TRUE(Soon([&] { return news > 0; }));
  news = 0;
  std::this_thread::sleep_for(2s);
  EXPECT_LE(news, 2 * 15 + 1);
  EXPECT_GE(news, 15) << "or this machine is very busy";
  camera_.Show(0, 0, {});
  news = 0;
  std::this_thread::sleep_for(200ms);
  EXPECT_EQ(news, 0);
}

}  // namespace
}  // namespace vintoral
