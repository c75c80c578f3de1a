// The window of the search: where it lies, and what its boxes show.
#include <QCoreApplication>

#include "gui/Gate.h"
#include "window/controls/DialogWindow.h"
#include "window/controls/TextField.h"

namespace vintoral::test {
namespace {

class SearchPlaces : public Gate {
 protected:
  SearchPlaces() {
    Start();
    window_->resize(1366, 768);
    QCoreApplication::processEvents();
    Key(Qt::Key_F5);
  }
  QWidget* Search() const { return dialogs_->Find("Form2"); }
  void Press(int times, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (int i = 0; i < times; ++i)
      Key(key, modifiers);
  }
  TextField& Field(int index) { return Face<TextField>(QStringLiteral("TxtCampo(%1)").arg(index)); }
  /// Of a control of the main window, on the screen.
  QRect PlaceOnMain(const QString& name) const {
    const auto* const widget = window_->findChild<QWidget*>(name);
    return {widget->mapToGlobal(QPoint()), widget->size()};
  }
};

TEST_F(SearchPlaces, HidesNothingOfWhatItFinds) {
  ASSERT_NE(Search(), nullptr);
  const QRect place = Search()->geometry();
  EXPECT_TRUE(window_->geometry().contains(place));
  QStringList names = {"TxtCampo(0)", "TxtCampo(5)", "LblValor", "LblInfo(0)", "CboMinutos", "Picture2"};
  for (int cell = 0; cell < 50; ++cell)
    names << QStringLiteral("ImgFicha(%1)").arg(cell);
  for (const QString& name : names) {
    EXPECT_GT(PlaceOnMain(name).width(), 50) << name.toStdString();
    EXPECT_FALSE(place.intersects(PlaceOnMain(name))) << name.toStdString();
  }
}

TEST_F(SearchPlaces, ItsBoxesEndAtOneLine) {
  const auto right = [this](const QString& name) {
    QWidget& face = Face(name);
    return face.mapTo(&Front(), QPoint(face.width(), 0)).x();
  };
  const int edge = right(QStringLiteral("TxtCampo(4)"));
  for (const int index : {1, 3, 9})
    EXPECT_EQ(right(QStringLiteral("TxtCampo(%1)").arg(index)), edge) << index;
  EXPECT_EQ(right(QStringLiteral("CboTarifa")), edge);
}

TEST_F(SearchPlaces, MarksAreSeenWhereTheKeyboardIs) {
  ASSERT_EQ(Focused(), "TxtCampo(4)");
  ASSERT_FALSE(Field(3).hasSelectedText());
  Press(1, Qt::Key_Tab, Qt::ShiftModifier);
  ASSERT_EQ(Focused(), "TxtCampo(3)");
  EXPECT_EQ(Field(3).selectedText(), Field(3).text());
  Press(2, Qt::Key_Tab);
  ASSERT_EQ(Focused(), "TxtCampo(5)");
  EXPECT_FALSE(Field(3).hasSelectedText());
  EXPECT_EQ(Field(3).text().size(), 10);
}

}  // namespace
}  // namespace vintoral::test
