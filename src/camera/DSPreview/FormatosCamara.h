// Recursos\Vintoral.CFG: the settings that are kept of each device, a line each, the name last:
// "640x480@30 brightness=128 | USB Camera". What a line does not name is as the device has it.
#pragma once

#include <map>
#include <optional>
#include <string_view>

#include "platform/Camera.h"
#include "platform/Disk.h"

namespace vintoral {

/// By the device's name.
using FormatosCamara = std::map<String, CameraFormat>;

/// Nothing when any line can't be read: the file is damaged.
std::optional<FormatosCamara> FormatosDe(std::string_view text);
String TextoDe(const FormatosCamara& formatos);

/// Those of the station's file. A damaged one is deleted: all devices are then as they are by themselves.
FormatosCamara LeerFormatos(Disk& disk);
/// `name` gets another one; the rest of the file stays.
Outcome GuardarFormato(Disk& disk, const String& name, const CameraFormat& format);

}  // namespace vintoral
