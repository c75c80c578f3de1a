#include "platform/desktop/camera/CameraFault.h"

namespace vintoral {

namespace {

CameraFault FaultOfResource(int code) {
  switch (code) {
    case GST_RESOURCE_ERROR_NOT_AUTHORIZED:
      return CameraFault::kRefused;
    case GST_RESOURCE_ERROR_BUSY:
      return CameraFault::kBusy;
    case GST_RESOURCE_ERROR_READ:
    case GST_RESOURCE_ERROR_WRITE:
    case GST_RESOURCE_ERROR_SYNC:
      return CameraFault::kBroken;
    default:
      return CameraFault::kUnreachable;
  }
}

}  // namespace

CameraFault FaultOf(const GError& error) {
  if (error.domain == GST_RESOURCE_ERROR) return FaultOfResource(error.code);
  const bool lacking = error.domain == GST_STREAM_ERROR && error.code == GST_STREAM_ERROR_CODEC_NOT_FOUND;
  const bool missing = error.domain == GST_CORE_ERROR && error.code == GST_CORE_ERROR_MISSING_PLUGIN;
  return lacking || missing ? CameraFault::kMissing : CameraFault::kGarbage;
}

const char* Words(CameraFault fault) {
  switch (fault) {
    case CameraFault::kMissing:
      return "this machine lacks a GStreamer plugin for it";
    case CameraFault::kGone:
      return "is not plugged in";
    case CameraFault::kUnreachable:
      return "could not connect";
    case CameraFault::kRefused:
      return "asks for another user or password";
    case CameraFault::kBusy:
      return "another program has it";
    case CameraFault::kBroken:
      return "the connection broke";
    case CameraFault::kSilent:
      return "no pictures come";
    case CameraFault::kGarbage:
      return "sends what is no picture";
    case CameraFault::kEnded:
      return "ended its pictures";
    case CameraFault::kNone:
      break;
  }
  return "runs";
}

}  // namespace vintoral
