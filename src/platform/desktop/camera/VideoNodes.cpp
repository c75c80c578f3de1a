#include "platform/desktop/camera/VideoNodes.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <utility>

namespace vintoral {

namespace {

std::string FirstLine(const std::filesystem::path& file) {
  std::ifstream stream(file);
  std::string line;
  std::getline(stream, line);
  return line;
}

}  // namespace

std::vector<VideoNode> VideoNodes(const std::string& folder) {
  constexpr std::string_view kPrefix = "video";
  std::vector<std::pair<int, VideoNode>> nodes;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
    const std::string node = entry.path().filename().string();
    int number = 0;
    if (!node.starts_with(kPrefix) ||
        std::from_chars(node.data() + kPrefix.size(), node.data() + node.size(), number).ec != std::errc())
      continue;
    const std::string name = FirstLine(entry.path() / "name");
    if (!name.empty() && FirstLine(entry.path() / "index") == "0")
      nodes.push_back({number, {name, "/dev/" + node}});
  }
  std::sort(nodes.begin(), nodes.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<VideoNode> sorted;
  sorted.reserve(nodes.size());
  for (auto& [number, node] : nodes)
    sorted.push_back(std::move(node));
  return sorted;
}

}  // namespace vintoral
