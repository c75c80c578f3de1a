// Shifts and the history by the menu: marks in the registers, captions, questions, reports.
#include <gmock/gmock.h>

#include "records/RegistroExtra.h"
#include "safety/form5/Form5.h"
#include "station/form1/Sonidos.h"
#include "unit/network/RejillaFixture.h"
#include "unit/safety/Diarios.h"

namespace vintoral {
namespace {

using test::EntryOf;
using test::kFdr;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* kPage = "Recursos\\Vintoral.HTML";
constexpr const char* kExt = "Recursos\\Vintoral.EXT";
constexpr const char* kHst = "Multimedia\\Vintoral.HST";

class TurnoTest : public test::RejillaTest {
 protected:
  TurnoTest() {
    Station.Printer.Installed = {{"Tira80"_w}, "Tira80"_w};
    PutHistory({RegistroFicha{}, Gone(2, "10:00  (19/11/2026)"), Gone(3, "09:15  (20/11/2026)")});
    Disk.Put("Multimedia\\Vintoral.NSR", Bytes({RegistroFicha{}, Gone(2, "08:00  (20/11/2026)")}));
    Disk.Put("Multimedia\\Vintoral.CRD", "");
  }
  static RegistroFicha Gone(int row, const char* stamp) {
    RegistroFicha ficha = Salida(row, row + 5, stamp);
    ficha.EnUso = true;  // as rows of the history are
    ficha.ValorCobrado = Money::FromUnits(1500);
    return ficha;
  }
  static std::string Bytes(const std::vector<RegistroFicha>& rows) {
    std::string bytes;
    for (const RegistroFicha& row : rows) {
      const auto record = row.Encode();
      bytes.append(record.data(), record.size());
    }
    return bytes;
  }
  bool Marked(const char* file, std::size_t row) const {
    std::array<char, RegistroFicha::kSize> bytes{};
    Disk.Get(file).copy(bytes.data(), bytes.size(), (row - 1) * bytes.size());
    return RegistroFicha::Decode(bytes).InicioTurno;
  }
  RegistroExtra Sale(std::size_t line) const {
    std::array<char, RegistroExtra::kSize> bytes{};
    Disk.Get(kExt).copy(bytes.data(), bytes.size(), (line - 1) * bytes.size());
    return RegistroExtra::Decode(bytes);
  }
  void Menu(std::deque<std::function<void()>> steps) {
    Station.InDialog = std::move(steps);
    Station.InDialog.emplace_back([this] { Station.Hands.Key(keys::kEscape, 0); });
    Station.Hands.Key(keys::kF8, 0);
    Station.InDialog.clear();
    EXPECT_EQ(Form.Form5, nullptr);
  }
  void Click(std::size_t button) { Station.Hands.Click(Form.Form5->CmdMenu[button]); }
  void Begin() {
    Menu({[this] { Click(Form5::kTurno); }});
    ASSERT_TRUE(Form.TurnoActivo);
    Station.Events.Take();
  }
  std::string Caption(std::size_t button) { return Form.Form5->CmdMenu[button].Caption.ToUtf8(); }
  std::int64_t Logged(std::size_t number) const {
    return EntryOf(Disk.Get(kFdr), number).CodigoFuncion.Units();
  }
  int Printed() {
    const auto events = Station.Events.Take();
    return static_cast<int>(std::count_if(events.begin(), events.end(), [](const DeviceEvent& event) {
      return event.kind == DeviceEvent::Kind::kPrint;
    }));
  }
};

TEST_F(TurnoTest, MarksTheNewestOfEachRegister) {
  ASSERT_FALSE(Marked(kHst, 3));
  ASSERT_FALSE(Sale(1).MarcaTurnoExtra);
  const std::string sales = Disk.Get(kExt);
  Begin();
  EXPECT_TRUE(Marked(kHst, 3));
  EXPECT_FALSE(Marked(kHst, 2));
  EXPECT_TRUE(Marked("Multimedia\\Vintoral.NSR", 2));
  EXPECT_FALSE(Marked("Multimedia\\Vintoral.NSR", 1));
  EXPECT_EQ(Disk.Get("Multimedia\\Vintoral.CRD"), "") << "there is no movement to mark";
  EXPECT_TRUE(Sale(1).MarcaTurnoExtra);
  EXPECT_FALSE(Sale(2).MarcaTurnoExtra);
  EXPECT_EQ(Disk.Get(kExt).substr(RegistroExtra::kSize), sales.substr(RegistroExtra::kSize));
  EXPECT_EQ(Form.MarcaTurno, StampOf(Station.Clock.Now()));
}

TEST_F(TurnoTest, TheRecordMarkedLastIsTheOneOfHistoryWork) {
  RegistroFicha newUser = Gone(2, "08:00  (20/11/2026)"), points = Gone(4, "08:30  (20/11/2026)");
  newUser.InicioTurno = points.InicioTurno = true;
  ASSERT_NE(Form.FichaAuxiliar, newUser);
  Begin();
  EXPECT_EQ(Form.FichaAuxiliar, newUser) << "there is no movement to mark";
  Disk.Put("Multimedia\\Vintoral.CRD", Bytes({Gone(3, "08:20  (20/11/2026)"), points}));
  Form.IniciarTurno();
  EXPECT_EQ(Form.FichaAuxiliar, points);
}

TEST_F(TurnoTest, AHistoryOfOneBlankRowHasThatOneMarked) {
  PutHistory({RegistroFicha{}});
  Begin();
  EXPECT_TRUE(Marked(kHst, 1));
}

TEST_F(TurnoTest, AnEmptyListOfSalesStaysEmpty) {
  Disk.Put(kExt, "");
  Begin();
  EXPECT_EQ(Disk.Get(kExt), "");
  EXPECT_TRUE(Marked(kHst, 3));
}

TEST_F(TurnoTest, WhatIsMissingIsPassedOverEachByItself) {
  Disk.Remove(kHst).PassOver();
  Disk.Remove(kExt).PassOver();
  Begin();
  EXPECT_TRUE(Marked("Multimedia\\Vintoral.NSR", 2));
  EXPECT_FALSE(Disk.Exists(kHst));
  EXPECT_FALSE(Disk.Exists(kExt));
}

TEST_F(TurnoTest, BeginningClosesTheMenuAndIsSeenAndHeard) {
  Station.Events.Take();
  Menu({[this] {
    EXPECT_EQ(Caption(Form5::kHistorial), "HISTORIAL DÍA");
    EXPECT_EQ(Caption(Form5::kTurno), "COMENZAR TURNO");
    Station.Events.Take();
    Click(Form5::kTurno);
    EXPECT_EQ(Form.Form5, nullptr);
  }});
  EXPECT_THAT(Station.Heard(), ElementsAre(String(voz::kTurnoIniciado)));
  EXPECT_TRUE(Form.ImgIndicador[indicador::kTurno].Visible);
  EXPECT_EQ(Logged(2), 122);
  EXPECT_THAT(Station.Boxes, IsEmpty());
  Menu({[this] {
    EXPECT_EQ(Caption(Form5::kHistorial), "HISTORIAL TURNO");
    EXPECT_EQ(Caption(Form5::kTurno), "TERMINAR TURNO");
  }});
}

TEST_F(TurnoTest, TheEndReportsWhatLeftInItAndAsksNothingWherePaperIsOff) {
  Begin();
  auto rows = Disk.Get(kHst) + Bytes({Gone(4, "13:30  (20/11/2026)"), Gone(5, "13:40  (20/11/2026)")});
  Disk.Put(kHst, rows);
  Menu({[this] {
    Station.Events.Take();
    Click(Form5::kTurno);
    EXPECT_THAT(Station.Boxes, IsEmpty());
    const std::string page = Disk.Get(kPage);
    EXPECT_THAT(page, HasSubstr("TURNO DE TRABAJO P01"));
    EXPECT_THAT(page, HasSubstr("13:40  (20/11/2026)"));
    EXPECT_THAT(page, Not(HasSubstr("09:15  (20/11/2026)")));
    EXPECT_THAT(page, HasSubstr("$ 3000.00"));
    EXPECT_THAT(page, HasSubstr("2 Registro(s)"));
    EXPECT_EQ(Caption(Form5::kTurno), "COMENZAR TURNO");
    EXPECT_EQ(Caption(Form5::kHistorial), "HISTORIAL DÍA");
    std::vector<String> told;
    for (const DeviceEvent& event : Station.Events.Take())
      told.push_back(event.text);
    EXPECT_THAT(told, ElementsAre(String(sonido::kClic), "Explorer.exe Recursos\\Vintoral.HTML"_w,
                                  String(voz::kTurnoTerminado)));
  }});
  EXPECT_FALSE(Form.TurnoActivo);
  EXPECT_FALSE(Form.ImgIndicador[indicador::kTurno].Visible);
  EXPECT_EQ(Logged(2), 123);
  EXPECT_FALSE(Disk.Exists(kPage)) << "it went with the menu";
}

TEST_F(TurnoTest, TheQuestionsAtTheEnd) {
  struct Way {
    std::deque<Answer> answers;
    bool page;
    int slips;
  };
  for (const Way& way : {Way{{Answer::kYes, Answer::kNo}, true, 1},
                         Way{{Answer::kYes, Answer::kYes}, true, 1}, Way{{Answer::kNo}, true, 0},
                         Way{{Answer::kCancel}, false, 0}, Way{{Answer::kYes, Answer::kCancel}, false, 0}}) {
    Begin();
    Form.PctBoton[boton::kTiquetes].BorderStyle = 1;
    Station.Boxes.clear();
    Station.Answers = way.answers;
    Menu({[&] {
      Click(Form5::kTurno);
      EXPECT_EQ(Disk.Exists(kPage), way.page);
      EXPECT_EQ(Printed(), way.slips);
    }});
    ASSERT_THAT(Station.Boxes, SizeIs(way.answers.size()));
    EXPECT_EQ(Station.Boxes[0].title, "Vintoral - Terminar Turno"_w);
    EXPECT_EQ(Station.Boxes[0].text, "¿Desea imprimir también el turno de trabajo en formato tiquete?"_w);
    EXPECT_THAT(Station.Boxes[0].buttons, ElementsAre(Answer::kYes, Answer::kNo, Answer::kCancel));
    if (way.answers.size() == 2) {
      EXPECT_EQ(Station.Boxes[1].text, "¿Desea imprimir sólo un resumen del turno de trabajo?"_w);
    }
    EXPECT_FALSE(Form.TurnoActivo) << "the shift ends whatever is printed";
    Station.Events.Take();
  }
}

TEST_F(TurnoTest, AShiftWithoutExitsHasNoRows) {
  Begin();
  Menu({[this] {
    Click(Form5::kTurno);
    EXPECT_THAT(Disk.Get(kPage), HasSubstr("0 Registro(s)"));
  }});
}

TEST_F(TurnoTest, TheHistoryOfTheLastDay) {
  Station.Answers = {Answer::kYes, Answer::kYes};
  Menu({[this] {
    Click(Form5::kHistorial);
    const std::string page = Disk.Get(kPage);
    EXPECT_THAT(page, HasSubstr("HISTORIAL D\xCD"
                                "A P01"));
    EXPECT_THAT(page, HasSubstr("09:15  (20/11/2026)"));
    EXPECT_THAT(page, Not(HasSubstr("10:00  (19/11/2026)")));
    EXPECT_EQ(Printed(), 1);
  }});
  EXPECT_EQ(Station.Boxes[0].title, "Vintoral - Imprimir Historial"_w);
  EXPECT_EQ(Station.Boxes[0].text, "¿Desea imprimir también el historial en formato tiquete?"_w);
  EXPECT_EQ(Station.Boxes[1].text, "¿Desea imprimir sólo un resumen del historial?"_w);
}

TEST_F(TurnoTest, WithoutAHistoryThereIsNothingToReport) {
  Disk.Remove(kHst).PassOver();
  Station.Answers = {Answer::kNo};
  Menu({[this] { Click(Form5::kHistorial); }});
  EXPECT_FALSE(Disk.Exists(kPage));
}

class ReiniciarHistorialTest : public TurnoTest {
 protected:
  ReiniciarHistorialTest() {
    Disk.Put("Multimedia\\Imágenes HST\\000003.jpg"_w, "exit");
    Disk.CreateFolder("Multimedia\\Imágenes DTL"_w).PassOver();
    Disk.Put("Multimedia\\Imágenes DTL\\ABC70007\\0007-1.jpg"_w, "more");
    Disk.Put("Multimedia\\Imágenes ACT\\000001.jpg"_w, "inside");
  }
  void Reset(std::deque<Answer> answers) {
    Station.Answers = std::move(answers);
    Menu({[this] {
      Station.Events.Take();
      const int last = static_cast<int>(Form.Form5->LstMenu.List.size()) - 1;
      ASSERT_TRUE(Station.Hands.Select(Form.Form5->LstMenu, last));
      EXPECT_NE(Form.Form5, nullptr);
      heard_ = Station.Heard();
    }});
  }
  std::vector<String> heard_;
};

TEST_F(ReiniciarHistorialTest, AfterTwoYesTheHistoryAndItsPhotosAreGone) {
  ASSERT_EQ(Station.HistoryRows(), 3u);
  Reset({Answer::kYes, Answer::kYes});
  EXPECT_EQ(Station.HistoryRows(), 1u);
  EXPECT_EQ(Station.History(1), RegistroFicha{});
  EXPECT_FALSE(Disk.Exists("Multimedia\\Imágenes HST\\000003.jpg"_w));
  EXPECT_FALSE(Disk.Exists("Multimedia\\Imágenes DTL\\ABC70007\\0007-1.jpg"_w));
  EXPECT_TRUE(Disk.FolderExists("Multimedia\\Imágenes HST"_w));
  EXPECT_TRUE(Disk.FolderExists("Multimedia\\Imágenes DTL"_w));
  EXPECT_TRUE(Disk.Exists("Multimedia\\Imágenes ACT\\000001.jpg"_w));
  EXPECT_EQ(Disk.Get("Multimedia\\Vintoral.NSR").size(), 2 * RegistroFicha::kSize);
  EXPECT_THAT(heard_, ElementsAre(String(sonido::kHistorialReiniciado)));
  ASSERT_THAT(Station.Boxes, SizeIs(2));
  EXPECT_EQ(Station.Boxes[0].title, "Vintoral - Reiniciar Historial"_w);
  EXPECT_EQ(Station.Boxes[0].text, "¿Desea realmente comenzar un nuevo historial?"_w);
  EXPECT_EQ(Station.Boxes[0].icon, Icon::kExclamation);
  EXPECT_EQ(Station.Boxes[0].preselected, Answer::kNo);
  EXPECT_EQ(Station.Boxes[1].title, "Vintoral - ADVERTENCIA"_w);
  EXPECT_EQ(Station.Boxes[1].text, "Está a punto de reiniciar el historial actual.\r\n¿Desea continuar?"_w);
  EXPECT_EQ(Station.Boxes[1].icon, Icon::kCritical);
  EXPECT_EQ(Station.Boxes[1].preselected, Answer::kNo);
}

TEST_F(ReiniciarHistorialTest, NoAtEitherQuestionLeavesAll) {
  for (const std::deque<Answer>& answers : {std::deque{Answer::kNo}, std::deque{Answer::kYes, Answer::kNo}}) {
    Reset(answers);
    EXPECT_EQ(Station.HistoryRows(), 3u);
    EXPECT_TRUE(Disk.Exists("Multimedia\\Imágenes HST\\000003.jpg"_w));
    EXPECT_THAT(heard_, IsEmpty());
  }
}

TEST_F(ReiniciarHistorialTest, WhereItCannotBeRemovedThePhotosStay) {
  // By the time of the last answer there is none any more: as little can be removed as of one that is held.
  Station.UnderBox = [this] { Disk.Remove(kHst).PassOver(); };
  int beeps = 0;
  Station.Answers = {Answer::kYes, Answer::kYes};
  Menu({[&] {
    Station.Events.Take();
    Station.Hands.Select(Form.Form5->LstMenu, static_cast<int>(Form.Form5->LstMenu.List.size()) - 1);
    const auto told = Station.Events.Take();
    EXPECT_THAT(told, SizeIs(1)) << "no sound of a reset";
    beeps = static_cast<int>(std::count_if(told.begin(), told.end(), [](const DeviceEvent& event) {
      return event.kind == DeviceEvent::Kind::kBeep;
    }));
  }});
  ASSERT_THAT(Station.Boxes, SizeIs(2));
  EXPECT_EQ(beeps, 1);
  EXPECT_FALSE(Disk.Exists(kHst));
  EXPECT_EQ(Disk.Get("Multimedia\\Imágenes HST\\000003.jpg"_w), "exit");
  EXPECT_EQ(Disk.Get("Multimedia\\Imágenes DTL\\ABC70007\\0007-1.jpg"_w), "more");
}

TEST_F(ReiniciarHistorialTest, AGateWithoutAHistoryOfItsOwnIsAskedNothing) {
  Disk.Remove(kHst).PassOver();
  Reset({});
  EXPECT_THAT(Station.Boxes, IsEmpty());
  EXPECT_TRUE(Disk.Exists("Multimedia\\Imágenes HST\\000003.jpg"_w));
}

}  // namespace
}  // namespace vintoral
