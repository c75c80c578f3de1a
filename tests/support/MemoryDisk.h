// A disk in memory: no file of this machine is touched, and nothing waits.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/Disk.h"

namespace vintoral::test {

/// Names are found whatever their case, and folders have to exist, as on a real disk. Files stay what they
/// are while open, even when removed.
class MemoryDisk final : public Disk {
 public:
  explicit MemoryDisk(std::string_view folder = "/estacion") : folder_(folder) { MakeFolders(Key("")); }

  /// Puts a file there with its folders, whatever was there.
  void Put(std::string_view path, std::string_view bytes) {
    const std::string key = Key(path);
    MakeFolders(key.substr(0, key.rfind('/')));
    files_[key] = {std::make_shared<std::string>(bytes), String(NameOf(path)), false, ++puts_};
  }
  /// The bytes of a file; a missing one gives "(missing)", which no register can be.
  std::string Get(std::string_view path) const {
    const auto found = files_.find(Key(path));
    return found == files_.end() ? "(missing)" : *found->second.bytes;
  }
  /// Some other program has it open for writing from here on.
  void SetBeingWritten(std::string_view path) { beingWritten_.insert(Key(path)); }
  void SetReadOnly(std::string_view path) { files_.at(Key(path)).readOnly = true; }
  bool HasFolder(std::string_view path) const { return folders_.contains(Key(path)); }
  int Syncs() const { return *syncs_; }
  /// How often an append lock was taken.
  int Locked() const { return locks_->taken; }
  /// Happens once, when somebody next waits for the append lock of a file: what the gate that had it leaves.
  void BeforeLocked(std::string_view path, std::function<void()> happens) {
    locks_->before[Key(path)] = std::move(happens);
  }
  /// Happens once, right before a file is moved from here: what another gate does in that moment.
  void BeforeMoved(std::string_view path, std::function<void()> happens) {
    beforeMoved_[Key(path)] = std::move(happens);
  }
  /// The files that were opened or read while an append lock was held, in order.
  const std::vector<std::string>& UsedUnderLock() const { return locks_->used; }

  /// What kind of file system this is.
  void SetLeavesOldOrNew(bool leaves) { leavesOldOrNew_ = leaves; }
  /// The machine is started anew.
  void SetBootId(std::string_view id) { bootId_ = String(id); }

  String CurrentFolder() const override { return folder_; }
  bool Exists(std::string_view path) const override { return files_.contains(Key(path)); }
  std::optional<FileMark> Look(std::string_view path) const override {
    const auto found = files_.find(Key(path));
    if (found == files_.end()) return std::nullopt;
    return FileMark{found->second.bytes->size(), found->second.put};
  }
  bool BeingWritten(std::string_view path) const override { return beingWritten_.contains(Key(path)); }

  Result<std::unique_ptr<DiskFile>> Open(std::string_view path, OpenMode mode) override {
    const std::string key = Key(path);
    const auto found = files_.find(key);
    int error = 0;
    if (found == files_.end()) {
      if (mode != OpenMode::kCreate || !HasParent(key)) error = ENOENT;
    } else if (found->second.readOnly && mode != OpenMode::kRead) {
      error = EACCES;
    }
    if (folders_.contains(key)) error = EISDIR;
    if (error != 0) return Outcome::Failed("open", key, error);
    if (found == files_.end()) Put(path, "");
    locks_->Use(key);
    return Result<std::unique_ptr<DiskFile>>(
        std::make_unique<File>(files_.at(key).bytes, key, syncs_, locks_, mode == OpenMode::kRead));
  }

