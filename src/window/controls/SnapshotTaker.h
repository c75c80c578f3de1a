// Where a form of the model becomes values: the one place of the window's side that reads controls.
#pragma once

#include "window/controls/Snapshot.h"

namespace vintoral {

class Form;
class Forms;

class SnapshotTaker {
 public:
  /// All controls of `form`, which is loaded now, but may go at any time.
  SnapshotTaker(Forms& forms, Form& form, FormSnapshot& snapshot);

  /// Brings the snapshot up to date: what is the same as before is not copied. Of a form that is gone it
  /// only says that it is no longer shown. True when anything has changed.
  bool Take();
  const Form& Of() const { return *form_; }

 private:
  bool TakeControls();

  Forms& forms_;
  Form* form_;
  FormSnapshot& snapshot_;
};

}  // namespace vintoral
