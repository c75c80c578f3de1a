#include "platform/desktop/Network.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <vector>

#include "common/String.h"

namespace vintoral {

namespace {

/// The words of each line.
std::vector<std::vector<std::string>> Rows(std::string_view table) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines{std::string(table)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    rows.emplace_back(std::istream_iterator<std::string>(words), std::istream_iterator<std::string>());
  }
  return rows;
}

/// Every interface that is up reaches its own cable (fe80::/10) and calls to many (ff00::/8) by itself.
bool LeadsBeyond(const std::string& destination6) {
  constexpr std::string_view kOwn[] = {"fe8", "fe9", "fea", "feb", "ff"};
  return std::none_of(std::begin(kOwn), std::end(kOwn),
                      [&](std::string_view own) { return destination6.starts_with(own); });
}

std::string ContentOf(const char* file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

struct FreeAddresses {
  void operator()(ifaddrs* first) const { freeifaddrs(first); }
};

}  // namespace

bool IsThisMachine(std::string_view host) {
  if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
  if (EqualNoCase(host, "localhost") || host == "::1") return true;
  return host.starts_with("127.") && host.find_first_not_of("0123456789.") == std::string_view::npos;
}

bool HasRoute(std::string_view interface, std::string_view routes, std::string_view routes6) {
  // Interface, Destination, Gateway, …; the first line has the names of the columns.
  for (const auto& row : Rows(routes)) {
    if (!row.empty() && row.front() == interface) return true;
  }
  // Destination, its length, … and the interface last.
  for (const auto& row : Rows(routes6)) {
    if (!row.empty() && row.back() == interface && LeadsBeyond(row.front())) return true;
  }
  return false;
}

bool NetworkIsUp() {
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return false;
  const std::unique_ptr<ifaddrs, FreeAddresses> addresses(first);
  const std::string routes = ContentOf("/proc/net/route");
  const std::string routes6 = ContentOf("/proc/net/ipv6_route");
  for (const ifaddrs* address = first; address != nullptr; address = address->ifa_next) {
    constexpr unsigned kUp = IFF_UP | IFF_RUNNING;
    const bool up = (address->ifa_flags & kUp) == kUp && (address->ifa_flags & IFF_LOOPBACK) == 0;
    if (up && HasRoute(address->ifa_name, routes, routes6)) return true;
  }
  return false;
}

}  // namespace vintoral
