#pragma once

namespace tarvik::ui {

/// Makes the lists known to assistive tools as tables: a heading for each shown column, then the cells row by
/// row, named by their trimmed texts. The record number is no part of it. Selecting a row, or pressing a cell
/// of it, does what a click on the row does; pressing the heading of a list that sorts, sorts. Further calls
/// change nothing.
void installListAccessibility();

}  // namespace tarvik::ui
