// Objetos\Camaras.INI: the cameras on the network, one a line, "Nombre = rtsp://…". Most gates have no other.
#pragma once

#include <string_view>
#include <vector>

#include "platform/Camera.h"
#include "platform/Disk.h"

namespace vintoral {

/// The cameras of a text, in its order. A line that begins with ";" is a remark; one without a name, or whose
/// address is none of rtsp, rtsps, http and https, is passed over, and counted in `badLines`, since the
/// address may hold a password and can't be told.
std::vector<CameraSource> CamarasDe(std::string_view text, int* badLines = nullptr);
/// Those of the station's file; none when it is missing.
std::vector<CameraSource> LeerCamarasRed(Disk& disk);
/// Makes the file, with a remark that says how to fill it in, where it is missing.
void CrearCamarasRed(Disk& disk);

}  // namespace vintoral
