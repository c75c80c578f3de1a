// A caption on a coloured ground. Its place is fixed when the window is laid out: whatever it shows later,
// nothing around it moves. A text that is too long for the place is drawn smaller.
#pragma once

#include <QWidget>
#include <optional>

namespace vintoral {

class CaptionLabel : public QWidget {
 public:
  struct Look {
    int pixels = 15;
    QFont::Weight weight = QFont::Normal;
    QRgb color = 0xFF16212E;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    int padding = 8;
    QString sample;  ///< the longest usual text: the place is made for it
    bool outlined = false;
  };
  CaptionLabel(const Look& look, QWidget* parent);

  void ShowCaption(const QString& caption);
  /// Nothing: the ground behind shows through.
  void ShowGround(std::optional<QColor> ground);
  const QString& Caption() const { return caption_; }
  std::optional<QColor> Ground() const { return ground_; }
  /// Can the caption be read whole at a size that is still legible?
  bool Fits() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont FittingFont() const;
  Look look_;
  QString caption_;
  std::optional<QColor> ground_;
};

}  // namespace vintoral
