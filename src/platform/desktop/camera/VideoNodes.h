// What the kernel says is plugged in.
#pragma once

#include <string>
#include <vector>

namespace vintoral {

struct VideoNode {
  std::string name;
  std::string file;  ///< "/dev/video0"
};

/// In the order of their numbers; of a device with several, the first one, which is the one with pictures.
std::vector<VideoNode> VideoNodes(const std::string& folder = "/sys/class/video4linux");

}  // namespace vintoral
