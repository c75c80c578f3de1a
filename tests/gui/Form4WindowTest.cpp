// The window of the articles, worked by keys and mouse.
#include <QCheckBox>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>

#include "gui/Gate.h"
#include "sales/form4/Form4.h"
#include "support/Bytes.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/TickList.h"

namespace vintoral::test {
namespace {

class Articles : public Gate {
 protected:
  /// `count` articles, of which number n, from 0, costs 100 n + 100.
  void Open(int count, const std::function<void()>& steps) {
    std::vector<std::string> lines;
    for (int n = 0; n < count; ++n)
      lines.push_back("ARTICULO " + std::to_string(n) + " = " + std::to_string(100 * n + 100));
    folder_.Put("Recursos/Vintoral.XTR", TariffFile(lines));
    Start();
    InDialog("Form4", Qt::Key_F7, Qt::NoModifier, steps);
  }
  TickList& List() { return Face<TickList>("LstArticulo"); }
  Form4& Model() { return *form_->Form4; }
  /// Presses on a row of those in view, on its name.
  void Press(int place) {
    QTest::mouseClick(&List(), Qt::LeftButton, Qt::NoModifier, List().Place(place).center() - QPoint(100, 0));
    QCoreApplication::processEvents();
  }
  void Wheel(int steps) {
    const QPointF at(20, 20);
    QWheelEvent event(at, List().mapToGlobal(at), {}, {0, steps * 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&List(), &event);
  }
  /// A row as it stands on screen, without the last pixels that it shares with its neighbours.
  QImage RowPicture(int place) {
    const QImage list = Picture(List());
    const QRectF row = List().Place(place).adjusted(2, 2, -2, -2);
    const qreal scale = list.devicePixelRatio();
    return list.copy(QRectF(row.topLeft() * scale, row.size() * scale).toRect());
  }
  /// The station hangs while `steps` run.
  void InAHang(const std::function<void()>& steps) {
    seam_.Hangs = true;
    steps();
    QCoreApplication::processEvents();
    seam_.Hangs = false;
    queue_->Go();
    QCoreApplication::processEvents();
  }
  /// Nothing lies over the list in this row.
  bool IsBare(int row) {
    const QRect quantity = Place(QStringLiteral("CboCantidad(%1)").arg(row));
    return Front().childAt(quantity.center()) == &List();
  }
  QString Value(int row) { return Face<CaptionLabel>(QStringLiteral("TxtTotal(%1)").arg(row)).Caption(); }
  QString Total() { return Value(20); }
  bool HasQuantity(int row) { return Face(QStringLiteral("CboCantidad(%1)").arg(row)).isVisible(); }
  QRect Place(const QString& name) {
    QWidget& face = Face(name);
    return {face.mapTo(&Front(), QPoint()), face.size()};
  }
};

TEST_F(Articles, OpensInItsListWithNothingTicked) {
  Open(5, [this] {
    EXPECT_EQ(Front().windowTitle(), QString::fromUtf8("Vintoral  -  Registrar Extras"));
    EXPECT_EQ(Focused(), "LstArticulo");
    EXPECT_EQ(Total(), "0");
    EXPECT_EQ(Value(4), "0");
    EXPECT_FALSE(HasQuantity(0));
    EXPECT_EQ(Front().findChild<QWidget*>("CboCantidad(5)"), nullptr);
    EXPECT_EQ(Face<QCheckBox>("ChkFactura").text(), "Imprimir factura");
  });
}

TEST_F(Articles, APressOnARowTurnsItsTickOver) {
  Open(5, [this] {
    Press(1);
    EXPECT_TRUE(Model().LstArticulo.Checked[1]);
    EXPECT_TRUE(HasQuantity(1));
    EXPECT_EQ(Shown("CboCantidad(1)"), "1");
    EXPECT_EQ(Total(), "200");
    EXPECT_EQ(Focused(), "LstArticulo");
    Press(3);
    EXPECT_EQ(Total(), "600");
    Press(1);
    EXPECT_FALSE(HasQuantity(1));
    EXPECT_EQ(Total(), "400");
    // Below the last row there is nothing to press.
    Press(6);
    EXPECT_EQ(Total(), "400");
  });
}

TEST_F(Articles, KeysAloneMakeASale) {
  Open(5, [this] {
    Key(Qt::Key_Down);
    Key(Qt::Key_Space);
    Type("1");
    EXPECT_EQ(Focused(), "CboCantidad(1)");
    EXPECT_EQ(Total(), "200");
    Type("2");
    EXPECT_EQ(Total(), "2400");  // with the digit, not behind it
    EXPECT_EQ(Value(1), "2400");
    Key(Qt::Key_Return);
    EXPECT_EQ(Focused(), "CmdRegistrar");
    Key(Qt::Key_Return);
    EXPECT_EQ(dialogs_->Find("Form4"), nullptr);
  });
  EXPECT_EQ(folder_.Get("Recursos/Vintoral.EXT").substr(16, 15), "ARTICULO 1     ");
}

TEST_F(Articles, APressOnAQuantityMarksIt) {
  Open(5, [this] {
    Press(1);
    Press(2);
    Click("CboCantidad(1)");
    EXPECT_EQ(Focused(), "CboCantidad(1)");
    Type("7");
    EXPECT_EQ(Shown("CboCantidad(1)"), "7");
    EXPECT_EQ(Total(), "1700");
  });
}

TEST_F(Articles, OnlyWhatIsNoQuantityBeeps) {
  Open(5, [this] {
    Press(1);
    Type("123");
    EXPECT_EQ(screen_.Beeps, 0);
    Type("4x");
    EXPECT_EQ(screen_.Beeps, 2);
    EXPECT_EQ(Shown("CboCantidad(1)"), "123");
  });
}

TEST_F(Articles, EverythingHasItsPlaceWithTwentyRows) {
  Open(25, [this] {
    const QRect room = Front().rect();
    EXPECT_LE(room.height(), 690);  // below the title bar of the smallest screen
    EXPECT_LE(room.width(), 1366);
    Key(Qt::Key_Space);
    for (int row = 0; row < 20; ++row) {
      const QRect line = List().Place(row).translated(Place("LstArticulo").topLeft());
      for (const char* const family : {"CboCantidad(%1)", "TxtTotal(%1)"}) {
        const QRect place = Place(QString(family).arg(row));
        EXPECT_TRUE(line.contains(place)) << family << row;
      }
      EXPECT_FALSE(
          Place(QString("CboCantidad(%1)").arg(row)).intersects(Place(QString("TxtTotal(%1)").arg(row))));
    }
    for (const char* const name : {"TxtTotal(20)", "ChkFactura", "CmdRegistrar"}) {
      EXPECT_TRUE(room.contains(Place(name))) << name;
      EXPECT_FALSE(Place("LstArticulo").intersects(Place(name))) << name;
    }
    // The largest value of a line, and the largest total that twenty of them make.
    Model().TxtTotal[0].SetText("998999999.99"_w);
    Model().TxtTotal[20].SetText("19979999999.80"_w);
    Refresh();
    EXPECT_EQ(Total(), "19979999999.80");
    EXPECT_TRUE(Face<CaptionLabel>("TxtTotal(0)").Fits());
    EXPECT_TRUE(Face<CaptionLabel>("TxtTotal(20)").Fits());
  });
}

TEST_F(Articles, WheelAndBarScrollAsFarAsThereAreArticles) {
  Open(25, [this] {
    Press(0);
    Type("9");
    EXPECT_TRUE(List().findChild<QScrollBar*>()->isVisible());
    Wheel(-1);
    EXPECT_EQ(Model().LstArticulo.TopIndex, 3);
    EXPECT_FALSE(HasQuantity(0));
    EXPECT_EQ(Total(), "900");
    Wheel(-5);
    EXPECT_EQ(Model().LstArticulo.TopIndex, 5);
    Press(19);
    EXPECT_TRUE(Model().LstArticulo.Checked[24]);
    EXPECT_EQ(Total(), "3400");
    List().findChild<QScrollBar*>()->setValue(0);
    EXPECT_EQ(Model().LstArticulo.TopIndex, 0);
    EXPECT_EQ(List().Top(), 0);
    EXPECT_EQ(Shown("CboCantidad(0)"), "9");
    Wheel(1);
    EXPECT_EQ(Model().LstArticulo.TopIndex, 0);
  });
}

TEST_F(Articles, InAHangTheListScrollsNotchByNotch) {
  Open(50, [this] {
    std::vector<int> tops;
    InAHang([&] {
      const QImage before = RowPicture(1);
      for (int notch = 0; notch < 3; ++notch) {
        Wheel(-1);
        tops.push_back(List().Top());
      }
      EXPECT_EQ(tops, std::vector<int>({3, 6, 9}));
      EXPECT_EQ(List().findChild<QScrollBar*>()->value(), 9);
      EXPECT_NE(RowPicture(1), before);
      EXPECT_EQ(Model().LstArticulo.TopIndex, 0);
      tops.clear();
      seam_.Publish = [this, &tops] {
        Refresh();
        tops.push_back(Model().LstArticulo.TopIndex);
        EXPECT_EQ(List().Top(), 9) << "back at " << tops.back();
      };
    });
    seam_.Publish = [this] { Refresh(); };
    tops.erase(std::unique(tops.begin(), tops.end()), tops.end());
    ASSERT_EQ(tops, std::vector<int>({3, 6, 9}));
    EXPECT_EQ(List().Top(), 9);
    Wheel(1);
    EXPECT_EQ(Model().LstArticulo.TopIndex, 6);
  });
}

TEST_F(Articles, ArrowsTakeTheViewBackThatWasScrolledInAHang) {
  Open(50, [this] {
    InAHang([&] {
      Wheel(-1);
      Key(Qt::Key_End);
      Wheel(-2);
      Key(Qt::Key_Home);
      EXPECT_EQ(List().Top(), 9);
    });
    EXPECT_EQ(Model().LstArticulo.TopIndex, 0);
    EXPECT_EQ(List().Top(), 0);
  });
}

// A quantity that stood beside the name of another article would be sold.
TEST_F(Articles, ScrolledInAHangTheListShowsNoQuantitiesOfOtherRows) {
  Open(50, [this] {
    Press(0);
    Type("9");
    ASSERT_FALSE(IsBare(0));
    const auto ground = [this] {
      return Front().grab(Place("TxtTotal(0)").adjusted(2, 2, -2, -2)).toImage();
    };
    const QImage value = ground();
    InAHang([&] {
      Wheel(-1);
      EXPECT_TRUE(IsBare(0));
      QImage bare = ground();
      bare.fill(bare.pixelColor(0, 0));
      EXPECT_EQ(ground(), bare);
      Press(1);  // the fifth article
      EXPECT_FALSE(Model().LstArticulo.Checked[4]);
    });
    EXPECT_TRUE(Model().LstArticulo.Checked[4]);
    EXPECT_FALSE(IsBare(1));
    EXPECT_EQ(Shown("CboCantidad(1)"), "1");
    EXPECT_EQ(Total(), "1400");
    Wheel(1);
    EXPECT_FALSE(IsBare(0));
    EXPECT_EQ(ground(), value);
  });
}

TEST_F(Articles, EscTakesATickBackAndNoScroll) {
  Open(50, [this] {
    InAHang([&] {
      queue_->Late = [] { return true; };
      Wheel(-1);
      Press(1);
      Key(Qt::Key_Escape);
    });
    queue_->Late = nullptr;
    EXPECT_EQ(Model().LstArticulo.TopIndex, 3);
    EXPECT_EQ(List().Top(), 3);
    EXPECT_FALSE(Model().LstArticulo.Checked[4]);
    Press(1);
    EXPECT_TRUE(Model().LstArticulo.Checked[4]);
    EXPECT_FALSE(IsBare(1));
  });
}

TEST_F(Articles, WithoutMoreThanTwentyThereIsNoBar) {
  Open(20, [this] {
    EXPECT_FALSE(List().findChild<QScrollBar*>()->isVisible());
    Wheel(-1);
    EXPECT_EQ(Model().LstArticulo.TopIndex, 0);
  });
}

TEST_F(Articles, ArrowsTakeTheViewAlong) {
  Open(25, [this] {
    Key(Qt::Key_End);
    EXPECT_EQ(List().Top(), 5);
    EXPECT_EQ(List().findChild<QScrollBar*>()->value(), 5);
    Key(Qt::Key_Home);
    EXPECT_EQ(List().Top(), 0);
  });
}

TEST_F(Articles, TheTickIsSeen) {
  Open(5, [this] {
    Key(Qt::Key_Down);  // the window has come to the front by now
    Key(Qt::Key_Up);
    const QImage first = RowPicture(0), second = RowPicture(1);
    Key(Qt::Key_Space);
    EXPECT_NE(RowPicture(0), first);
    EXPECT_EQ(RowPicture(1), second);
    Key(Qt::Key_Down);
    EXPECT_NE(RowPicture(1), second);  // the ring of the keyboard
    Key(Qt::Key_Up);
    Key(Qt::Key_Space);
    EXPECT_EQ(RowPicture(0), first);
  });
}

TEST_F(Articles, TheInvoiceIsTickedByMouse) {
  Open(5, [this] {
    Click("ChkFactura");
    EXPECT_EQ(Model().ChkFactura.Value, 1);
    EXPECT_TRUE(Face<QCheckBox>("ChkFactura").isChecked());
    EXPECT_EQ(Focused(), "LstArticulo");
  });
}

TEST_F(Articles, InAHangTheInvoiceIsTickedWhenTheStationHasServedIt) {
  Open(5, [this] {
    auto& tick = Face<QCheckBox>("ChkFactura");
    for (const int turns : {1, 2, 1}) {
      const bool before = tick.isChecked();
      InAHang([&] {
        for (int turn = 0; turn < turns; ++turn) {
          Click("ChkFactura");
          Refresh();
          EXPECT_EQ(tick.isChecked(), before);
        }
        tick.click();  // as an assistive tool does
        EXPECT_EQ(tick.isChecked(), before);
      });
      EXPECT_EQ(tick.isChecked(), before != (turns == 1));
      EXPECT_EQ(tick.isChecked(), Model().ChkFactura.Value == 1);
    }
  });
}

TEST_F(Articles, WithoutArticlesTheWindowIsEmpty) {
  Open(0, [this] {
    Key(Qt::Key_Space);
    Wheel(-1);
    Press(0);
    Click("CmdRegistrar");
    EXPECT_EQ(dialogs_->Find("Form4"), nullptr);
  });
  // The list is as the start laid it out: blank.
  EXPECT_EQ(folder_.Get("Recursos/Vintoral.EXT").substr(0, 13),
            std::string("\x08\0\x09\0", 4) + std::string(9, ' '));
}

}  // namespace
}  // namespace vintoral::test
