// The dialog of the settings of the camera that runs. What is chosen there acts on the camera at once, so
// that it is seen on the live picture; saving keeps it for that camera, and every other way out puts it back.
#pragma once

#include <array>
#include <cstddef>

#include "platform/Camera.h"
#include "station/forms/Form.h"

namespace vintoral {

class Form1;

class FormCamara : public Form {
 public:
  /// What its title bar reads, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Configurar Cámara";
  /// More controls than these are not shown.
  static constexpr std::size_t kControles = 12;

  /// Of the camera that runs now.
  explicit FormCamara(Form1& station);

  Label LblCamara;  ///< its name
  Label LblModo;
  ComboBox CboModo;  ///< size and rate of the picture; the first row is for what the device takes by itself
  // A row for each control that the camera has; the others are hidden.
  std::array<Label, kControles> LblControl;
  std::array<CommandButton, kControles> CmdMenos;
  std::array<TextBox, kControles> TxtControl;
  std::array<CommandButton, kControles> CmdMas;
  std::array<Label, kControles> LblLimites;  ///< "0 a 255"
  CommandButton CmdGuardar, CmdCancelar;

  /// Enter saves, Esc doesn't; up and down change the value that has the focus.
  bool Form_KeyDown(int KeyCode, int Shift) override;
  void Form_Unload() override;

 private:
  void Nombrar();
  void MostrarModos();
  void MostrarControl(std::size_t index);
  void Conectar();
  void ElegirModo();
  /// What is typed for a control goes to the camera when it is a value of it.
  void Escrito(std::size_t index);
  void Mover(std::size_t index, int pasos);
  void Guardar();
  /// As the camera was when the dialog opened.
  CameraFormat FormatoDeAntes() const;

  Form1& station_;
  const CameraSource camara_;
  const CameraOptions opciones_;
  CameraFormat formato_;  ///< as it is now
  bool guardado_ = false;
};

}  // namespace vintoral