  Result<String> ReadAll(std::string_view path) override {
    if (!Exists(path)) return Outcome::Failed("open", Key(path), ENOENT);
    return String(Get(path));
  }
  Outcome Replace(std::string_view path, std::string_view bytes) override {
    Outcome replaced = ReplaceUnsynced(path, bytes);
    if (replaced) ++*syncs_;
    return replaced;
  }
  Outcome ReplaceUnsynced(std::string_view path, std::string_view bytes) override {
    const std::string key = Key(path);
    const auto found = files_.find(key);
    if (found != files_.end() && found->second.readOnly) return Outcome::Failed("replace", key, EACCES);
    if (!HasParent(key) || folders_.contains(key)) return Outcome::Failed("replace", key, ENOENT);
    Put(path, bytes);
    return Outcome::Done();
  }
  bool LeavesOldOrNew(std::string_view /*path*/) const override { return leavesOldOrNew_; }
  String BootId() const override { return bootId_; }
  Outcome CreateNew(std::string_view path, std::string_view bytes) override {
    const std::string key = Key(path);
    if (files_.contains(key) || folders_.contains(key)) return Outcome::Failed("make", key, EEXIST);
    if (!HasParent(key)) return Outcome::Failed("make", key, ENOENT);
    Put(path, bytes);
    return Outcome::Done();
  }
  Outcome CreateFolder(std::string_view path) override {
    const std::string key = Key(path);
    if (files_.contains(key)) return Outcome::Failed("make folder", key, EEXIST);
    if (!HasParent(key)) return Outcome::Failed("make folder", key, ENOENT);
    folders_[key] = true;
    return Outcome::Done();
  }
  Outcome Remove(std::string_view path) override {
    return files_.erase(Key(path)) > 0 ? Outcome::Done() : Outcome::Failed("remove", Key(path), ENOENT);
  }
  bool FolderExists(std::string_view path) const override { return HasFolder(path); }
  Outcome Move(std::string_view from, std::string_view to) override {
    const std::string source = Key(from), target = Key(to);
    if (const auto happens = beforeMoved_.extract(source)) happens.mapped()();
    if (files_.contains(target) || folders_.contains(target))
      return Outcome::Failed("move to", target, EEXIST);
    if (!HasParent(target)) return Outcome::Failed("move to", target, ENOENT);
    if (!files_.contains(source) && !folders_.contains(source))
      return Outcome::Failed("move", source, ENOENT);
    Rename(files_, source, target);
    Rename(folders_, source, target);
    if (const auto moved = files_.find(target); moved != files_.end())
      moved->second.name = String(NameOf(to));
    return Outcome::Done();
  }
  Outcome CopyFolder(std::string_view from, std::string_view to) override {
    const std::string source = Key(from), target = Key(to);
    if (!folders_.contains(source)) return Outcome::Failed("copy", source, ENOENT);
    if (files_.contains(target) || folders_.contains(target))
      return Outcome::Failed("copy to", target, EEXIST);
    if (!HasParent(target)) return Outcome::Failed("copy to", target, ENOENT);
    const auto copyAll = [&](auto& entries) {
      const auto before = entries;
      for (const auto& [key, entry] : before) {
        if (IsAtOrBelow(key, source)) entries[target + key.substr(source.size())] = entry;
      }
    };
    copyAll(files_);
    copyAll(folders_);
    for (auto& [key, entry] : files_) {
      if (IsAtOrBelow(key, target)) entry.bytes = std::make_shared<std::string>(*entry.bytes);
    }
    return Outcome::Done();
  }
  Outcome RemoveFolder(std::string_view path) override {
    const std::string folder = Key(path);
    const auto gone = [&](const auto& entry) { return IsAtOrBelow(entry.first, folder); };
    std::erase_if(files_, gone);
    std::erase_if(folders_, gone);
    return Outcome::Done();
  }
  bool IsLink(std::string_view path) const override { return links_.contains(Key(path)); }
  /// The file of that name is only a link to another.
  void SetLink(std::string_view path) { links_.insert(Key(path)); }
  Outcome ClearReadOnly(std::string_view path) override {
    const auto found = files_.find(Key(path));
    if (found != files_.end()) found->second.readOnly = false;
    return Outcome::Done();
  }
  std::vector<String> List(std::string_view folder, std::string_view ending) const override {
    const std::string prefix = Key(folder) + "/";
    std::vector<String> names;
    for (const auto& [key, entry] : files_) {
      const bool inside = key.starts_with(prefix) && key.find('/', prefix.size()) == std::string::npos;
      if (inside && key.ends_with(std::string_view(Upper(ending)))) names.push_back(entry.name);
    }
    return names;
  }
  std::vector<String> ListFolders(std::string_view folder) const override {
    const std::string prefix = Key(folder) + "/";
    std::vector<String> names;
    for (const auto& [key, there] : folders_) {
      const bool inside = key.starts_with(prefix) && key.find('/', prefix.size()) == std::string::npos;
      if (inside && !links_.contains(key)) names.emplace_back(key.substr(prefix.size()));
    }
    return names;
  }

