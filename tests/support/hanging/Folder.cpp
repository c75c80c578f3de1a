#include "Folder.h"

#include <cerrno>
#include <csignal>
#include <fstream>

namespace hanging {
namespace {

/// Whether the thread has been told to die; also where nobody can say. A disk or a network drive goes on
/// through all other signals, so this one does too.
bool Killed(pid_t thread) {
  std::ifstream status("/proc/" + std::to_string(thread) + "/status");
  const std::string field = "SigPnd:";
  for (std::string line; std::getline(status, line);)
    if (line.starts_with(field))
      return ((std::stoull(line.substr(field.size()), nullptr, 16) >> (SIGKILL - 1)) & 1) != 0;
  return true;
}

bool Gone(fuse_req_t request) {
  if (fuse_session_exited(Of(request).session) != 0) return true;
  return fuse_req_interrupted(request) != 0 && Killed(fuse_req_ctx(request)->pid);
}

}  // namespace

Folder& Of(fuse_req_t request) {
  return *static_cast<Folder*>(fuse_req_userdata(request));
}

bool Held(fuse_req_t request, Kind kind, const std::function<Rules::Paths()>& paths) {
  const int error = Of(request).rules.Meet(kind, paths, [request] { return Gone(request); });
  if (error != 0) fuse_reply_err(request, error);
  return error != 0;
}

bool Held(fuse_req_t request, Kind kind, fuse_ino_t number) {
  return Held(request, kind, [=] { return Rules::Paths{Of(request).nodes.PathOf(number)}; });
}

bool Held(fuse_req_t request, Kind kind, fuse_ino_t folder, const char* name) {
  return Held(request, kind, [=] { return Rules::Paths{Of(request).nodes.PathOf(folder, name)}; });
}

void AnswerCall(fuse_req_t request, int result) {
  fuse_reply_err(request, result == -1 ? errno : 0);
}

}  // namespace hanging
