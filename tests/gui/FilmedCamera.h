// A camera whose live pictures a test gives, one by one.
#pragma once

#include <QColor>
#include <QImage>
#include <QSize>
#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <utility>

#include "platform/headless/GivenCamera.h"

namespace vintoral::test {

class FilmedCamera : public GivenCamera {
 public:
  void Show(int width, int height, std::function<void()> news) override {
    Asked = {width, height};
    News = std::move(news);
  }
  std::shared_ptr<const LivePicture> Live() override {
    ++Taken;
    return Picture;
  }

  /// A picture of one colour, as large as was asked for, and the news of it.
  void Film(const QColor& color) {
    QImage image(Asked, QImage::Format_RGB32);
    image.fill(color);
    Film(image);
  }
  void Film(const QImage& image) {
    Give(image);
    if (News) News();
  }
  void Give(const QImage& image) {
    auto picture = std::make_shared<LivePicture>();
    picture->width = image.width();
    picture->height = image.height();
    picture->pixels.resize(static_cast<std::size_t>(image.sizeInBytes()));
    std::memcpy(picture->pixels.data(), image.constBits(), picture->pixels.size());
    Picture = std::move(picture);
  }

  QSize Asked;                 ///< empty while no view wants pictures
  std::function<void()> News;  ///< of whoever asked
  std::shared_ptr<const LivePicture> Picture;
  int Taken = 0;  ///< how often a view has painted
};

}  // namespace vintoral::test
