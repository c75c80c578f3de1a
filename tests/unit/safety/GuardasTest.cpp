// All functions that can be locked, by every way that leads to them, locked and open.
#include <gtest/gtest.h>

#include "safety/form5/Form5.h"
#include "station/form1/Sonidos.h"
#include "unit/safety/Bloqueos.h"
#include "unit/safety/Diarios.h"

namespace vintoral {
namespace {

using test::EntryOf;
using test::ExtWith;
using test::kExt;
using test::kFdr;
using test::Locking;
using test::MemoryStation;

constexpr int kCtrlAlt = keys::kControl | keys::kAlt, kCtrlShift = keys::kControl | keys::kShift;

/// A station whose operator answers every box the harmless way and leaves every dialog, and a record of what
/// came up.
class Gate {
 public:
  explicit Gate(const std::string& functions) {
    Station.Disk.Put(kExt, ExtWith("12345", functions));
    for (const char* wallpaper : {"Fondos\\a.jpg", "Fondos\\b.jpg"})
      Station.Disk.Put(wallpaper, "");
    Station.StartConnected();
    Station.Screen.OnWait = [this] { Serve(); };
  }
  /// What came up since the last look: boxes by their title, dialogs by their name, sounds.
  std::vector<std::string> CameUp() {
    for (const String& sound : Station.Heard())
      shown_.push_back(sound.ToUtf8());
    return std::exchange(shown_, {});
  }
  std::string Log() const { return Station.Disk.Get(kFdr); }

  MemoryStation Station;
  Form1& Form = Station.Form;
  /// Happens once, in the next dialog.
  std::function<void()> InDialog;

