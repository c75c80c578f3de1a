// The strip beside an editor's text: a warning sign at each marked line, whose reason the pointer brings up.
#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

namespace vintoral {

class MarkMargin : public QWidget {
 public:
  static constexpr int kWidth = 24;

  /// A line in view, from 0, and where it stands.
  struct Row {
    int line;
    QRect place;
  };
  /// `rows` tells the lines in view whenever it is asked.
  MarkMargin(std::function<std::vector<Row>()> rows, QWidget* parent);

  /// One text for each line, empty where there is no mark.
  void ShowReasons(const QStringList& reasons);
  void ShowCurrent(int line);
  /// The line in view there; none below the last.
  std::optional<Row> RowAt(QPoint at) const;
  /// What is said of the line there; empty where nothing is.
  QString ReasonAt(QPoint at) const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  std::function<std::vector<Row>()> rows_;
  QStringList reasons_;
  int current_ = 0;
};

}  // namespace vintoral
