#pragma once

namespace vintoral {

class Form1;

/// The fichas that Form2 asks for into the view. False, and the view as it was, when the operator has ended
/// it.
bool CargarCoincidencias(Form1& form);

}  // namespace vintoral
