// All controls of the main screen, as the form was designed, with their names and the keyboard focus.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "station/form1/Familias.h"
#include "station/forms/Controls.h"

namespace vintoral {

/// Milliseconds from one look for the shared folder to the next, while it is missing.
inline constexpr int kConnectingInterval = 3000;

class ScreenModel {
 public:
  ScreenModel();
  ScreenModel(const ScreenModel&) = delete;
  ScreenModel& operator=(const ScreenModel&) = delete;

  // The fields of the ficha, by index: number, plate, first name, surname, telephone, remark.
  std::array<TextBox, 6> TxtCampo;
  std::array<TextBox, 6> TxtEtiqueta;
  /// Their texts as designed, each with a blank behind it.
  static const std::array<String, 6>& LabelsAsDesigned();
  std::array<PictureBox, 6> PctEtiqueta;
  std::array<Label, 6> LblCampo;

  std::array<ComboBox, 2> CboTarifa;  ///< 0 of a ficha on display, 1 for a new one
  Label LblCategoria;
  Label LblFechaEnt, LblFechaSal;
  Label LblValor;
  TextBox TxtEfectivo;
  Label LblCambio;
  std::array<Label, 5> LblInfo;       ///< 0 count, 1 stay, 2 station, 3 panic mail, 4 counter
  std::array<Label, 2> LblIndicador;  ///< "SAL" and "ENT"
  std::array<Label, 3> LblConexion;   ///< the bars of the link
  std::array<Image, indicador::kCount> ImgIndicador;
  CheckBox ChkFactura;

  std::array<PictureBox, 2> PctUsuario;
  Image ImgUsuario;
  std::array<Label, 4> LblPuntos;
  Image ImgPuntos;

  PictureBox Picture1, Picture2;  ///< the live picture; the still of a ficha
  PictureBox dspPreview;
  Image ImgFotoDetalle;
  std::array<PictureBox, 2> PctFotoDetalle;
  Label LblWebCamMsg;
  PictureBox PctAppCamera;

  CommandButton CmdBarCode, CmdNumeroFicha;
  TextBox TxtBarCode, TxtBarCodeOK;
  TextBox TxtMaxEntrada;
  ListBox LstModEntrada;
  ComboBox CboMinutos;

  std::array<PictureBox, boton::kCount> PctBoton;
  std::array<PictureBox, 5> PctBuscar;  ///< the lights beside it

  std::array<Image, 50> ImgFicha;  ///< the grid
  PictureBox PctFicha;
  Shape ShpCelda;
  PictureBox PctSeleccion;
  Frame FraFicha;

  Image ImgFondo;
  Label LblFondo;
  FileList FilFondos;
  Image ImgCambiarFondo;
  Image ImgPanico, ImgContador;

  Timer TmrHoraFecha, TmrHorario, TmrMonitor, TmrConexion, TmrBarCode;

  /// All controls in the order above.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// The five timers, in the order in which simultaneous ticks run.
  std::array<Timer*, 5> Timers() {
    return {&TmrHoraFecha, &TmrHorario, &TmrMonitor, &TmrConexion, &TmrBarCode};
  }
  /// By screen name, "TxtCampo(0)"; case is ignored. Null when there is none.
  Control* Find(std::string_view name) const;

  /// The focused control; null when the focus is on the form itself or on the tool bar.
  Control* Focus() const { return focus_; }
  /// Moves the focus; a control that can't take it leaves the focus where it is. Null puts it on the tool
  /// bar.
  void SetFocus(Control* control);
  /// Runs when the focus has left a control.
  std::function<void(Control&)> OnLostFocus;

 private:
  void Name(Control& control, std::string name);
  template <std::size_t N, class C>
  void Name(std::array<C, N>& family, std::string_view name);
  void NameAll();
  void DesignFields();
  void DesignInfo();
  void DesignHidden();
  void DesignTimers();

  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
};

}  // namespace vintoral
