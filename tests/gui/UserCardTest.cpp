// The card of a registered user: who it is, what has been earned, and how that is cleared.
#include <QImage>
#include <QTest>

#include "gui/Gate.h"
#include "records/Register.h"
#include "records/RegistroUsuario.h"
#include "window/controls/CaptionLabel.h"

namespace vintoral::test {
namespace {

class UserCards : public Gate {
 protected:
  UserCards() {
    Start();
    RegistroUsuario user;
    user.Placa = "ABC123";
    user.Nombre = "CARMEN";
    user.Apellido =
        "IB\xC1\xD1"
        "EZ";
    user.Telefono = "6015550147";
    user.Categoria = "MOTOCICLETA";
    user.Puntos = 207;
    Users().Write(1, user, false).PassOver();
  }
  Register<RegistroUsuario> Users() {
    return {form_->Devices().disk, form_->RutaCompartida("Vintoral.USR"), OpenMode::kCreate};
  }
  void Open() {
    Type("7");
    Key(Qt::Key_Return);
  }
  void OpenForCarmen() {
    Open();
    Type("abc123");
    Key(Qt::Key_Return);
  }
  void LetIn() {
    OpenForCarmen();
    WillAnswer(Answer::kYes);
    Key(Qt::Key_Insert);
    ASSERT_EQ(form_->TotalVista(), 1);
  }
  QString Name() { return Face<CaptionLabel>("UserName").Caption(); }
};

TEST_F(UserCards, AKnownUserFillsTheFormAtOnce) {
  Open();
  EXPECT_EQ(Name(), "");
  Type("abc123");
  Key(Qt::Key_Return);
  EXPECT_EQ(Shown("TxtCampo(2)"), "CARMEN");
  EXPECT_EQ(Shown("TxtCampo(3)"), "IBÁÑEZ");
  EXPECT_EQ(Shown("TxtCampo(4)"), "6015550147");
  EXPECT_EQ(Shown("CboTarifa(1)").trimmed(), "MOTOCICLETA");
  EXPECT_EQ(Focused(), "CboTarifa(1)");
  EXPECT_EQ(Name(), "CARMEN IBÁÑEZ");
  EXPECT_EQ(Shown("LblPuntos(3)"), "207");
  EXPECT_TRUE(Face("LblPuntos(3)").isVisible());
  EXPECT_FALSE(Face("ImgPuntos").isVisible());
  Key(Qt::Key_Escape);
  EXPECT_EQ(Name(), "");
  EXPECT_FALSE(Face("LblPuntos(3)").isVisible());
}

TEST_F(UserCards, TheirPhotoIsSeen) {
  QImage red(320, 240, QImage::Format_RGB32);
  red.fill(Qt::red);
  std::filesystem::create_directories(folder_.Path("Multimedia/Imágenes USR"));
  ASSERT_TRUE(red.save(QString::fromStdString(folder_.Path("Multimedia/Imágenes USR/000001.jpg"))));
  const auto seen = [this] {
    QWidget& photo = Face("ImgUsuario");
    const QPoint middle = photo.mapTo(window_.get(), photo.rect().center());
    return QColor(Picture(*window_).pixel(middle * Picture(*window_).devicePixelRatio()));
  };
  EXPECT_LT(seen().red() - seen().blue(), 100);
  OpenForCarmen();
  // Beside the window the photo is read.
  for (int i = 0; i < 500 && seen().red() - seen().blue() < 200; ++i)
    QTest::qWait(10);
  EXPECT_GT(seen().red() - seen().blue(), 200);
  Key(Qt::Key_Escape);
  EXPECT_LT(seen().red() - seen().blue(), 100);
}

TEST_F(UserCards, AStrangerHasNoCard) {
  Open();
  Type("zzz999");
  Key(Qt::Key_Return);
  Type("ana");
  EXPECT_EQ(Shown("TxtCampo(2)"), "ANA");
  EXPECT_EQ(Name(), "");
}

TEST_F(UserCards, WhoLeavesIsOnTheCardWithTheSum) {
  LetIn();
  Advance(30 * 60'000);  // two quarters of an hour
  EXPECT_EQ(Name(), "");
  Open();
  EXPECT_EQ(Name(), "CARMEN IBÁÑEZ");
  EXPECT_EQ(Shown("LblPuntos(1)"), "209");
  EXPECT_TRUE(Face("ImgPuntos").toolTip().contains("Reiniciar Total Puntos"));
}

TEST_F(UserCards, PointsAreClearedByTheStarAfterAQuestion) {
  LetIn();
  Open();
  ASSERT_EQ(Shown("LblPuntos(1)"), "207");
  WillAnswer(Answer::kNo);
  Click("ImgPuntos");
  EXPECT_EQ(boxes_.back().title, "Vintoral - Reiniciar Total Puntos"_w);
  EXPECT_EQ(boxes_.back().preselected, Answer::kNo);
  EXPECT_EQ(Shown("LblPuntos(1)"), "207");
  EXPECT_TRUE(Face("ImgPuntos").isVisible());
  WillAnswer(Answer::kYes);
  Click("ImgPuntos");
  EXPECT_EQ(Shown("LblPuntos(1)"), "0");
  EXPECT_FALSE(Face("ImgPuntos").isVisible());
  EXPECT_EQ(Name(), "CARMEN IBÁÑEZ");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Users().Read(1)->Puntos, 207);  // nothing was retired
}

}  // namespace
}  // namespace vintoral::test
