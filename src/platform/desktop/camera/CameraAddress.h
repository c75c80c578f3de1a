// The address of a camera on the network, apart from who asks.
#pragma once

#include <string>
#include <string_view>

namespace vintoral {

struct CameraAddress {
  std::string place;  ///< the address without user and password
  std::string user, password;
  bool http = false;  ///< pictures in a row, by http or https; RTSP otherwise
};

/// User and password are what stands before the last "@" of the host's part, with its %XX read.
CameraAddress AddressOf(std::string_view address);

}  // namespace vintoral
