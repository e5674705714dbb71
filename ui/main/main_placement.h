#pragma once

class QBoxLayout;
class QMainWindow;

namespace tarvik::ui {

class ChartPanel;
class EntryForm;
class LogbookPane;

/// The parts of the main screen that have a say in its size, and the layout that they stand in.
struct MainParts {
  QBoxLayout& layout;
  EntryForm& entry;
  LogbookPane& logbook;
  const ChartPanel& chart;
};

/// Gives the main screen its size and its place in the middle of the display, and lets what does not fit be
/// scrolled. Where the display has room the list is taller than it must be, as high as a chart over it
/// wishes; where it is too low for the smallest chart, the fields and the results stand beside each other,
/// and all parts closer together. Called once, when the parts stand in the window.
void placeMainScreen(QMainWindow& window, const MainParts& parts);

}  // namespace tarvik::ui
