// Whether this machine can reach a relay.
#pragma once

#include <string>
#include <string_view>

namespace vintoral {

/// "localhost", 127.x.x.x or ::1, as a relay is named.
bool IsThisMachine(std::string_view host);

/// Whether an interface has a route that leads beyond its own cable: `routes` and `routes6` are the kernel's
/// tables, /proc/net/route and /proc/net/ipv6_route.
bool HasRoute(std::string_view interface, std::string_view routes, std::string_view routes6);

/// An interface other than the machine's own is up, its cable too, and has a route. Returns at once.
bool NetworkIsUp();

}  // namespace vintoral
