#include "platform/modules/Module.h"

#include <dlfcn.h>

#include <filesystem>

namespace vintoral {
namespace {

/// Where it lies; beside the program where it is nowhere.
std::filesystem::path Locate(const std::string& file) {
  std::error_code ignored;
  const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
  const std::filesystem::path installed = folder / VINTORAL_MODULES / file;
  const bool beside = std::filesystem::exists(folder / file, ignored);
  return !beside && std::filesystem::exists(installed, ignored) ? installed : folder / file;
}

std::string LastProblem(const std::string& file) {
  const char* const problem = dlerror();
  return problem == nullptr ? "no " + file : problem;
}

}  // namespace

ModuleFunction FindInModule(const std::string& file, const char* function) {
  void* const module = dlopen(Locate(file).c_str(), RTLD_NOW);
  if (module == nullptr) return {nullptr, LastProblem(file)};
  void* const address = dlsym(module, function);
  return {address, address == nullptr ? LastProblem(file) : std::string()};
}

}  // namespace vintoral
