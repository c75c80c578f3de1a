// Where the model becomes values: the one place of the window that reads controls.
#pragma once

#include <string_view>
#include <vector>

#include "window/controls/Snapshot.h"

namespace vintoral {

class Control;
class Form;
class Forms;

class SnapshotTaker {
 public:
  /// `form` is loaded now, but may go at any time.
  SnapshotTaker(Forms& forms, Form& form, FormSnapshot& snapshot);

  /// A control is part of the snapshot from here on; null when the form has none of that name, spelt exactly
  /// so.
  ControlState* Add(std::string_view name);
  /// Brings the snapshot up to date: what is the same as before is not copied. Of a form that is gone it
  /// only says that it is no longer shown.
  void Take();

 private:
  Forms& forms_;
  Form* form_;
  FormSnapshot& snapshot_;
  std::vector<Control*> controls_;  ///< those of the snapshot, in its order
};

}  // namespace vintoral
