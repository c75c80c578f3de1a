// All loaded forms as values: the station's thread takes them, the window's thread copies them, under one
// lock that neither holds for longer than it takes to copy.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "window/controls/Snapshot.h"

namespace vintoral {

class Forms;
class SnapshotTaker;

/// One loaded form, from its loading to its end: another of the same name is another.
class TakenForm {
 public:
  TakenForm(Forms& forms, class Form& form, std::mutex& lock);
  ~TakenForm();
  TakenForm(const TakenForm&) = delete;
  TakenForm& operator=(const TakenForm&) = delete;

  // Whoever calls these holds the lock.

  bool Take();
  bool IsOf(const class Form& form) const;
  const FormSnapshot& Snapshot() const { return snapshot_; }
  /// Goes up with each change.
  std::uint64_t Version() const { return version_; }

  std::mutex& Lock() const { return lock_; }

 private:
  std::mutex& lock_;
  FormSnapshot snapshot_;
  std::unique_ptr<SnapshotTaker> taker_;
  std::uint64_t version_ = 1;
};

class Snapshots {
 public:
  using Taken = std::shared_ptr<const TakenForm>;

  /// Takes all that is loaded now.
  explicit Snapshots(Forms& forms);
  Snapshots(const Snapshots&) = delete;
  Snapshots& operator=(const Snapshots&) = delete;
  ~Snapshots();

  /// Of the station's thread: brings all forms up to date. True when anything has changed.
  bool Take();

  /// What is loaded, the main form first.
  struct Screen {
    std::vector<Taken> loaded;
    Taken active;  ///< keys reach this one
    bool ended = false;
  };
  Screen Now() const;
  /// Of that name, whatever its case; null when there is none.
  Taken Find(const std::string& name) const;

 private:
  bool Follow();

  Forms& forms_;
  mutable std::mutex lock_;
  std::vector<std::shared_ptr<TakenForm>> loaded_;
  Taken active_;
  bool ended_ = false;
};

}  // namespace vintoral
