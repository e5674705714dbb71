#pragma once

namespace tarvik::ui {

class DayField;

/// Lets assistive tools read, type, raise and lower a day field. Called once, before it is shown.
void letAssistiveToolsIn(DayField& field);

}  // namespace tarvik::ui
