// The search as hands use it: what it does to the main screen, its keys, what it finds, and what closing it
// brings back.
#include "reports/form2/Form2.h"

#include <gmock/gmock.h>

#include "station/form1/Sonidos.h"
#include "unit/network/RejillaFixture.h"
#include "unit/reports/ImpatientScreen.h"
#include "unit/safety/Bloqueos.h"

namespace vintoral {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kPage = "Recursos\\Vintoral.HTML";

class Form2Test : public test::RejillaTest {
 protected:
  Form2Test() {
    PutHistory({RegistroFicha{}, Salida(2, 7, "10:00  (19/11/2026)"), Salida(3, 8, "09:15  (20/11/2026)"),
                Salida(4, 9, "13:45  (20/11/2026)")});
    Fill(2);
  }
  void Open() {
    Hands().Key(keys::kF5, 0);
    ASSERT_NE(Form.Form2, nullptr);
    ASSERT_EQ(&Form.OpenForms.Active(), Form.Form2);
  }
  Input& Hands() { return Station.Hands; }
  Form2& Search() { return *Form.Form2; }
  std::string Box(std::size_t box) { return Search().TxtCampo[box].Text().Bytes(); }
  void Put(std::size_t box, const char* text) {
    Hands().ReplaceText(Search().TxtCampo[box], String(std::string_view(text)));
  }
  /// Enter in the last box.
  void Start() {
    Hands().Focus(Search().TxtCampo[Form2::kCampos - 1]);
    Hands().Key(keys::kEnter, 0);
  }
  std::vector<std::string> Found() const {
    std::vector<std::string> numbers;
    for (const RegistroFicha& ficha : Form.VistaFichas)
      numbers.push_back(ficha.NumeroFicha.Trimmed().Bytes());
    return numbers;
  }
};

TEST_F(Form2Test, BeginsWithTodayAndAnEmptyGrid) {
  ASSERT_EQ(Form.TotalVista(), 2);
  ASSERT_THAT(Cells(), SizeIs(2));
  Open();
  EXPECT_THAT(Station.Heard(), ElementsAre(String(voz::kBusquedaActivada)));
  EXPECT_EQ(Box(0), "00:00");
  EXPECT_EQ(Box(1), "20/11/2026");
  EXPECT_EQ(Box(2), "23:59");
  EXPECT_EQ(Box(3), "20/11/2026");
  for (std::size_t box = 4; box < Form2::kCampos; ++box)
    EXPECT_EQ(Box(box), "") << box;
  EXPECT_EQ(Search().CboTarifa.Text(), ""_w);
  EXPECT_EQ(Search().CboTarifa.List().size(), Form.CboTarifa[1].List().size() + 1);
  EXPECT_EQ(Search().ChkFichas.Value, 0);
  EXPECT_EQ(Search().LblEtiqueta[0].Caption, "NUMERO FICHA "_w);
  for (std::size_t i = 1; i <= 5; ++i)
    EXPECT_EQ(Search().LblEtiqueta[i].Caption, Form.TxtEtiqueta[i].Text());
  EXPECT_EQ(Search().LblEtiqueta[Form2::kDesde].Caption, "DESDE "_w);
  EXPECT_EQ(Search().LblEtiqueta[Form2::kHasta].Caption, "HASTA "_w);
  EXPECT_EQ(Search().LblEtiqueta[Form2::kCategoria].Caption, "CATEGORIA "_w);
  EXPECT_EQ(Search().Focus(), &Search().TxtCampo[Form2::kNumero]);
  EXPECT_THAT(Cells(), IsEmpty());
  EXPECT_EQ(Form.TotalVista(), 0);
  EXPECT_EQ(Page(), "0 ( 1/1 )  ");
  EXPECT_EQ(Form.PctBoton[boton::kBuscar].BorderStyle, 1);
  EXPECT_TRUE(Form.PctBuscar[4].Visible);
}

TEST_F(Form2Test, AMonitorGivesWayAndComesBack) {
  Press(boton::kTiempoDePermanencia);
  Station.Hands.Select(Form.CboMinutos, 3);
  ASSERT_EQ(Form.CboMinutos.Text(), "60 Min. ADENTRO"_w);
  Open();
  EXPECT_EQ(Form.CboMinutos.Text(), "           P01 MONITOR"_w);
  EXPECT_FALSE(Form.CboMinutos.Enabled);
  for (const boton::Index monitor :
       {boton::kUltimosEnIngresar, boton::kTiempoDePermanencia, boton::kUltimosEnSalir}) {
    EXPECT_EQ(Form.PctBoton[monitor].BorderStyle, 0);
    EXPECT_FALSE(Form.PctBoton[monitor].Visible);
  }
  EXPECT_FALSE(Form.PctBuscar[1].Visible);
  Station.Events.Take();
  Hands().Key(keys::kF5, 0);
  EXPECT_EQ(Form.Form2, nullptr);
  EXPECT_THAT(Station.Heard(), ElementsAre(String(voz::kBusquedaDesactivada)));
  EXPECT_EQ(Form.CboMinutos.Text(), "60 Min. ADENTRO"_w);
  EXPECT_TRUE(Form.CboMinutos.Enabled);
  EXPECT_EQ(Form.PctBoton[boton::kTiempoDePermanencia].BorderStyle, 1);
  EXPECT_TRUE(Form.PctBuscar[1].Visible);
  EXPECT_FALSE(Form.PctBuscar[4].Visible);
  EXPECT_EQ(Form.PctBoton[boton::kBuscar].BorderStyle, 0);
  EXPECT_TRUE(Form.PctBoton[boton::kUltimosEnSalir].Visible);
}

TEST_F(Form2Test, ClosedWithoutAMonitorTheGridShowsWhoIsInside) {
  Open();
  ASSERT_THAT(Cells(), IsEmpty());
  Hands().Key(keys::kF5, 0);
  EXPECT_THAT(Cells(), ElementsAre("0001", "0002"));
  EXPECT_EQ(Form.CboMinutos.Text(), "           P01 MONITOR"_w);
  EXPECT_FALSE(Form.CboMinutos.Enabled);
  EXPECT_TRUE(Form.TmrHorario.Enabled);
  EXPECT_TRUE(Form.TmrMonitor.Enabled);
}

TEST_F(Form2Test, F5AtTheMainScreenClosesItToo) {
  Open();
  Form.OpenForms.Activate(Form);
  Hands().Key(keys::kF5, 0);
  EXPECT_EQ(Form.Form2, nullptr);
}

TEST_F(Form2Test, TodaysExitsNewestFirst) {
  Open();
  Station.Events.Take();
  Start();
  EXPECT_THAT(Found(), ElementsAre("0009", "0008"));
  EXPECT_THAT(Cells(), ElementsAre("0009", "0008"));
  EXPECT_EQ(Page(), "2 ( 1/1 )  ");
  EXPECT_THAT(Station.Boxes, IsEmpty()) << "its page comes up without questions";
  EXPECT_EQ(&Form.OpenForms.Active(), &Form);
  EXPECT_THAT(Disk.Get(kPage), HasSubstr("<TITLE>Vintoral - B\xDASQUEDA P01</TITLE>"));
}

TEST_F(Form2Test, WhereReportsAreLockedTheMatchesAreShownAlone) {
  Form.ContraseñaActual = "12345"_w;
  Form.FuncionesBloqueadas = String(test::Locking(6));
  Form.ImgIndicador[indicador::kBloqueo].Visible = true;
  Open();
  Station.Answers = {Answer::kOk};
  Start();
  EXPECT_THAT(Found(), ElementsAre("0009", "0008"));
  EXPECT_THAT(Cells(), ElementsAre("0009", "0008"));
  ASSERT_THAT(Station.Boxes, SizeIs(1));
  EXPECT_EQ(Station.Boxes[0].title, "Vintoral - Acceso Denegado"_w);
  Station.Answers = {Answer::kOk};
  Hands().Key(keys::kF4, 0);
  ASSERT_THAT(Station.Boxes, SizeIs(2));
  EXPECT_EQ(Station.Boxes[1].title, "Vintoral - Acceso Denegado"_w);
  EXPECT_THAT(Found(), ElementsAre("0009", "0008"));
  EXPECT_FALSE(Disk.Exists(kPage));
  EXPECT_THAT(Station.Launched(), IsEmpty());
}

TEST_F(Form2Test, WhatIsHeardAndOpened) {
  Open();
  Station.Events.Take();
  Start();
  std::vector<String> told;
  for (const DeviceEvent& event : Station.Events.Take())
    told.push_back(event.text);
  EXPECT_THAT(told, ElementsAre(String(sonido::kCelda), "Explorer.exe Recursos\\Vintoral.HTML"_w,
                                String(sonido::kClic)));
}

TEST_F(Form2Test, TheActiveOnesStandFirst) {
  Open();
  Hands().Click(Search().ChkFichas);
  ASSERT_EQ(Search().ChkFichas.Value, 1);
  Start();
  EXPECT_THAT(Found(), ElementsAre("0001", "0002", "0009", "0008"));
}

TEST_F(Form2Test, ByNumberWithoutItsZeros) {
  Open();
  Put(Form2::kDesdeFecha, "19/11/2026");
  Hands().Focus(Search().TxtCampo[Form2::kNumero]);
  Hands().Character('7');
  Start();
  EXPECT_THAT(Found(), ElementsAre("0007"));
}

TEST_F(Form2Test, NothingFoundIsSaidOnce) {
  Open();
  Put(Form2::kDatos, "zzz");
  ASSERT_EQ(Box(Form2::kDatos), "ZZZ");
  Station.Answers = {Answer::kOk};
  Start();
  ASSERT_THAT(Station.Boxes, SizeIs(1));
  EXPECT_EQ(Station.Boxes[0].title, "Vintoral - Búsqueda de Registros"_w);
  EXPECT_EQ(Station.Boxes[0].text, "No se encontró ninguna coincidencia."_w);
  EXPECT_EQ(Station.Boxes[0].icon, Icon::kInformation);
  EXPECT_THAT(Cells(), IsEmpty());
  EXPECT_EQ(Page(), "0 ( 1/1 )  ");
  EXPECT_FALSE(Disk.Exists(kPage));
}

TEST_F(Form2Test, AfterNothingFoundThePageLineStays) {
  Open();
  Start();
  ASSERT_EQ(Page(), "2 ( 1/1 )  ");
  Put(Form2::kDatos, "zzz");
  Station.Answers = {Answer::kOk};
  Start();
  EXPECT_THAT(Cells(), IsEmpty());
  EXPECT_EQ(Form.TotalVista(), 0);
  EXPECT_EQ(Page(), "2 ( 1/1 )  ");
}

TEST_F(Form2Test, EachSearchShowsItsFirstPage) {
  std::vector<RegistroFicha> history{RegistroFicha{}};
  for (int row = 2; row <= 62; ++row)
    history.push_back(Salida(row, row, "13:45  (20/11/2026)"));
  PutHistory(history);
  Open();
  Start();
  Press(boton::kAvanzar);
  ASSERT_EQ(Page(), "61 ( 2/2 )  ");
  Start();
  EXPECT_EQ(Page(), "61 ( 1/2 )  ");
}

TEST_F(Form2Test, WhatIsTypedStaysWhenItOpens) {
  Hands().ReplaceText(Form.TxtCampo[0], "0005"_w);
  Hands().Key(keys::kEnter, 0);
  Hands().ReplaceText(Form.TxtCampo[2], "JUAN"_w);
  ASSERT_TRUE(Form.TxtCampo[0].Locked);
  Open();
  EXPECT_EQ(Form.TxtCampo[0].Text(), "0005"_w);
  EXPECT_EQ(Form.TxtCampo[2].Text(), "JUAN"_w);
  // Esc begins anew, the main screen too.
  Hands().Key(keys::kEscape, 0);
  EXPECT_EQ(Form.TxtCampo[2].Text(), ""_w);
}

TEST_F(Form2Test, ClosingShowsTheFirstPageOfThoseInside) {
  Fill(60);
  Open();
  Form.InicioPagina = 51;
  Hands().Key(keys::kF5, 0);
  EXPECT_EQ(Page(), "60 ( 1/2 )  ");
  EXPECT_EQ(Form.InicioPagina, 1);
}

TEST_F(Form2Test, WithoutTheFolderOldMatchesAreNotPrinted) {
  Open();
  Start();
  ASSERT_THAT(Found(), ElementsAre("0009", "0008"));
  Disk.Remove(kPage).PassOver();
  Disk.Remove("Multimedia\\Vintoral.ACT").PassOver();
  Put(Form2::kDesdeFecha, "01/11/2026");
  Start();
  EXPECT_THAT(Found(), ElementsAre("0009", "0008"));
  EXPECT_FALSE(Disk.Exists(kPage));
}

TEST_F(Form2Test, ATimeBoxDoesNotMakeUpForADate) {
  Open();
  Put(Form2::kDesdeFecha, "");
  Put(Form2::kDesdeHora, "20/11/2026 00:00");
  Station.Answers = {Answer::kOk};
  Start();
  EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(Form2Test, ADateThatIsNoneFindsNothing) {
  Open();
  Put(Form2::kDesdeFecha, "32/13/2026");
  Station.Answers = {Answer::kOk};
  Start();
  EXPECT_THAT(Found(), IsEmpty());
  EXPECT_THAT(Station.Boxes, SizeIs(1));
}

TEST_F(Form2Test, WithoutTheFolderTheLinkIsLookedAt) {
  Open();
  Station.Faulty.Set().existsSays = false;
  Start();
  EXPECT_THAT(Station.Boxes, IsEmpty());
  EXPECT_THAT(Found(), IsEmpty());
  EXPECT_LT(Form.TmrConexion.Interval(), 3000);
}

TEST_F(Form2Test, EnterGoesOnFromBoxToBox) {
  Open();
  const auto& boxes = Search().TxtCampo;
  for (std::size_t box = Form2::kNumero; box + 1 < Form2::kCampos; ++box) {
    EXPECT_EQ(Search().Focus(), &boxes[box]);
    Hands().Key(keys::kEnter, 0);
  }
  EXPECT_EQ(Search().Focus(), &boxes[Form2::kCampos - 1]);
  Station.Events.Take();
  Hands().Key(keys::kEnter, 0);
  EXPECT_EQ(Form.TotalVista(), 2);
  EXPECT_EQ(Search().Focus(), &boxes[Form2::kNumero]);
}

TEST_F(Form2Test, ANumberOutOfRangeIsClearedAndStays) {
  Open();
  for (const char* number : {"0", "10000"}) {
    Put(Form2::kNumero, number);
    Hands().Focus(Search().TxtCampo[Form2::kNumero]);
    Hands().Key(keys::kEnter, 0);
    EXPECT_EQ(Box(Form2::kNumero), "") << number;
    EXPECT_EQ(Search().Focus(), &Search().TxtCampo[Form2::kNumero]);
  }
  for (const char* number : {"1", "9999"}) {
    Put(Form2::kNumero, number);
    Hands().Focus(Search().TxtCampo[Form2::kNumero]);
    Hands().Key(keys::kEnter, 0);
    EXPECT_EQ(Box(Form2::kNumero), number);
    EXPECT_EQ(Search().Focus(), &Search().TxtCampo[Form2::kDatos]);
  }
}

TEST_F(Form2Test, TheNumberTakesDigitsAlone) {
  Open();
  Station.Events.Take();
  Hands().Character('a');
  EXPECT_EQ(Box(Form2::kNumero), "");
  EXPECT_EQ(Station.Beeps(), 1);
  Station.Type("12");
  Hands().Character('\b');
  EXPECT_EQ(Box(Form2::kNumero), "1");
  EXPECT_EQ(Station.Beeps(), 0);
}

TEST_F(Form2Test, EscBeginsAnew) {
  Open();
  Put(Form2::kDesdeFecha, "01/01/2020");
  Put(Form2::kDatos, "abc");
  Hands().Click(Search().ChkFichas);
  ASSERT_EQ(Search().ChkFichas.Value, 1);
  Start();
  ASSERT_GT(Form.TotalVista(), 0);
  ASSERT_THAT(Cells(), testing::Not(IsEmpty()));
  Form.OpenForms.Activate(Search());
  Station.Events.Take();
  Hands().Key(keys::kEscape, 0);
  EXPECT_THAT(Station.Heard(), ElementsAre(String(sonido::kClic)));
  EXPECT_EQ(Box(Form2::kDesdeFecha), "20/11/2026");
  EXPECT_EQ(Box(Form2::kDatos), "");
  EXPECT_EQ(Search().ChkFichas.Value, 0);
  EXPECT_THAT(Cells(), IsEmpty());
  EXPECT_EQ(Form.TotalVista(), 0);
  EXPECT_EQ(Page(), "0 ( 1/1 )  ");
  EXPECT_EQ(Search().Focus(), &Search().TxtCampo[Form2::kNumero]);
}

TEST_F(Form2Test, TheHelpLineFollowsThePointer) {
  Open();
  Hands().Hover(Search().PctBoton[Form2::kIniciar]);
  EXPECT_EQ(Form.LblAyuda.Caption, "Iniciar Búsqueda"_w);
  EXPECT_TRUE(Search().PctSeleccion.Visible);
  Hands().Hover(Search().PctBoton[Form2::kLimpiar]);
  EXPECT_EQ(Form.LblAyuda.Caption, "<ESC> Limpiar Campos"_w);
  Hands().Hover(Search().LblEtiqueta[0]);
  EXPECT_EQ(Form.LblAyuda.Caption, String(Form1::kTitulo));
  EXPECT_FALSE(Search().PctSeleccion.Visible);
  Hands().Hover(Search().PctBoton[Form2::kLimpiar]);
  ASSERT_TRUE(Search().PctSeleccion.Visible);
  Hands().Leave(Search());
  EXPECT_EQ(Form.LblAyuda.Caption, String(Form1::kTitulo));
  EXPECT_FALSE(Search().PctSeleccion.Visible);
}

TEST_F(Form2Test, ClosingDeletesTheReports) {
  Open();
  Start();
  Disk.Put("Recursos\\Vintoral.RGT", "list");
  ASSERT_TRUE(Disk.Exists(kPage));
  Form.OpenForms.Activate(Search());
  Hands().Key(keys::kF5, 0);
  EXPECT_FALSE(Disk.Exists(kPage));
  EXPECT_FALSE(Disk.Exists("Recursos\\Vintoral.RGT"));
}

TEST_F(Form2Test, SavingSearchesAgainWithoutAWord) {
  Open();
  Hands().Click(Search().ChkFichas);
  Start();
  ASSERT_THAT(Found(), ElementsAre("0001", "0002", "0009", "0008"));
  Station.Events.Take();
  Station.Enter("5", "new");
  EXPECT_THAT(Found(), ElementsAre("0001", "0002", "0005", "0009", "0008"));
  EXPECT_THAT(Cells(), SizeIs(5));
  EXPECT_THAT(Station.Boxes, SizeIs(1)) << "the question of saving alone";
  EXPECT_THAT(Station.Launched(), IsEmpty());
}

TEST_F(Form2Test, RetiringSearchesAgainWithoutAWord) {
  Open();
  Hands().Click(Search().ChkFichas);
  Start();
  ASSERT_THAT(Found(), ElementsAre("0001", "0002", "0009", "0008"));
  const std::string page = Disk.Get(kPage);
  Station.Events.Take();
  Station.TypeAndEnter("1");
  Station.Answers = {Answer::kYes};
  Hands().Key(keys::kDelete, 0);
  EXPECT_THAT(Found(), ElementsAre("0002", "0001", "0009", "0008")) << "it is the newest that has gone";
  EXPECT_THAT(Cells(), ElementsAre("0002", "0001", "0009", "0008"));
  EXPECT_THAT(Station.Boxes, SizeIs(1)) << "the question of retiring alone";
  const auto told = Station.Events.Take();
  EXPECT_TRUE(std::none_of(told.begin(), told.end(), [](const DeviceEvent& event) {
    return event.kind == DeviceEvent::Kind::kLaunch || event.text == String(sonido::kCelda);
  }));
  EXPECT_EQ(Disk.Get(kPage), page);
}

TEST_F(Form2Test, WhatWasFoundStaysAtAConnectedGate) {
  Form.EsCliente = -1;
  Open();
  Start();
  ASSERT_THAT(Found(), ElementsAre("0009", "0008"));
  Station.Pass(8000);
  EXPECT_THAT(Found(), ElementsAre("0009", "0008"));
}

TEST_F(Form2Test, AMonitorThatGoesOnEndsIt) {
  Press(boton::kTiempoDePermanencia);
  Open();
  Form.OpenForms.Activate(Form);
  Hands().Key(keys::kF3, 0);
  EXPECT_EQ(Form.Form2, nullptr);
  EXPECT_EQ(Form.PctBoton[boton::kUltimosEnSalir].BorderStyle, 1);
  EXPECT_EQ(Form.PctBoton[boton::kTiempoDePermanencia].BorderStyle, 0);
  EXPECT_FALSE(Form.PctBuscar[4].Visible);
  EXPECT_TRUE(Form.PctBuscar[2].Visible);
  EXPECT_FALSE(Form.PctBuscar[1].Visible);
}

TEST_F(Form2Test, TheMonitorIsTheOneOfTheNextStart) {
  Press(boton::kUltimosEnSalir);
  Open();
  Form.CerrarSinPreguntar();
  EXPECT_EQ(Form.CboMinutos.Tag, "3"_w);
  EXPECT_EQ(Form.PctBoton[boton::kUltimosEnSalir].BorderStyle, 1);
}

TEST(LongSearch, EscLeavesTheScreenAsItWas) {
  test::MemoryStation station;
  test::ImpatientScreen screen(station.Events, station.Clock);
  Form1 form(Platform{station.Clock, screen, station.Sound, station.System, station.Faulty, station.Pictures,
                      station.Printer, station.Chance, station.Camera, station.Mail});
  screen.OnWait = [&screen] { static_cast<void>(screen.Answer(Answer::kOk)); };
  form.Form_Load();
  AdvanceTime(station.Clock, form.OpenForms, 3000);
  std::string history(RegistroFicha::kSize, ' ');
  RegistroFicha row;
  row.EnUso = true;
  row.MarcaSalida = "13:45  (20/11/2026)";
  row.NumeroFicha = "0009";
  const auto bytes = row.Encode();
  for (int i = 0; i < 20'000; ++i)
    history.append(bytes.data(), bytes.size());
  station.Disk.Put("Multimedia\\Vintoral.HST", history);
  Input hands(form.OpenForms);
  hands.Key(keys::kF5, 0);
  ASSERT_NE(form.Form2, nullptr);

  hands.Focus(form.Form2->TxtCampo[Form2::kCampos - 1]);
  hands.Key(keys::kEnter, 0);
  ASSERT_EQ(form.TotalVista(), 20'000);
  const std::vector<double> shares = screen.Shares[test::kSearching];
  EXPECT_GT(shares.size(), 1u);
  EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
  EXPECT_DOUBLE_EQ(shares.front(), 0.0);
  EXPECT_DOUBLE_EQ(shares.back(), 1.0);
  EXPECT_EQ(screen.Ended, 2) << "the search and its page";

  form.OpenForms.Activate(*form.Form2);
  station.Events.Take();
  screen.Ends = true;
  hands.ReplaceText(form.Form2->TxtCampo[Form2::kDatos], "NOBODY"_w);
  hands.Focus(form.Form2->TxtCampo[Form2::kCampos - 1]);
  hands.Key(keys::kEnter, 0);
  EXPECT_EQ(form.TotalVista(), 20'000);
  EXPECT_THAT(station.Launched(), IsEmpty());
  EXPECT_EQ(screen.Ended, 3);
  EXPECT_EQ(&form.OpenForms.Active(), form.Form2);

  // A ficha that has come or gone waits for no box.
  screen.Shares.clear();
  form.CargarVista();
  EXPECT_EQ(form.TotalVista(), 0);
  EXPECT_THAT(screen.Shares, IsEmpty());
}

}  // namespace
}  // namespace vintoral
