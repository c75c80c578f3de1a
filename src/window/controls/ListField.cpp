#include "window/controls/ListField.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QStylePainter>
#include <QWheelEvent>

#include "window/controls/Text.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"

namespace vintoral {

ListField::ListField(bool editable, QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::NoFocus);
  theme::CoverGround(*this);
  setMaxVisibleItems(20);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  if (editable) {
    editor_ = new TextField(this);
    setEditable(true);
    setLineEdit(editor_);
    editor_->setAutoFillBackground(false);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
  }
  connect(this, &QComboBox::activated, this, [this](int index) {
    if (onChosen) onChosen(index);
  });
}

void ListField::ShineWhenEnabled() {
  QPalette strong = palette();
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    strong.setColor(group, QPalette::Base, QColor::fromRgb(theme::kAccent));
    strong.setColor(group, QPalette::Text, QColor::fromRgb(theme::kDisplayText));
    strong.setColor(group, QPalette::Highlight, QColor::fromRgb(theme::kDisplayText));
    strong.setColor(group, QPalette::HighlightedText, QColor::fromRgb(theme::kAccent));
  }
  setPalette(strong);
  view()->setPalette(QApplication::palette());  // the open list is as any other
  if (editor_ != nullptr) editor_->setPalette(strong);
}

void ListField::ShowRows(const std::vector<String>& rows) {
  const QSignalBlocker quiet(this);
  clear();
  for (const String& row : rows)
    addItem(ToQString(TrimBlanks(row)));
}

void ListField::ShowRow(int index, const QString& text) {
  setCurrentIndex(index);
  text_ = text;
  if (editor_ != nullptr) editor_->setText(text);
  update();
}

QString ListField::Shown() const {
  return text_;
}

void ListField::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  option.currentText = text_;
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  if (editor_ == nullptr) painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ListField::wheelEvent(QWheelEvent* event) {
  event->ignore();  // a category must not change because the wheel passed over it
}

QSize ListField::sizeHint() const {
  return {QComboBox::sizeHint().width(), theme::kRowHeight};
}

QSize ListField::minimumSizeHint() const {
  return {60, theme::kRowMinimum};
}

}  // namespace vintoral
