// The registered user of the ficha: photo, name and points.
#pragma once

#include "window/controls/Card.h"

namespace vintoral {

struct Stage;

class UserCard : public Card {
 public:
  UserCard(Stage& stage, QWidget* parent);
  /// The height at which the photo is four to three.
  static int HeightAt(int width);

 private:
  QWidget* BuildPhoto(Stage& stage);
  QWidget* BuildName(Stage& stage);
  QWidget* BuildPoints(Stage& stage);
};

}  // namespace vintoral
