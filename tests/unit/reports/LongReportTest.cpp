// A report over much data: how far it is, and what is left of it when the operator ends it.
#include <gmock/gmock.h>

#include "common/Numbers.h"
#include "reports/DocumentoID.h"
#include "reports/InformeFichas.h"
#include "safety/form5/Turno.h"
#include "station/form1/Archivos.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"
#include "unit/reports/ImpatientScreen.h"
#include "unit/reports/Informes.h"

namespace vintoral {
namespace {

using test::Encoded;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;

/// Record 1 is blank; the exits of a shift of 100 hours follow, one an hour.
std::string History(int rows, const char* mark) {
  std::string bytes = Encoded(RegistroFicha{});
  const Moment began = *MomentOfStamp(mark);
  for (int row = 1; row <= rows; ++row) {
    RegistroFicha ficha = test::FichaIda();
    ficha.MarcaSalida = StampOf(began.Plus(row * 3'600'000LL));
    bytes += Encoded(ficha);
  }
  return bytes;
}

constexpr const char* kBegan = "06:00  (20/11/2026)";
constexpr const char* kNow = "10:00  (24/11/2026)";  // 100 hours later

struct Shares {
  SigueInforme Told(std::size_t ends = SIZE_MAX) {
    return [this, ends](double done) {
      seen.push_back(done);
      return seen.size() < ends;
    };
  }
  std::vector<double> seen;
};

DatosInforme OfTheShift(SigueInforme sigue) {
  DatosInforme datos = test::Datos();
  datos.cabeza = CabezaDeTurno(String(std::string_view(kBegan)), String(std::string_view(kNow)));
  datos.sigue = std::move(sigue);
  datos.periodo = {*MomentOfStamp(kBegan), *MomentOfStamp(kNow)};
  return datos;
}

InformeHecho WriteHistory(const DatosInforme& datos, std::string& page) {
  test::MemoryDisk disk;
  disk.Put("HST", History(100, kBegan));
  return InformeHistorial(datos, Register<RegistroFicha>(disk, "HST", OpenMode::kRead), true, test::En(page));
}

TEST(LongReport, AHistoryIsAsFarAsItsTimeIs) {
  Shares shares;
  std::string page;
  EXPECT_TRUE(WriteHistory(OfTheShift(shares.Told()), page).pagina);
  // Of 100 exits from the last one back, those 16, 32, ... 96: 15, 31, ... 95 hours before the end.
  EXPECT_THAT(shares.seen, ElementsAre(0.15, 0.31, 0.47, 0.63, 0.79, 0.95));
}

TEST(LongReport, AHistoryWhosePeriodIsNotKnownStaysAtItsBeginning) {
  Shares shares;
  DatosInforme datos = OfTheShift(shares.Told());
  datos.periodo.reset();
  std::string page;
  EXPECT_TRUE(WriteHistory(datos, page).pagina);
  EXPECT_THAT(shares.seen, SizeIs(6));
  EXPECT_THAT(shares.seen, Each(0.0));
}

TEST(LongReport, AHistoryThatIsEndedIsNoReport) {
  Shares shares;
  DatosInforme datos = OfTheShift(shares.Told(2));
  datos.tira = FormatoTira{};
  std::string page;
  const InformeHecho done = WriteHistory(datos, page);
  EXPECT_TRUE(EsInterrumpido(done.pagina));
  EXPECT_FALSE(done.tira);
  EXPECT_THAT(shares.seen, SizeIs(2));
}

TEST(LongReport, AViewIsAsFarAsItsRows) {
  Shares shares;
  DatosInforme datos = test::Datos();
  datos.sigue = shares.Told();
  const std::vector<RegistroFicha> view(4, test::FichaIda());
  std::string page;
  EXPECT_TRUE(InformeEstado(datos, view, test::En(page)).pagina);
  EXPECT_THAT(shares.seen, ElementsAre(0.25, 0.5, 0.75, 1.0));
  datos.tira = FormatoTira{};
  datos.sigue = shares.Told(shares.seen.size() + 1);
  const InformeHecho ended = InformeEstado(datos, view, test::En(page));
  EXPECT_TRUE(EsInterrumpido(ended.pagina));
  EXPECT_FALSE(ended.tira);
}

TEST(LongReport, AListOfUsersIsAsFarAsItsRecords) {
  test::MemoryDisk disk;
  disk.Put("NSR", History(3, kBegan));
  const Register<RegistroFicha> list(disk, "NSR", OpenMode::kRead);
  Shares shares;
  DatosDocumento datos;
  datos.limite = 3;
  datos.foto = test::SinFotos;
  datos.sigue = shares.Told();
  std::string page;
  EXPECT_TRUE(EscribirDocumentoID(datos, list, test::En(page)));
  EXPECT_THAT(shares.seen, ElementsAre(0.0, 1 / 3.0, 2 / 3.0));
  datos.sigue = shares.Told(shares.seen.size() + 1);
  EXPECT_TRUE(EsInterrumpido(EscribirDocumentoID(datos, list, test::En(page))));
}

/// A station whose operator ends what takes long.
class LongReportTest : public testing::Test {
 protected:
  LongReportTest() {
    screen_.OnWait = [this] { static_cast<void>(screen_.Answer(Answer::kOk)); };
    form_.Form_Load();
    AdvanceTime(station_.Clock, form_.OpenForms, 3000);
    station_.Disk.Put("Multimedia\\Vintoral.HST", History(100, kBegan));
    station_.Disk.Put("Multimedia\\Vintoral.NSR", History(5, kBegan));
    station_.Disk.Put(archivo::kPagina, "the page of before");
    screen_.Ends = true;
  }
  /// The one in which all of the history has left.
  void BeginShift() {
    form_.TurnoActivo = true;
    form_.MarcaTurno = String(std::string_view(kBegan));
  }
  void ExpectEnded() {
    EXPECT_THAT(screen_.Shares[test::kReporting], Not(IsEmpty()));
    EXPECT_EQ(screen_.Ended, 1);
    EXPECT_EQ(station_.Disk.Get(archivo::kPagina), "the page of before");
    EXPECT_THAT(station_.Launched(), IsEmpty());
    EXPECT_FALSE(station_.Disk.Exists(String(archivo::kPagina) + ".nuevo"_w));
  }

