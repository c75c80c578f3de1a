// Where everything of a slip comes to stand on the paper that a queue has. Lengths are points.
#pragma once

#include <string_view>
#include <vector>

#include "platform/PrintDocument.h"

namespace vintoral {

struct PaperSize {
  double width = 0;
  double length = 0;

  friend bool operator==(const PaperSize&, const PaperSize&) = default;
};

/// What the printer can't reach, from each edge.
struct PaperMargins {
  double left = 0, right = 0, top = 0, bottom = 0;
};

/// The paper that a queue has and takes.
struct QueuePaper {
  PaperSize standard{595, 842};  ///< a sheet, of a queue that doesn't tell
  PaperMargins margins;
  /// Other sizes that it can be asked for by name.
  std::vector<PaperSize> sizes;
  /// Between which lengths paper of the standard width can have any; both 0 where it can't.
  double shortest = 0, longest = 0;
};

/// Narrower than any sheet: receipt paper.
bool IsRoll(const QueuePaper& paper);

/// A line of text or a picture, on its page.
struct SlipItem {
  const PrintOperation* operation = nullptr;
  std::string_view line;  ///< empty of a picture
  Twips x = 0, y = 0;
  /// The station path of the type's file, of a line in bars; empty where none is there.
  std::string_view barsFile;
};

struct SlipPage {
  Twips top = 0;  ///< of the document: what stands there stands at the page's upper edge
  std::vector<SlipItem> items;
};

/// Points into the document that it was made from.
struct SlipLayout {
  PaperSize paper;
  bool own = false;  ///< the paper is not the queue's standard one: the job must name it
  double left = 0, top = 0;
  double scale = 1;  ///< a document wider than the paper is made smaller as a whole, and none larger
  std::vector<SlipPage> pages;  ///< none of a document with nothing on it
};

SlipLayout LayOut(const PrintDocument& document, const QueuePaper& paper);

}  // namespace vintoral
