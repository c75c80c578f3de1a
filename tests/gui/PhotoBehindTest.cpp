// The photo of the entrance is made beside the sale, and comes into the grid by itself.
#include <cstring>
#include <future>

#include "gui/Gate.h"

namespace vintoral::test {
namespace {

class PhotosBehind : public Gate {
 protected:
  PhotosBehind() {
    camera_.Installed = {"CAMARA"_w};
    const auto frame = std::make_shared<cImage>();
    if (!frame->Create(640, 480, 24)) throw std::bad_alloc();
    std::memset(frame->DIBitsPtr(), 0x80, frame->BytesPerScanLine() * 480);
    camera_.Cameras["CAMARA"_w].frame = frame;
    Start();
    // The disk is busy with another photo until Go.
    Disk().Behind({"another.jpg"_w}, [gate = go_.get_future().share()](vintoral::Disk&) { gate.wait(); });
  }
  ~PhotosBehind() override { Go(); }
  vintoral::Disk& Disk() { return form_->Devices().disk; }
  void Go() {
    if (!std::exchange(gone_, true)) go_.set_value();
  }
  void LetIn(const QString& plate) {
    Type("7");
    Key(Qt::Key_Return);
    Type(plate);
    Key(Qt::Key_Return);
    WillAnswer(Answer::kYes);
    Key(Qt::Key_Insert);
    ASSERT_EQ(form_->TotalVista(), 1);
  }
  const vintoral::Picture& Cell() { return form_->ImgFicha[0].Picture; }

 private:
  std::promise<void> go_;
  bool gone_ = false;
};

TEST_F(PhotosBehind, TheSaleIsThroughBeforeThePhotoIsThere) {
  LetIn("klm483");
  EXPECT_TRUE(form_->ImgFicha[0].Visible);
  EXPECT_TRUE(Cell().Empty());
  Advance(1000);
  EXPECT_TRUE(Cell().Empty());
  Go();
  Disk().Settle();
  EXPECT_TRUE(Cell().Empty());
  Advance(500);
  EXPECT_FALSE(Cell().Path().Empty());
  EXPECT_TRUE(folder_.Get("Multimedia/Im\u00e1genes ACT/000007.jpg").starts_with("\xFF\xD8"));
}

TEST_F(PhotosBehind, ItComesWhileTheNextOneIsTyped) {
  LetIn("klm483");
  Type("8");
  Key(Qt::Key_Return);
  Type("ab");
  Go();
  Disk().Settle();
  Advance(500);
  EXPECT_FALSE(Cell().Path().Empty());
  EXPECT_EQ(Shown("TxtCampo(1)"), "AB");
}

TEST_F(PhotosBehind, ItsUserHasItToo) {
  LetIn("klm483");
  Go();
  Disk().Settle();
  const std::string photo = folder_.Get("Multimedia/Im\u00e1genes ACT/000007.jpg");
  ASSERT_TRUE(photo.starts_with("\xFF\xD8"));
  EXPECT_EQ(folder_.Get("Multimedia/Im\u00e1genes USR/000001.jpg"), photo);
  EXPECT_EQ(folder_.Get("Multimedia/Im\u00e1genes INI/000001.jpg"), photo);
}

TEST_F(PhotosBehind, WhoeverIsCalledUpHasHis) {
  LetIn("klm483");
  Go();
  Type("7");
  Key(Qt::Key_Return);
  EXPECT_FALSE(form_->Picture2.Picture.Path().Empty());
}

}  // namespace
}  // namespace vintoral::test
