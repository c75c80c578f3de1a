#include "window/controls/Snapshots.h"

#include <algorithm>
#include <utility>

#include "common/String.h"
#include "station/forms/Forms.h"
#include "window/controls/SnapshotTaker.h"

namespace vintoral {

TakenForm::TakenForm(Forms& forms, Form& form, std::mutex& lock)
    : lock_(lock), taker_(std::make_unique<SnapshotTaker>(forms, form, snapshot_)) {}

TakenForm::~TakenForm() = default;

bool TakenForm::Take() {
  const bool changed = taker_->Take();
  if (changed) ++version_;
  return changed;
}

bool TakenForm::IsOf(const Form& form) const {
  return &taker_->Of() == &form;
}

Snapshots::Snapshots(Forms& forms) : forms_(forms) {
  Take();
}

Snapshots::~Snapshots() = default;

bool Snapshots::Take() {
  const std::lock_guard lock(lock_);
  bool changed = Follow();
  for (const auto& form : loaded_)
    changed = form->Take() || changed;
  const auto active = std::find_if(loaded_.begin(), loaded_.end(),
                                   [&](const auto& form) { return form->IsOf(forms_.Active()); });
  const Taken now = active == loaded_.end() ? nullptr : *active;
  changed = std::exchange(active_, now) != now || changed;
  const bool ended = forms_.Ended();
  return std::exchange(ended_, ended) != ended || changed;
}

/// What was loaded and what went. A form whose place in memory another one took is told by its being new.
bool Snapshots::Follow() {
  std::vector<std::shared_ptr<TakenForm>> loaded;
  for (Form* const form : forms_.Loaded()) {
    const auto known =
        std::find_if(loaded_.begin(), loaded_.end(), [&](const auto& each) { return each->IsOf(*form); });
    loaded.push_back(known != loaded_.end() ? *known : std::make_shared<TakenForm>(forms_, *form, lock_));
  }
  const bool changed = loaded != loaded_;
  for (const auto& gone : loaded_) {
    if (std::find(loaded.begin(), loaded.end(), gone) == loaded.end()) gone->Take();
  }
  loaded_ = std::move(loaded);
  return changed;
}

Snapshots::Screen Snapshots::Now() const {
  const std::lock_guard lock(lock_);
  return {{loaded_.begin(), loaded_.end()}, active_, ended_};
}

Snapshots::Taken Snapshots::Find(const std::string& name) const {
  const std::lock_guard lock(lock_);
  const auto found = std::find_if(loaded_.begin(), loaded_.end(),
                                  [&](const auto& form) { return EqualNoCase(form->Snapshot().name, name); });
  return found == loaded_.end() ? nullptr : *found;
}

}  // namespace vintoral
