#include "platform/Disk.h"

namespace vintoral {

std::vector<std::optional<FileMark>> Disk::LookIn(std::string_view folder,
                                                  std::span<const String> names) const {
  std::vector<std::optional<FileMark>> marks;
  marks.reserve(names.size());
  for (const String& name : names)
    marks.push_back(Look(String(folder) + "\\"_w + name));
  return marks;
}

namespace {

/// Does all of it with Commit.
class ReplacementAtOnce final : public Replacement {
 public:
  ReplacementAtOnce(Disk& disk, std::string_view path, std::string_view before, std::string_view after)
      : disk_(disk), path_(path), before_(before), after_(after) {}
  Outcome Commit() override {
    const Result<String> held = disk_.ReadAll(path_);
    if (!held && !held.Why().Missing()) return held.Why();
    return disk_.Replace(path_, before_ + (held ? *held : String()) + after_);
  }

 private:
  Disk& disk_;
  const String path_, before_, after_;
};

}  // namespace

std::unique_ptr<Replacement> Disk::StartAround(std::string_view path, std::string_view before,
                                               std::string_view after) {
  return std::make_unique<ReplacementAtOnce>(*this, path, before, after);
}

}  // namespace vintoral
