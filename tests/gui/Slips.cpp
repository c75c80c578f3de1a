#include "gui/Slips.h"

#include <QApplication>
#include <QEnterEvent>
#include <QTest>
#include <QTextBlock>
#include <QWindow>
#include <algorithm>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Theme.h"

namespace vintoral::test {

QString Slips::Line(int part, int line) {
  return Text(part).document()->findBlockByNumber(line).text();
}

QRect Slips::Place(const QString& name) {
  QWidget& face = Face(name);
  return {face.mapTo(&Front(), QPoint()), face.size()};
}

QRect Slips::Characters(int part, int line, int column, int count) {
  SlipText& text = Text(part);
  QTextCursor cursor(text.document()->findBlockByNumber(line));
  cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
  const QRect first = text.cursorRect(cursor);
  cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, count);
  const QRect behind = text.cursorRect(cursor);
  const QPoint origin = text.viewport()->mapTo(&Front(), QPoint());
  return QRect(first.topLeft(), QPoint(behind.left() - 1, first.bottom())).translated(origin);
}

double Slips::Edge(int part, int line) {
  constexpr int kBlankFrom = 28;
  // A line of 31 characters tells where the columns stand.
  const int dated = Line(kPreview, 1).size() == SlipText::kColumns ? 1 : 2;
  const int from = Characters(kPreview, dated, kBlankFrom, 1).left();
  SlipText& text = Text(part);
  const QPoint corner = text.mapTo(&Front(), QPoint());
  const QImage shown = Picture(text);
  const double ratio = shown.devicePixelRatio();
  const int row = text.Place(line, 0, 1).center().y();
  for (int x = static_cast<int>((from - corner.x()) * ratio); x < shown.width(); ++x) {
    if (shown.pixel(x, static_cast<int>(row * ratio)) != theme::kField) return corner.x() + x / ratio;
  }
  return 0;
}

void Slips::ExpectTabOrder(const QStringList& names) {
  EXPECT_EQ(Focused(), names.last());
  for (const QString& name : names) {
    const QImage before = Picture(Face(name));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focused(), name);
    EXPECT_TRUE(Face(name).hasFocus()) << name.toStdString();
    EXPECT_NE(Picture(Face(name)), before) << name.toStdString() << " doesn't show the keyboard";
  }
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Focused(), names.at(names.size() - 2));
}

void Slips::ExpectTickBeside(const QString& tick, int line) {
  const QRect characters = Characters(kPreview, line, 0, 1);
  const QRect place = Place(tick);
  EXPECT_LE(std::abs(place.center().y() - characters.center().y()), 1) << tick.toStdString();
  EXPECT_EQ(place.height(), characters.height()) << tick.toStdString();
  EXPECT_LT(place.right(), characters.left()) << tick.toStdString();
}

void Slips::ExpectAllInside(const Form& form) {
  // 1366 x 768 at 100 and at 125 %, less a title bar.
  EXPECT_LE(Front().width(), 1366);
  EXPECT_LE(Front().height(), 738);
  EXPECT_LE(Front().minimumSizeHint().width(), 1093);
  EXPECT_LE(Front().minimumSizeHint().height(), 584);
  for (const QSize size : {Front().minimumSizeHint(), QSize(1300, 738)}) {
    Front().resize(size);
    QCoreApplication::processEvents();
    for (const Control* control : form.Controls()) {
      const QString name = QString::fromStdString(control->Name);
      ASSERT_NE(Front().findChild<QWidget*>(name), nullptr) << control->Name;
      EXPECT_TRUE(Front().rect().contains(Place(name))) << control->Name << " " << size.height();
      const auto* const label = dynamic_cast<const CaptionLabel*>(&Face(name));
      EXPECT_TRUE(label == nullptr || label->Fits()) << control->Name;
    }
  }
}

void Slips::HoverOver(const QString& name) {
  QWidget& face = Face(name);
  const QPointF at = QRectF(face.rect()).center();
  QEnterEvent event(at, face.mapTo(face.window(), at), face.mapToGlobal(at));
  QCoreApplication::sendEvent(&face, &event);
}

std::vector<DeviceEvent> Slips::Printed() {
  std::vector<DeviceEvent> printed;
  for (DeviceEvent& event : events_.Take())
    if (event.kind == DeviceEvent::Kind::kPrint) printed.push_back(std::move(event));
  return printed;
}

}  // namespace vintoral::test
