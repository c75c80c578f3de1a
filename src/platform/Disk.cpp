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
  ReplacementAtOnce(Disk& disk, std::string_view path) : disk_(disk), path_(path) {}
  void PutAround(std::string_view before, std::string_view after) override {
    around_.emplace(String(before), String(after));
  }
  Outcome Commit() override {
    if (!around_) return NothingPut();
    const Result<String> held = disk_.ReadAll(path_);
    if (!held && !held.Why().Missing()) return held.Why();
    return disk_.Replace(path_, around_->first + (held ? *held : String()) + around_->second);
  }

 private:
  Disk& disk_;
  const String path_;
  std::optional<std::pair<String, String>> around_;
};

}  // namespace

std::unique_ptr<Replacement> Disk::BeginReplacement(std::string_view path) {
  return std::make_unique<ReplacementAtOnce>(*this, path);
}

Outcome Disk::Copy(std::string_view from, std::string_view to) {
  const Result<String> held = ReadAll(from);
  return held ? Replace(to, *held) : held.Why();
}

}  // namespace vintoral