 private:
  void Serve() {
    const Waiting waiting = *Station.Screen.Innermost();
    if (waiting.form != nullptr && InDialog) return std::exchange(InDialog, nullptr)();
    if (waiting.form != nullptr) {
      shown_.push_back(waiting.form->Name());
      Station.Hands.Key(keys::kEscape, 0);
    } else {
      shown_.push_back(waiting.box->title.ToUtf8());
      Station.Screen.Answer(HarmlessAnswer(*waiting.box));
    }
  }
  std::vector<std::string> shown_;
};

/// One way to a function.
struct Way {
  std::size_t position;
  const char* name;
  std::function<void(Gate&)> prepare;
  std::function<void(Gate&)> go;
  std::function<bool(Gate&, const std::vector<std::string>&)> done;  ///< null: nothing to be seen of it yet
  int logged = 0;  ///< a code that is in the log though it is refused
};

void Nothing(Gate& /*gate*/) {}

auto Key(int code, int mask) {
  return [code, mask](Gate& gate) { gate.Station.Hands.Key(code, mask); };
}
auto Button(boton::Index button) {
  return [button](Gate& gate) { gate.Station.Hands.Click(gate.Form.PctBoton[button]); };
}
auto MenuRow(int row) {
  return [row](Gate& gate) {
    gate.InDialog = [&gate, row] {
      static_cast<void>(gate.Station.Hands.Select(gate.Form.Form5->LstMenu, row));
    };
    gate.Station.Hands.Key(keys::kF8, 0);
  };
}
auto MenuButton(std::size_t button) {
  return [button](Gate& gate) {
    gate.InDialog = [&gate, button] { gate.Station.Hands.Click(gate.Form.Form5->CmdMenu[button]); };
    gate.Station.Hands.Key(keys::kF8, 0);
  };
}
auto Shows(const std::string& title) {
  return [title](Gate&, const std::vector<std::string>& shown) {
    return std::find(shown.begin(), shown.end(), title) != shown.end();
  };
}

void CallUpWithPoints(Gate& gate) {
  MemoryStation& station = gate.Station;
  station.Screen.OnWait = nullptr;
  gate.Form.PctBoton[boton::kRetirar].Visible = true;
  gate.Form.PuntosAcumulados = 5;
  gate.Form.ImgPuntos.Visible = true;
}

void TurnTicketsOn(Gate& gate) {
  gate.Form.PctBoton[boton::kTiquetes].BorderStyle = 1;
}

void TurnBarcodesOn(Gate& gate) {
  TurnTicketsOn(gate);
  gate.Form.CmdBarCode.Visible = true;
}

void ShowInvoiceTick(Gate& gate) {
  gate.Form.ChkFactura.Visible = gate.Form.ChkFactura.Enabled = true;
  gate.Form.ChkFactura.Value = 0;
}

bool LabelIsOpen(Gate& gate, const std::vector<std::string>& /*shown*/) {
  return !gate.Form.TxtEtiqueta[1].Locked;
}
bool WallpaperChanged(Gate& gate, const std::vector<std::string>& /*shown*/) {
  return gate.Form.FilFondos.ListIndex == 1;
}

std::vector<Way> Ways() {
  const std::string points = "Vintoral - Reiniciar Total Puntos",
                    tickets = "Vintoral - Impresión de Tiquetes";
  return {
      {1, "Ctrl+T", Nothing, Key('T', keys::kControl), Shows("Form6")},
      {6, "F4", Nothing, Key(keys::kF4, 0), nullptr},
      {6, "print button", Nothing, Button(boton::kImprimir), nullptr},
      {7, "F5", Nothing, Key(keys::kF5, 0), nullptr},
      {7, "search button", Nothing, Button(boton::kBuscar), nullptr},
      {8, "ticket button", Nothing, Button(boton::kTiquetes), Shows("Form3")},
      {8, "Ctrl+Alt+K", Nothing, Key('K', kCtrlAlt), Shows("Form3")},
      {9, "invoice button", Nothing, Button(boton::kFacturas), Shows("Form8")},
      {9, "Ctrl+Alt+L", Nothing, Key('L', kCtrlAlt), Shows("Form8")},
      {9, "invoice tick", ShowInvoiceTick, [](Gate& gate) { gate.Station.Hands.Click(gate.Form.ChkFactura); },
       [](Gate& gate, const std::vector<std::string>&) { return gate.Form.ChkFactura.Value == 1; }},
      {10, "F7", Nothing, Key(keys::kF7, 0), nullptr},
      {10, "extras button", Nothing, Button(boton::kExtras), nullptr},
      {11, "Ctrl+I", Nothing, Key('I', keys::kControl), WallpaperChanged},
      {11, "wallpaper sign", Nothing, [](Gate& gate) { gate.Station.Hands.Click(gate.Form.ImgCambiarFondo); },
       WallpaperChanged},
      {12, "label's frame", Nothing, [](Gate& gate) { gate.Station.Hands.Click(gate.Form.PctEtiqueta[1]); },
       LabelIsOpen},
      {12, "label", Nothing, [](Gate& gate) { gate.Station.Hands.Click(gate.Form.TxtEtiqueta[1]); },
       LabelIsOpen},
      {13, "Ctrl+Alt+M", Nothing, Key('M', kCtrlAlt), Shows(std::string(voz::kRostrosActivados))},
      {14, "Ctrl+Alt+B", TurnTicketsOn, Key('B', kCtrlAlt), Shows("Vintoral - Instalar Fuente")},
      {14, "ticket button in barcode mode", TurnBarcodesOn, Button(boton::kTiquetes), Shows(tickets)},
      {2, "menu's day", Nothing, MenuButton(Form5::kHistorial), nullptr},
      {3, "menu's extras", Nothing, MenuButton(Form5::kExtras), nullptr},
      {4, "menu's detail", Nothing, MenuButton(Form5::kDetalle), nullptr},
      {5, "menu's counter", Nothing, MenuRow(9), Shows("Vintoral - Reiniciar Extras"), 120},
      {8, "menu's ticket format", Nothing, MenuRow(7), Shows("Form3"), 118},
      {9, "menu's invoice format", Nothing, MenuRow(8), Shows("Form8"), 119},
      {13, "menu's faces", Nothing, MenuRow(4), Shows(std::string(voz::kRostrosActivados))},
      {14, "menu's barcodes", TurnTicketsOn, MenuRow(5), Shows("Vintoral - Instalar Fuente")},
      {15, "menu's new users", Nothing, MenuButton(Form5::kNuevos), nullptr},
      {16, "menu's points", Nothing, MenuButton(Form5::kPuntos), nullptr},
      {17, "Ctrl+Shift+R", CallUpWithPoints, Key('R', kCtrlShift), Shows(points)},
      {17, "sign of the points", CallUpWithPoints,
       [](Gate& gate) { gate.Station.Hands.Click(gate.Form.ImgPuntos); }, Shows(points)},
  };
}

/// What every way brings along.
bool IsUsual(const std::string& shown) {
  return shown == sonido::kClic || shown == "Form5";
}

const std::string kRefusal = "Vintoral - Acceso Denegado";

class GuardasTest : public testing::TestWithParam<Way> {
 protected:
  /// Goes the way at a gate with this selection.
  static std::vector<std::string> Go(Gate& gate) {
    const auto serve = gate.Station.Screen.OnWait;
    GetParam().prepare(gate);
    gate.Station.Screen.OnWait = serve;
    gate.CameUp();
    GetParam().go(gate);
    std::vector<std::string> shown = gate.CameUp();
    std::erase_if(shown, IsUsual);
    return shown;
  }
};

TEST_P(GuardasTest, LockedItIsRefused) {
  Gate gate(Locking(GetParam().position));
  const std::string before = gate.Log();
  const std::vector<std::string> shown = Go(gate);
  EXPECT_EQ(shown, std::vector<std::string>{kRefusal});
  const int logged = GetParam().logged;
  if (logged != 0) {
    EXPECT_EQ(EntryOf(gate.Log(), 2).CodigoFuncion, Money::FromUnits(logged));
    EXPECT_EQ(test::Records(gate.Log(), 3, 1000), test::Records(before, 2, 999));
  } else {
    EXPECT_EQ(gate.Log(), before);
  }
  if (GetParam().done) {
    EXPECT_FALSE(GetParam().done(gate, shown));
  }
}

TEST_P(GuardasTest, WithAllOthersLockedItRuns) {
  std::string others(18, '1');
  others[GetParam().position - 1] = '0';
  others[17] = '0';
  if (GetParam().position == 14) others[7] = '0';  // the ticket button has a lock of its own
  Gate gate(others);
  const std::vector<std::string> shown = Go(gate);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), kRefusal), 0);
  if (GetParam().done) {
    EXPECT_TRUE(GetParam().done(gate, shown));
  }
}

