// A slip whose header and footer are written, with a preview between them: one strip of paper, and beside and
// over the lines of the preview what belongs to them.
#pragma once

#include <QWidget>
#include <vector>

class QCheckBox;

namespace vintoral {

class SlipPhoto;
class SlipText;
class TextField;

class SlipPaper : public QWidget {
 public:
  /// `lines`: that the preview has room for.
  SlipPaper(int lines, QWidget* parent);

  SlipText& Header() const { return *header_; }
  SlipText& Preview() const { return *preview_; }
  SlipText& Footer() const { return *footer_; }

  /// A tick on the left of a line of the preview, which is pale without it.
  void PutBeside(QCheckBox& tick, int line);
  /// A field over columns of a line of the preview. Its text keeps to the columns; its edges stand `inset`
  /// pixels beside them.
  void PutOver(TextField& field, int line, double column, double columns, int inset);
  /// A photo over empty lines of the preview, and its tick on the left of the first.
  void PutPhoto(SlipPhoto& photo, QCheckBox& tick, int line, int lines);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Beside {
    QWidget* tick;
    int line;
  };
  struct Over {
    QWidget* face;
    QRect place;  ///< in the preview
  };
  QSize SizeFor(int lines) const;
  void PlaceTexts();
  void PlaceRest();

  SlipText* header_;
  SlipText* preview_;
  SlipText* footer_;
  int previewHeight_;
  std::vector<Beside> beside_;
  std::vector<Over> over_;
};

}  // namespace vintoral