 private:
  struct Locks {
    int taken = 0;
    int held = 0;
    std::vector<std::string> used;
    std::map<std::string, std::function<void()>> before;
    void Take(const std::string& key) {
      const auto found = before.find(key);
      if (found != before.end()) std::exchange(found->second, nullptr)();
      before.erase(key);
      ++taken;
      ++held;
    }
    void Use(const std::string& key) {
      if (held > 0) used.push_back(key);
    }
  };
  class File final : public DiskFile {
   public:
    File(std::shared_ptr<std::string> bytes, std::string key, std::shared_ptr<int> syncs,
         std::shared_ptr<Locks> locks, bool readOnly)
        : bytes_(std::move(bytes)),
          key_(std::move(key)),
          syncs_(std::move(syncs)),
          locks_(std::move(locks)),
          readOnly_(readOnly) {}
    Result<std::size_t> ReadAt(std::uint64_t offset, std::span<char> into) override {
      locks_->Use(key_);
      const std::size_t from = std::min<std::uint64_t>(offset, bytes_->size());
      return bytes_->copy(into.data(), into.size(), from);
    }
    Outcome WriteAt(std::uint64_t offset, std::span<const char> bytes) override {
      if (readOnly_) return Outcome::Failed("write", "in memory", EBADF);
      if (bytes_->size() < offset + bytes.size()) bytes_->resize(offset + bytes.size(), '\0');
      std::copy(bytes.begin(), bytes.end(), bytes_->begin() + static_cast<std::ptrdiff_t>(offset));
      return Outcome::Done();
    }
    Result<std::uint64_t> Length() override { return bytes_->size(); }
    Outcome Sync() override {
      ++*syncs_;
      return Outcome::Done();
    }
    Outcome Reserve(std::uint64_t) override { return Outcome::Done(); }
    Outcome Cut(std::uint64_t length) override {
      if (readOnly_) return Outcome::Failed("cut", "in memory", EBADF);
      bytes_->resize(std::min<std::uint64_t>(length, bytes_->size()));
      return Outcome::Done();
    }
    void LockAppend() override { locks_->Take(key_); }
    void UnlockAppend() override { --locks_->held; }

   private:
    std::shared_ptr<std::string> bytes_;
    std::string key_;
    std::shared_ptr<int> syncs_;
    std::shared_ptr<Locks> locks_;
    bool readOnly_;
  };
  struct Entry {
    std::shared_ptr<std::string> bytes;
    String name;
    bool readOnly = false;
    std::int64_t put = 0;  ///< the how many-th file that was put here: its time
  };

  static std::string_view NameOf(std::string_view path) { return path.substr(path.find_last_of("/\\") + 1); }
  /// Absolute, in capitals, with slashes, none doubled and none at the end.
  std::string Key(std::string_view path) const {
    const bool absolute = path.starts_with('/') || path.starts_with('\\');
    const std::string whole = (absolute ? "" : folder_.Bytes() + "/") + std::string(path);
    std::string key;
    for (const char byte : whole) {
      const char character = byte == '\\' ? '/' : UpperByte(byte);
      if (character != '/' || !key.ends_with('/')) key += character;
    }
    if (key.ends_with('/')) key.pop_back();
    return key;
  }
  bool HasParent(const std::string& key) const {
    const std::size_t slash = key.rfind('/');
    return slash == 0 || (slash != std::string::npos && folders_.contains(key.substr(0, slash)));
  }
  static bool IsAtOrBelow(const std::string& key, const std::string& folder) {
    return key == folder || key.starts_with(folder + "/");
  }
  template <class Entries>
  static void Rename(Entries& entries, const std::string& from, const std::string& to) {
    Entries moved;
    for (auto& [key, entry] : entries)
      moved[IsAtOrBelow(key, from) ? to + key.substr(from.size()) : key] = std::move(entry);
    entries = std::move(moved);
  }
  void MakeFolders(const std::string& key) {
    for (std::size_t end = key.find('/', 1); end != std::string::npos; end = key.find('/', end + 1))
      folders_[key.substr(0, end)] = true;
    folders_[key] = true;
  }

  String folder_;
  std::map<std::string, Entry> files_;
  std::map<std::string, bool> folders_;
  std::set<std::string> beingWritten_;
  std::map<std::string, std::function<void()>> beforeMoved_;
  std::set<std::string> links_;
  bool leavesOldOrNew_ = true;
  String bootId_ = "1"_w;
  std::int64_t puts_ = 0;
  std::shared_ptr<int> syncs_ = std::make_shared<int>(0);
  std::shared_ptr<Locks> locks_ = std::make_shared<Locks>();
};

}  // namespace vintoral::test
