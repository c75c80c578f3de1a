#include "camera/DSPreview/DSPreview.h"

#include <algorithm>

#include "camera/DSPreview/CamarasRed.h"
#include "camera/DSPreview/FormatosCamara.h"

namespace vintoral {

void DSPreview::UseDevices(Camera& camera, Disk& disk, std::function<void()> connect) {
  camera_ = &camera;
  disk_ = &disk;
  connect_ = std::move(connect);
}

bool DSPreview::LoadCamera(ComboBox& names) {
  names.Clear();
  lista_.clear();
  const std::optional<std::vector<String>> devices = camera_->Devices();
  listed_ = devices.has_value();
  if (!listed_) return false;
  for (const String& device : *devices)
    lista_.push_back({device, {}, {}});
  const std::vector<CameraSource> red = LeerCamarasRed(*disk_);
  lista_.insert(lista_.end(), red.begin(), red.end());
  for (const CameraSource& source : lista_)
    names.AddItem(source.name);
  return true;
}

void DSPreview::StartCamera(const String& name) {
  if (started_) {
    UltimoError = error_camara::kIniciada;
    return;
  }
  const std::vector<CameraSource> lista = std::exchange(lista_, {});
  const auto found = std::find_if(lista.begin(), lista.end(),
                                  [&](const CameraSource& source) { return source.name == name; });
  if (found == lista.end()) return;
  running_ = *found;
  running_.format = LeerFormatos(*disk_)[name];
  camera_->Start(running_);
  started_ = true;
}

void DSPreview::StopCamera() {
  if (!started_) return;
  camera_->Stop();
  started_ = false;
}

CameraState DSPreview::State() const {
  return started_ ? camera_->State() : CameraState::kStopped;
}

bool DSPreview::PauseCamera() {
  const bool paused = started_ && camera_->Pause();
  if (!paused) UltimoError = started_ ? error_camara::kPausa : error_camara::kDetenida;
  return paused;
}

bool DSPreview::ResumeCamera() {
  const bool runs = started_ && camera_->Resume();
  UltimoError = runs ? std::int16_t{0} : error_camara::kDetenida;
  return runs;
}

CameraOptions DSPreview::Options() const {
  return started_ ? camera_->Options() : CameraOptions{};
}

std::shared_ptr<const cImage> DSPreview::Snap() {
  if (!started_) {
    UltimoError = error_camara::kDetenida;
    return nullptr;
  }
  std::shared_ptr<const cImage> frame = camera_->Snap();
  if (frame == nullptr) {
    connect_();
    UltimoError = error_camara::kSinImagen;
    return nullptr;
  }
  relacion_ = static_cast<double>(frame->Width()) / frame->Height();
  return frame;
}

}  // namespace vintoral
