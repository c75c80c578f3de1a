// The properties of a control, by their names on the screen.
#pragma once

#include <nlohmann/json.hpp>

#include "station/form1/Form1.h"
#include "station/forms/Controls.h"

namespace vintoral {

/// {"Visible": true, "Text": "…", …}: those that the control has.
nlohmann::ordered_json PropertiesOf(Control& control);
/// The values of the run that are no controls.
nlohmann::ordered_json StateOf(const Form1& form);
/// One record with its fields by name; texts without the blanks around them.
nlohmann::ordered_json FieldsOf(const RegistroFicha& record);

}  // namespace vintoral
