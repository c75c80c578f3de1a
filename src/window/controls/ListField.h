// A list that opens: shows the text that the station says it has, and tells which row the operator chose.
#pragma once

#include <QComboBox>
#include <functional>
#include <vector>

#include "common/String.h"

namespace vintoral {

class TextField;

class ListField : public QComboBox {
 public:
  /// `editable` lists show a caret in their text.
  ListField(bool editable, QWidget* parent);

  /// Strong colours while it can be used: what it holds is at work.
  void ShineWhenEnabled();

  std::function<void(int)> onChosen;

  void ShowRows(const std::vector<String>& rows);
  void ShowRow(int index, const QString& text);
  TextField* Editor() const { return editor_; }
  /// What the closed list shows.
  QString Shown() const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  QString text_;
  TextField* editor_ = nullptr;
};

}  // namespace vintoral
