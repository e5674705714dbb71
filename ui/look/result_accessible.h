#pragma once

namespace tarvik::ui {

/// Tells assistive tools of read-only fields as what they are: texts that can be read and selected, of which
/// Qt says that they can be edited. For fields that are read-only when they are first told. Further calls
/// change nothing.
void tellResultsAsResults();

}  // namespace tarvik::ui
