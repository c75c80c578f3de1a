// The control that shows the live picture: which cameras there are, the one that runs, a still of it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Camera.h"
#include "platform/Disk.h"
#include "station/forms/Controls.h"

namespace vintoral {

/// What UltimoError says.
namespace error_camara {
inline constexpr std::int16_t kDetenida = 200;   ///< no camera runs
inline constexpr std::int16_t kPausa = 300;      ///< pausing failed
inline constexpr std::int16_t kIniciada = 500;   ///< one runs already
inline constexpr std::int16_t kSinImagen = 600;  ///< no frame came, and a reconnection was begun
}  // namespace error_camara

class DSPreview : public PictureBox {
 public:
  /// Before anything else. Both outlive the control; `connect` begins a connection anew.
  void UseDevices(Camera& camera, Disk& disk, std::function<void()> connect);

  std::int16_t UltimoError = 0;

  /// The machine's devices into `names`, and behind them the cameras on the network. False, with `names`
  /// empty, as long as the system has not told of its devices.
  bool LoadCamera(ComboBox& names);
  /// The system has told, at the last look.
  bool Listed() const { return listed_; }
  /// The first of that name in the list, in the format that is kept for it. The list is good for one start.
  void StartCamera(const String& name);
  void StopCamera();
  CameraState State() const;
  bool PauseCamera();
  bool ResumeCamera();
  /// The latest frame at the device's own size; null when there is none.
  std::shared_ptr<const cImage> Snap();
  /// Width by height of the last frame; 0 before the first.
  double AspectRatio() const { return relacion_; }
  /// What can be chosen at the camera that runs; nothing where none does.
  CameraOptions Options() const;
  /// The camera that was started last, in the format that was kept for it then.
  const CameraSource& Source() const { return running_; }

 private:
  Camera* camera_ = nullptr;
  Disk* disk_ = nullptr;
  std::function<void()> connect_;
  std::vector<CameraSource> lista_;
  bool listed_ = false;
  CameraSource running_;
  bool started_ = false;
  double relacion_ = 0;
};

}  // namespace vintoral
