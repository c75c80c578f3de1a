// The look of the window: one type family, one accent colour beside the states' own colours, high contrast,
// and a keyboard focus that can't be overlooked.
#pragma once

#include <QColor>
#include <QFont>
#include <QStringList>
#include <cstdint>

class QApplication;
class QPainter;
class QRectF;
class QWidget;

namespace vintoral::theme {

inline constexpr QRgb kWindow = 0xFFE9EDF1;  ///< behind the cards
inline constexpr QRgb kCard = 0xFFF9FAFB;
inline constexpr QRgb kField = 0xFFFFFFFF;
inline constexpr QRgb kLine = 0xFFCBD4DC;    ///< hairlines between areas
inline constexpr QRgb kBorder = 0xFF7D8D9C;  ///< outline of what can be typed into
inline constexpr QRgb kText = 0xFF16212E;
inline constexpr QRgb kMuted = 0xFF425466;  ///< captions: 7:1 on a card
inline constexpr QRgb kAccent = 0xFF0B6E99;
inline constexpr QRgb kAccentBright = 0xFF45B8E8;  ///< the accent on the dark panel
inline constexpr QRgb kAccentPale = 0xFFDCEDF5;
inline constexpr QRgb kDisplay = 0xFF14263A;  ///< the dark panel of the amount
inline constexpr QRgb kDisplayText = 0xFFFFFFFF;
inline constexpr QRgb kDisplayMuted = 0xFFB7C8D8;
inline constexpr QRgb kWarning = 0xFFFFC080;        ///< behind a sign that something is wrong
inline constexpr QRgb kAccepted = 0xFF1B7A3D;       ///< the tick of a code that is accepted
inline constexpr QRgb kOff = 0xFFC3CCD5;            ///< a light that is out
inline constexpr QRgb kPictureGround = 0xFFDDE3E9;  ///< where a picture may stand

inline constexpr int kGap = 8;           ///< between cards
inline constexpr int kRowHeight = 32;    ///< of a field, where there is room
inline constexpr int kRowMinimum = 24;   ///< of a field on a small screen
inline constexpr int kTextInset = 9;     ///< from the edge of a field to its text
inline constexpr int kToolButton = 44;   ///< edge of a tool button
inline constexpr int kLabelWidth = 156;  ///< of the labels beside the fields
// The sizes of type. Few, since each costs time when the station starts.
inline constexpr int kCaptionPixels = 12;
inline constexpr int kTextPixels = 15;
inline constexpr int kStrongPixels = 18;
inline constexpr int kCodePixels = 20;
inline constexpr int kAmountPixels = 26;
inline constexpr int kValuePixels = 54;
inline constexpr double kRadius = 5;

/// The system's own family at `pixels` height.
QFont TextFont(int pixels, QFont::Weight weight = QFont::Normal);
/// The first of these families that the system has, or else its own, in one pitch at `pixels` height.
QFont FixedFont(const QStringList& families, int pixels);
/// A colour of the model, whose low byte is red.
QColor FromModel(std::int32_t color);
/// Lets a widget on a card cover what lies behind it up to its corners.
void CoverGround(QWidget& widget, QRgb ground = kCard);
/// The ring around what has the keyboard; brighter on a dark ground.
void PaintFocusRing(QPainter& painter, const QRectF& around, bool onDark = false);
/// Style, palette and font of the whole program.
void Apply(QApplication& application);

}  // namespace vintoral::theme
