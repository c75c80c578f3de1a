#include "Control.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <utility>

#include "Command.h"

namespace hanging {
namespace {

constexpr std::size_t kLongestLine = 65536;
constexpr int kQueue = 16;

sockaddr_un AddressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof(address.sun_path)) throw std::runtime_error("the socket's path is too long");
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

int Listen(const std::string& path) {
  const sockaddr_un address = AddressOf(path);
  const int listening = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  unlink(path.c_str());
  if (bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
      listen(listening, kQueue) != 0)
    throw std::runtime_error("no socket at " + path + ": " + std::strerror(errno));
  return listening;
}

bool Send(int client, std::string_view text) {
  while (!text.empty()) {
    const ssize_t sent = send(client, text.data(), text.size(), MSG_NOSIGNAL);
    if (sent < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

/// Answers the whole lines in `pending` and takes them out of it.
bool AnswerLines(int client, std::string& pending, Rules& rules) {
  for (std::size_t end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
    const std::string line = pending.substr(0, end);
    pending.erase(0, end + 1);
    if (!Send(client, Answer(line, rules) + "\n")) return false;
  }
  return true;
}

}  // namespace

Control::Control(std::string path, Rules& rules)
    : path_(std::move(path)), rules_(rules), listening_(Listen(path_)) {}

void Control::Serve() {
  for (;;) {
    const int client = accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) continue;
    {
      const std::scoped_lock guard(mutex_);
      ++clients_;
    }
    std::thread([this, client] { Talk(client); }).detach();
  }
}

void Control::Talk(int client) {
  std::string pending;
  std::array<char, 4096> piece{};
  for (;;) {
    const ssize_t got = read(client, piece.data(), piece.size());
    if (got <= 0) break;
    pending.append(piece.data(), static_cast<std::size_t>(got));
    if (!AnswerLines(client, pending, rules_)) break;
    if (pending.size() <= kLongestLine) continue;
    Send(client, "{\"ok\":false,\"error\":\"the line is too long\"}\n");
    break;
  }
  close(client);
  Left();
}

void Control::Left() {
  const std::scoped_lock guard(mutex_);
  if (--clients_ == 0) rules_.Go(0);
}

}  // namespace hanging
