// All controls of the main screen, as the form was designed.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "camera/DSPreview/DSPreview.h"
#include "station/form1/Familias.h"
#include "station/forms/Form.h"

namespace vintoral {

/// Milliseconds from one look for the shared folder to the next, while it is missing.
inline constexpr int kConnectingInterval = 3000;

class ScreenModel : public Form {
 public:
  ScreenModel();

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

  PictureBox Picture1, Picture2;             ///< the live picture; the still of a ficha
  PictureBox Picture4;                       ///< the last frame, as the device gave it
  DSPreview dspPreview;                      ///< the live picture itself, in Picture1
  ComboBox CboDriver;                        ///< the cameras; its text is the one in use
  std::array<Image, 2> ImgFotoDetalle;       ///< turn the further photos of a ficha on display: back, forward
  Label LblFotoDetalle;                      ///< between them, which one is shown: "2 / 5"
  std::array<PictureBox, 2> PctFotoDetalle;  ///< take further photos of a new one: one, or ten in a row
  FileList FilAppCam;                        ///< what the outside camera program has left
  Label LblWebCamMsg;
  PictureBox PctAppCamera;

  CommandButton CmdBarCode, CmdNumeroFicha;
  TextBox TxtBarCode, TxtBarCodeOK;
  TextBox TxtMaxEntrada;
  ListBox LstModEntrada;
  ComboBox CboMinutos;

  std::array<PictureBox, boton::kCount> PctBoton;
  std::array<PictureBox, 5> PctBuscar;  ///< the lights beside it

  static constexpr std::int32_t kCeldas = 50;
  std::array<Image, kCeldas> ImgFicha;  ///< the grid: photo and number of each record of the page
  PictureBox PctFicha;
  Shape ShpCelda;
  PictureBox PctSeleccion;
  Frame FraFicha;

  Image ImgFondo;
  Label LblFondo;
  FileList FilFondos;
  Image ImgCambiarFondo;
  Image ImgPanico, ImgContador;
  /// What stands in the help line while it has nothing to tell.
  static constexpr std::string_view kTitulo = "Vintoral 10.25";
  Label LblAyuda;  ///< the help line: what the button under the pointer does

  Timer TmrHoraFecha, TmrHorario, TmrMonitor, TmrConexion, TmrBarCode;

 private:
  void NameAll();
  void DesignFields();
  void DesignInfo();
  void DesignHidden();
  void DesignTimers();
};

}  // namespace vintoral
