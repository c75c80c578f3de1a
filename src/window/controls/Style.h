// How fields, lists and check boxes are drawn: the toolkit's plain style, with the project's own outlines.
#pragma once

#include <QProxyStyle>

namespace vintoral {

class Style : public QProxyStyle {
 public:
  Style();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;
};

}  // namespace vintoral