TEST_P(GuardasTest, WhereTheSignIsHiddenItRuns) {
  Gate gate(Locking(GetParam().position));
  gate.Form.ImgIndicador[indicador::kBloqueo].Visible = false;
  const std::vector<std::string> shown = Go(gate);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), kRefusal), 0);
  if (GetParam().done) {
    EXPECT_TRUE(GetParam().done(gate, shown));
  }
}

INSTANTIATE_TEST_SUITE_P(Ways, GuardasTest, testing::ValuesIn(Ways()), [](const auto& way) {
  std::string name = std::to_string(way.param.position) + "_" + way.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char each) { return std::isalnum(static_cast<unsigned char>(each)) == 0; },
      '_');
  return name;
});

// ---- Where more than one position counts
// ---------------------------------------------------------------------------------------------

TEST(Guardas, TheTicketButtonAsksForBarcodesOnlyWhereItTakesThemAlong) {
  Gate gate(Locking(14));
  gate.Station.Hands.Click(gate.Form.PctBoton[boton::kTiquetes]);  // on
  gate.Form.PctBoton[boton::kTiquetes].BorderStyle = 1;
  gate.Station.Hands.Click(gate.Form.PctBoton[boton::kTiquetes]);  // off
  gate.Form.CmdBarCode.Visible = true;
  gate.Station.Hands.Key('K', kCtrlAlt);  // the format alone
  const std::vector<std::string> shown = gate.CameUp();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), kRefusal), 0);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), "Form3"), 2);
}

TEST(Guardas, ALabelThatIsOpenIsNotAskedForAgain) {
  Gate gate(Locking(12));
  gate.Form.TxtEtiqueta[1].Locked = false;
  gate.Station.Hands.Click(gate.Form.TxtEtiqueta[1]);
  EXPECT_TRUE(gate.CameUp().empty());
}

TEST(Guardas, TheTickOfTheProgramIsNotAsked) {
  Gate gate(Locking(9));
  ShowInvoiceTick(gate);
  for (TextBox& field : gate.Form.TxtCampo)
    field.Locked = true;  // a ficha is on display
  gate.Form.ActivarFacturas();
  EXPECT_EQ(gate.Form.ChkFactura.Value, 1);
  EXPECT_TRUE(gate.CameUp().empty());
}

TEST(Guardas, ARefusedTickStandsAsItStood) {
  for (const int before : {0, 1}) {
    Gate gate(Locking(9));
    ShowInvoiceTick(gate);
    gate.Form.ChkFactura.Value = before;
    gate.Station.Hands.Click(gate.Form.ChkFactura);
    EXPECT_EQ(gate.Form.ChkFactura.Value, before);
  }
}

TEST(Guardas, WhatIsDoneIsLogged) {
  const std::vector<std::pair<int, std::function<void(Gate&)>>> logged = {
      {110, Key('T', keys::kControl)},
      {115, Key('B', kCtrlAlt)},
      {111, Key('W', keys::kShift | keys::kAlt)},
      {112, Key(keys::kF9, 0)},
      {17, Button(boton::kTiquetes)},
      {17, Key('K', kCtrlAlt)},
      {18, Button(boton::kFacturas)},
      {18, Key('L', kCtrlAlt)}};
  for (const auto& [code, go] : logged) {
    Gate gate(std::string(18, '0'));
    const std::string before = gate.Log();
    go(gate);
    EXPECT_EQ(EntryOf(gate.Log(), 2).CodigoFuncion, Money::FromUnits(code));
    EXPECT_EQ(test::Records(gate.Log(), 3, 1000), test::Records(before, 2, 999)) << code;
  }
}

TEST(Guardas, WhatHasNoCodeIsNotLogged) {
  Gate gate(std::string(18, '0'));
  const std::string before = gate.Log();
  for (const int code : {keys::kF4, keys::kF5, keys::kF7, keys::kF1, keys::kF1, keys::kEscape, keys::kPageUp})
    gate.Station.Hands.Key(code, 0);
  gate.Station.Hands.Key('M', kCtrlAlt);
  EXPECT_EQ(gate.Log(), before);
}

}  // namespace
}  // namespace vintoral