  test::MemoryStation station_;
  test::ImpatientScreen screen_{station_.Events, station_.Clock};
  Form1 form_{Platform{station_.Clock, screen_, station_.Sound, station_.System, station_.Faulty,
                       station_.Pictures, station_.Printer, station_.Chance, station_.Camera, station_.Mail}};
};

/// Nobody ends it, and the disk is full: its box comes up, and its slip goes to the printer all the same.
class LongReportOnAFullDiskTest : public LongReportTest {
 protected:
  LongReportOnAFullDiskTest() {
    screen_.Ends = false;
    screen_.OnWait = [this] {
      told_.emplace_back(screen_.Shown()->title.ToUtf8(), screen_.Ended);
      static_cast<void>(screen_.Answer(Answer::kOk));
    };
    station_.Printer.OnEndDoc = [this] { told_.emplace_back("a slip", screen_.Ended); };
    station_.Faulty.Set().failWrite = 1;
  }
  void TearDown() override { EXPECT_THAT(screen_.Shares[test::kReporting], Not(IsEmpty())); }

  /// Each with how often some work was over by then.
  std::vector<std::pair<std::string, int>> told_;
};

constexpr const char* kNoPage = "Vintoral - Imposible Imprimir";

TEST_F(LongReportOnAFullDiskTest, TheProgressOfAHistoryIsOverBeforeItsBoxAndItsSlip) {
  BeginShift();
  form_.ImprimirHistorial(true, true);
  EXPECT_THAT(told_, ElementsAre(Pair(kNoPage, 1), Pair("a slip", 1)));
}

TEST_F(LongReportOnAFullDiskTest, ThatOfAStateToo) {
  form_.VistaFichas.assign(3, test::FichaIda());
  form_.ImprimirEstado(true, true);
  EXPECT_THAT(told_, ElementsAre(Pair(kNoPage, 1), Pair("a slip", 1)));
}

TEST_F(LongReportOnAFullDiskTest, AndThatOfTheUsers) {
  form_.ImprimirDocumentoID("Vintoral.NSR");
  EXPECT_THAT(told_, ElementsAre(Pair(kNoPage, 1)));
}

TEST_F(LongReportTest, AStateKeepsTheRowsThatItBeganWith) {
  screen_.Ends = false;
  form_.EsCliente = -1;  // the grid of a connected gate is filled by the clock
  std::vector<RegistroFicha> began;
  for (int number = 1; number <= 4; ++number) {
    began.push_back(test::FichaAdentro());
    began.back().NumeroFicha = Digits(number, 4);
    RegistroFicha later = began.back();
    later.NumeroFicha = Digits(number + 4, 4);
    station_.PutSlot(static_cast<std::size_t>(number), later);
  }
  form_.VistaFichas = began;
  screen_.Meanwhile = [this] {
    form_.VistaFichas.assign(4, RegistroFicha());  // or what the tick frees could still be read
    form_.TmrMonitor_Timer();
  };
  form_.ImprimirEstado(false, true);
  ASSERT_EQ(form_.TotalVista(), 4);
  ASSERT_EQ(form_.VistaFichas[0].NumeroFicha.View(), "0005") << "the tick has filled the view anew";
  std::vector<std::string> numbers;
  for (const std::string& row : test::Filas(station_.Disk.Get(archivo::kPagina))) {
    if (row.starts_with("14:05  (20/11/2026)|")) numbers.push_back(row.substr(row.find("|000") + 1, 4));
  }
  EXPECT_THAT(numbers, ElementsAre("0001", "0002", "0003", "0004"));
}

TEST_F(LongReportTest, EndedItLeavesThePageOfBeforeAndTheShiftEnds) {
  BeginShift();
  TerminarTurno(form_);
  ExpectEnded();
  EXPECT_FALSE(form_.TurnoActivo);
}

TEST_F(LongReportTest, TheStateEndsToo) {
  form_.VistaFichas.assign(3, test::FichaIda());
  form_.ImprimirEstado(false, true);
  ExpectEnded();
}

TEST_F(LongReportTest, AndTheUsers) {
  form_.ImprimirDocumentoID("Vintoral.NSR");
  ExpectEnded();
}

}  // namespace
}  // namespace vintoral
