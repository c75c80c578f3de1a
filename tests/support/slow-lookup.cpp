// Loaded before the system's own: the look-up of one name gets no answer for a minute, as on a network whose
// name server has gone.
#include <dlfcn.h>
#include <netdb.h>
#include <unistd.h>

#include <cstring>

extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** result) {
  constexpr unsigned kSilence = 60;
  using Lookup = int(const char*, const char*, const addrinfo*, addrinfo**);
  static const auto lookup = reinterpret_cast<Lookup*>(dlsym(RTLD_NEXT, "getaddrinfo"));
  if (node == nullptr || std::strcmp(node, "lento.example") != 0) return lookup(node, service, hints, result);
  sleep(kSilence);
  return EAI_AGAIN;
}
