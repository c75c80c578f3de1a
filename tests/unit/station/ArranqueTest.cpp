// The start sequence, where it leaves something that the screen does not show at once.
#include <gtest/gtest.h>

#include <string>

#include "records/RegistroMixto.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;

TEST(Arranque, ValuesOfTheRunAreSet) {
  MemoryStation station;
  Form1& form = station.Form;
  ASSERT_EQ(form.TotalFichas, 0);
  ASSERT_EQ(form.LimiteFilas, 0);
  form.TotalFichas = form.LimiteFilas = 1;
  form.InicioPagina = 51;
  form.PrimerNumero = 9;
  station.Start();
  EXPECT_EQ(form.TotalFichas, 1000);
  EXPECT_EQ(form.LimiteFilas, 10946);
  EXPECT_EQ(form.InicioPagina, 1);
  EXPECT_EQ(form.PrimerNumero, 1);
  EXPECT_EQ(form.PuntosAcumulados, 0);  // nobody's until a ficha is called up
}

TEST(Arranque, ClockAndMinutesCountFromTheStart) {
  MemoryStation station(At(14, 7, 30));
  station.Start();
  EXPECT_EQ(station.Form.BaseReloj, At(14, 7, 30));
  EXPECT_EQ(station.Form.MinutoBase, 7);
  station.Pass(29'500);
  EXPECT_EQ(station.Form.TiempoEjecucion, 0);
  station.Pass(500);
  EXPECT_EQ(station.Form.TiempoEjecucion, 1);
}

TEST(Arranque, TheTitleNamesProductAndVersion) {
  EXPECT_EQ(Form1::kTitulo, "Vintoral 10.25");
}

TEST(Arranque, WhatAnInstallationBringsIsLeftAlone) {
  MemoryStation station;
  station.Disk.Put("Recursos\\Vintoral.HFC", "invoices");
  station.Disk.Put("Vintoral Léame.TXT"_w, "Lo nuestro");
  station.Disk.Put("Recursos\\Vintoral.XTR", "");
  station.Start();
  EXPECT_EQ(station.Disk.Get("Recursos\\Vintoral.HFC"), "invoices");
  EXPECT_EQ(station.Disk.Get("Vintoral Léame.TXT"_w), "Lo nuestro");
  EXPECT_EQ(station.Disk.Get("Recursos\\Vintoral.XTR"), "");
}

TEST(Arranque, TheInvoiceHistoryBeginsEmpty) {
  MemoryStation station;
  ASSERT_EQ(station.Disk.Get("Recursos\\Vintoral.HFC"), "(missing)");
  station.Start();
  EXPECT_EQ(station.Disk.Get("Recursos\\Vintoral.HFC"), "");
}

TEST(Arranque, TheRegisterOfCodesBeginsBlankAndStays) {
  const char* cdb = "Multimedia\\Vintoral.CDB";
  MemoryStation station;
  ASSERT_EQ(station.Disk.Get(cdb), "(missing)");
  station.Start();
  EXPECT_EQ(station.Disk.Get(cdb), test::Blanks(54'000));
  MemoryStation again;
  again.Disk.Put(cdb, "codes");
  again.Start();
  EXPECT_EQ(again.Disk.Get(cdb), "codes");
}

TEST(Arranque, ARegisterOfCodesThatCantBeMadeStopsNobody) {
  MemoryStation station;
  ASSERT_TRUE(station.Disk.CreateFolder("Multimedia"));
  ASSERT_TRUE(station.Disk.CreateFolder("Multimedia\\Vintoral.CDB"));
  station.Start();
  EXPECT_FALSE(station.Form.Terminado());
  EXPECT_EQ(station.Form.TotalFichas, 1000);
}

TEST(Arranque, PassesAreNoRegisterUntilOneIsSold) {
  MemoryStation station;
  station.Start();
  EXPECT_FALSE(station.Disk.Exists("Multimedia\\Vintoral.CFR"));
}

TEST(Arranque, ASecondInstanceEndsBeforeItTouchesAnything) {
  MemoryStation station;
  station.System.Instances = 2;
  station.Form.Form_Load();
  EXPECT_TRUE(station.Form.Terminado());
  EXPECT_TRUE(station.Boxes.empty());
  EXPECT_FALSE(station.Disk.HasFolder("Objetos"));
}

TEST(Arranque, TheMarkerOfARegistrationLetsASecondInstanceIn) {
  MemoryStation station;
  station.System.Instances = 2;
  station.Disk.Put("Recursos\\Vintoral.RLD", "");
  station.Start();
  EXPECT_FALSE(station.Form.Terminado());
}

TEST(Arranque, TheLinkWatchWaitsForTheShortcutAlone) {
  MemoryStation station;
  station.UnderBox = [&] {
    EXPECT_EQ(station.Boxes.back().title, "Vintoral - BIENVENIDO"_w);
    EXPECT_FALSE(station.Form.TmrConexion.Enabled);
  };
  station.Start();
  EXPECT_TRUE(station.Form.TmrConexion.Enabled);
  EXPECT_TRUE(station.Form.TmrHorario.Enabled);
  EXPECT_FALSE(station.Form.TmrHoraFecha.Enabled || station.Form.TmrMonitor.Enabled);
}

/// Makes ACT on a disk whose folder goes after so many operations; `link`: behind a link to a mount.
bool ActMade(int goneAfter, bool link, std::size_t& boxes) {
  MemoryStation station;
  station.Disk.CreateFolder("Multimedia").PassOver();
  if (link) station.Disk.SetLink("Multimedia");
  station.Answers = {Answer::kOk};
  station.Faulty.Set().goneAfter = goneAfter;
  const bool made = station.Form.CrearArchivoACT();
  boxes = station.Boxes.size();
  return made;
}

TEST(Arranque, AMountThatGoesWhileRegistersAreMadeStopsNobody) {
  int stopped = 0;
  for (int step = 0; step < 10; ++step) {
    std::size_t boxes = 0;
    EXPECT_TRUE(ActMade(step, true, boxes)) << step;
    EXPECT_EQ(boxes, 0u) << step;
    if (!ActMade(step, false, boxes)) ++stopped;
    EXPECT_EQ(boxes, stopped == step + 1 ? 1u : 0u) << step;
  }
  EXPECT_GT(stopped, 0) << "a folder that is no link and can't be written";
}

TEST(Arranque, DefaultTablesEndAtTheFirstThatCannotBeMade) {
  MemoryStation station;
  station.Form.CrearCarpetas();
  station.Faulty.Set().failWrite = 2;
  station.Form.CrearTablasPredeterminadas();
  EXPECT_NE(station.Disk.Get("Recursos\\Vintoral.EMP"), "(missing)");
  EXPECT_EQ(station.Disk.Get("Recursos\\Vintoral.XTR"), "(missing)");
  EXPECT_EQ(station.Disk.Get("Recursos\\Vintoral.RJE"), "(missing)");
}

TEST(Arranque, AWallpaperThatIsNoLongerThereLeavesNone) {
  MemoryStation station;
  station.Disk.Put("Fondos\\a.jpg", "");
  station.Disk.Put("Fondos\\b.jpg", "");
  station.Start();
  Form1& form = station.Form;
  for (const String& tag : {"2"_w, "-1"_w}) {
    form.ImgFondo.Tag = "1"_w;
    form.MostrarFondo();
    ASSERT_EQ(form.ImgFondo.Picture, "Fondos\\b.jpg"_w);
    ASSERT_EQ(form.FilFondos.ListIndex, 1);
    form.ImgFondo.Tag = tag;
    form.MostrarFondo();
    EXPECT_TRUE(form.ImgFondo.Picture.Empty()) << tag.Bytes();
    EXPECT_EQ(form.FilFondos.ListIndex, -1) << tag.Bytes();
  }
  EXPECT_EQ(form.FilFondos.Path, "Fondos"_w);
}

}  // namespace
}  // namespace vintoral
