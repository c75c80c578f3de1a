// A card with a title above what stands on it.
#pragma once

#include "window/controls/Card.h"

namespace vintoral {

class TitledCard : public Card {
 public:
  /// Lays a layout's place out: its margins, with room for the title.
  static constexpr QMargins kInside{12, 34, 12, 12};
  explicit TitledCard(QWidget* parent);

  void ShowTitle(const QString& title);
  const QString& Title() const { return title_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;
};

}  // namespace vintoral
