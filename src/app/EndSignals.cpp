#include "app/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <tuple>

namespace vintoral {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

/// What the handler writes into and the event loop reads from: a handler may do little more than write.
std::array<int, 2> pipeEnds = {-1, -1};

void OnSignal(int) {
  const int error = errno;
  std::ignore = write(pipeEnds[1], "", 1);
  errno = error;
}

auto HandlerOf(int signal) {
  struct sigaction now {};
  sigaction(signal, nullptr, &now);
  return now.sa_handler;
}

int OpenPipe() {
  if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) pipeEnds = {-1, -1};
  return pipeEnds[0];
}

void Handle(int signal, void (*handler)(int), int flags) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = flags;
  sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> end) : notifier_(OpenPipe(), QSocketNotifier::Read) {
  if (pipeEnds[0] < 0) return;  // then a signal ends the program, as it would without this
  QObject::connect(&notifier_, &QSocketNotifier::activated, [end = std::move(end)] {
    char signals[16];
    std::ignore = read(pipeEnds[0], signals, sizeof signals);
    end();
  });
  for (const int signal : kSignals) {
    // A program that was started to outlive its terminal stays so.
    if (HandlerOf(signal) != SIG_IGN) Handle(signal, OnSignal, static_cast<int>(SA_RESETHAND) | SA_RESTART);
  }
}

EndSignals::~EndSignals() {
  for (const int signal : kSignals) {
    if (HandlerOf(signal) == OnSignal) Handle(signal, SIG_DFL, 0);
  }
  notifier_.setEnabled(false);
  for (int& descriptor : pipeEnds) {
    if (descriptor >= 0) close(descriptor);
    descriptor = -1;
  }
}

}  // namespace vintoral
