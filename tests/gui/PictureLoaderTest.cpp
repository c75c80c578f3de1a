// Pictures are read in their turn, and not at all when nobody waits for them any more.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/PosixDisk.h"
#include "support/TempFolder.h"
#include "window/controls/PictureLoader.h"

namespace vintoral::test {
namespace {

/// Holds each reader until the gate is opened, and notes for which width it has decoded.
class HeldPictures : public Pictures {
 public:
  DecodedPicture Decode(std::span<const std::uint8_t> /*bytes*/, const PicturePlace& place) const override {
    std::unique_lock lock(mutex_);
    ++waiting_;
    most_ = std::max(most_, waiting_);
    begun_.push_back(place.width);
    changed_.notify_all();
    changed_.wait(lock, [&] { return open_ || place.width == let_; });
    --waiting_;
    decoded_.push_back(place.width);
    auto pixels = std::make_shared<cImage>();
    return {.pixels = pixels->Create(8, 6, 24) ? pixels : nullptr};
  }
  void Open() {
    const std::lock_guard lock(mutex_);
    open_ = true;
    changed_.notify_all();
  }
  /// Lets the reader of this width through, and no other one.
  void Let(int width) {
    const std::lock_guard lock(mutex_);
    let_ = width;
    changed_.notify_all();
  }
  /// The widths of the first `count` that are read, as soon as so many have begun.
  std::vector<int> AwaitBegun(std::size_t count) const {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return begun_.size() >= count; });
    return begun_;
  }
  std::vector<int> Decoded() const {
    const std::lock_guard lock(mutex_);
    return decoded_;
  }
  int Most() const { return most_; }

 private:
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  mutable std::vector<int> begun_, decoded_;
  mutable int waiting_ = 0, most_ = 0;
  int let_ = 0;
  bool open_ = false;
};

using Turn = PictureLoader::Turn;

class Loader : public testing::Test {
 protected:
  Loader() { folder_.Put("foto.jpg", "whatever"); }
  void Load(int width, Turn turn = Turn::kInRow) {
    readings_.push_back(loader_->Load("foto.jpg"_w, {width, width, false}, turn,
                                      [this, width](const QImage& image, PictureFault) {
                                        arrived_.push_back(width);
                                        image_ = image;
                                      }));
  }
  /// Two that are being read, so that whatever follows waits.
  void Occupy() {
    Load(1), Load(2);
    pictures_.AwaitBegun(2);
  }
  void AwaitArrivals(std::size_t count) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return arrived_.size() >= count; }));
  }

  TempFolder folder_;
  PosixDisk disk_{folder_.Path()};
  HeldPictures pictures_;
  std::unique_ptr<PictureLoader> loader_ = std::make_unique<PictureLoader>(pictures_, disk_);
  std::vector<PictureLoader::Reading> readings_;
  std::vector<int> arrived_;
  QImage image_;
};

TEST_F(Loader, TwoReadAtATime) {
  Occupy();
  for (const int width : {3, 4, 5})
    Load(width);
  pictures_.Open();
  AwaitArrivals(5);
  EXPECT_EQ(pictures_.Most(), 2);
}

TEST_F(Loader, WhatIsFirstDoesNotWaitForTheRow) {
  Occupy();
  for (const int width : {3, 4, 5})
    Load(width);
  Load(9, Turn::kFirst);
  pictures_.Let(1);
  EXPECT_EQ(pictures_.AwaitBegun(3)[2], 9);
  pictures_.Let(9);
  EXPECT_EQ(pictures_.AwaitBegun(4)[3], 3);
  pictures_.Open();
  AwaitArrivals(6);
}

TEST_F(Loader, WhatNobodyWantsAnyMoreIsNotRead) {
  Occupy();
  Load(3), Load(4);
  readings_[2].reset();
  pictures_.Open();
  AwaitArrivals(3);
  std::vector<int> decoded = pictures_.Decoded();
  std::sort(decoded.begin(), decoded.end());
  EXPECT_EQ(decoded, (std::vector<int>{1, 2, 4}));
}

TEST_F(Loader, WhatNobodyWantsAnyMoreDoesNotArrive) {
  Load(1);
  pictures_.AwaitBegun(1);
  pictures_.Open();
  while (pictures_.Decoded().empty()) {
  }
  readings_[0].reset();
  Load(2);
  AwaitArrivals(1);
  EXPECT_EQ(arrived_, (std::vector<int>{2}));
}

TEST_F(Loader, ItsEndReadsNoMore) {
  Occupy();
  for (int width = 3; width < 30; ++width)
    Load(width);
  // The end waits for the two, so they are let go a moment after it has begun.
  std::thread opener([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    pictures_.Open();
  });
  loader_.reset();
  opener.join();
  EXPECT_EQ(pictures_.Decoded().size(), 2U);
}

TEST_F(Loader, ImagesAreAsTheScreenHasThem) {
  pictures_.Open();
  Load(16);
  AwaitArrivals(1);
  EXPECT_EQ(image_.format(), QImage::Format_RGB32);
  EXPECT_EQ(image_.size(), QSize(16, 12));  // 8 x 6 in a square of 16
}

TEST_F(Loader, WhatWasLetGoIsFoundUntilTheEventIsThrough) {
  const vintoral::Picture picture("foto.jpg"_w, FileMark{8, 1}), other("otra.jpg"_w, FileMark{8, 1});
  QPixmap pixmap(4, 3);
  pixmap.fill(Qt::red);
  EXPECT_TRUE(loader_->Find(picture).isNull());
  loader_->LetGo(picture, pixmap);
  loader_->LetGo(other, QPixmap(5, 5));
  EXPECT_EQ(loader_->Find(picture).size(), pixmap.size());
  EXPECT_EQ(loader_->Find(other).size(), QSize(5, 5));
  QCoreApplication::processEvents();
  EXPECT_TRUE(loader_->Find(picture).isNull());
  loader_->OnScreen = [&](const Picture& asked) { return asked == other ? pixmap : QPixmap(); };
  EXPECT_TRUE(loader_->Find(picture).isNull());
  EXPECT_EQ(loader_->Find(other).size(), pixmap.size());
}

}  // namespace
}  // namespace vintoral::test
