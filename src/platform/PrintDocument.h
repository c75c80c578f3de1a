// A slip as it is being printed: what stands on the paper, where, and in which type.
//
// The station prints the way one writes on a roll: text goes below text, and what has been printed is not
// taken back. Nothing reaches a printer before the document is whole and goes to Printer::EndDoc, so a slip
// is a value that can be looked at, compared and laid out on whatever paper there is.
#pragma once

#include <string_view>
#include <vector>

#include "common/String.h"
#include "platform/Picture.h"

namespace vintoral {

/// Lengths of a document: a twip is a twentieth of a point, 1440 are an inch.
using Twips = int;
inline constexpr int kTwipsInPoint = 20;

namespace fuente {
/// The fixed pitch of every slip; Liberation Mono, which has its measures, where the system has no other.
inline constexpr std::string_view kTexto = "Courier New";
/// The bars of Code 39, the face that Fuentes\Vintoral.ttf brings.
inline constexpr std::string_view kBarras = "Free 3 of 9";
}  // namespace fuente

/// The measures of a type, in parts of its size. Both types have one width for all their characters, so the
/// place of everything on a slip is known without asking a printer.
struct TypeMeasures {
  double advance;    ///< from one character to the next
  double ascent;     ///< from the top of a line to the foot of its letters
  double linePitch;  ///< from one line to the next
};
/// Of one of the types of `fuente`; any other is measured as the text's.
const TypeMeasures& MeasuresOf(std::string_view fontName);
/// From one line to the next in this type; `fontSize` is in points.
Twips LinePitch(std::string_view fontName, double fontSize);
/// The lines of a text, parted by CR LF: one more than it has line breaks.
std::vector<std::string_view> LinesOf(std::string_view text);

/// One step of a document.
struct PrintOperation {
  enum class Kind { kText, kPicture, kAddFont, kRemoveFont };
  Kind kind = Kind::kText;
  /// Of a text: what is printed; CR LF begins another line below, at the paper's left edge. Of a font
  /// resource: the station path of the file.
  String text;
  // The type of a text; its size is in points.
  String fontName;
  double fontSize = 0;
  bool fontBold = false;
  /// The top left corner.
  Twips x = 0, y = 0;
  /// Of a picture, which fills this place.
  Twips width = 0, height = 0;
  vintoral::Picture picture;

  friend bool operator==(const PrintOperation&, const PrintOperation&) = default;
};

/// The operations of a printer on a document that is not yet through. Where a name of the paper's own is
/// needed: the top left corner is 0, 0.
class PrintDocument {
 public:
  /// Empty: whatever printer is current.
  explicit PrintDocument(String printer = {}) : PrinterWanted(std::move(printer)) {}

  /// The device name of the printer that the document is for; see ChoosePrinter.
  String PrinterWanted;

  // What the next text is printed in, and where.
  String FontName{fuente::kTexto};
  double FontSize = 10;
  bool FontBold = false;
  Twips CurrentX = 0, CurrentY = 0;

  /// How wide the longest line of a text is in the present type.
  Twips TextWidth(std::string_view text) const;
  /// Prints at the present place and goes to the beginning of the line below.
  void Print(const String& text);
  /// A picture in its place; printing goes on where it was.
  void PaintPicture(const Picture& picture, Twips x, Twips y, Twips width, Twips height);
  /// A font that is there for the texts up to RemoveFontResource; `file` is its station path.
  void AddFontResource(std::string_view file);
  void RemoveFontResource(std::string_view file);

  const std::vector<PrintOperation>& Operations() const { return operations_; }
  /// Up to the right edge of the widest thing on it, and to where printing would go on.
  Twips Width() const { return width_; }
  Twips Height() const;

 private:
  void Add(PrintOperation operation);

  std::vector<PrintOperation> operations_;
  Twips width_ = 0;
  Twips foot_ = 0;
};

}  // namespace vintoral
