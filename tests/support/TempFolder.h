// A folder of its own for each test that needs a real disk, removed at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace vintoral::test {

class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vintoral-XXXXXX").string();
    if (mkdtemp(name.data())) path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return path_; }
  /// `name` in the folder, UTF-8 with slashes.
  std::string Path(const std::string& name) const { return path_ + "/" + name; }

  void Put(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }
  /// The bytes of a file; a missing one gives "(missing)", which no register can be.
  std::string Get(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    if (!file) return "(missing)";
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

}  // namespace vintoral::test
