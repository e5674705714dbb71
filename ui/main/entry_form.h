#pragma once

#include <QWidget>
#include <memory>

#include "core/entry_input.h"
#include "core/reading.h"
#include "settings/lookup_list.h"
#include "ui/base/context.h"
#include "ui/base/guarded.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace Ui {
class EntryForm;
}

namespace tarvik::ui {

class EntryDay;
class ReadingCue;

/// The fields of a logbook entry on the main screen and the row of buttons below them. It knows what is typed
/// and the texts under its drop-downs; what the buttons do is the screen's.
class EntryForm : public QWidget {
  Q_OBJECT

 public:
  /// Reads nothing. The context outlives it.
  EntryForm(Context& context, QWidget* parent);
  ~EntryForm() override;

  /// Fills the drop-downs, each told by itself when it cannot be read, and begins with today and the note
  /// "Tankolás".
  void load();

  /// Fills the drop-downs anew whose file was changed elsewhere.
  void follow(const core::Travelled& travelled);

  /// What is in the fields.
  core::EntryInput input() const;
  /// Fills the fields, the day aside; the price is the input's own and does not follow the other two.
  void showInput(const core::EntryInput& input);
  /// Shows an entry; one with a damaged day leaves the day.
  void showEntry(const core::ShownEntry& entry);
  /// Clears the fields; the note's cost and the date stay for the day's next entry.
  void MezoDel();
  /// Makes room for the next entry: MezoDel, the note's cost a number, the tank full again.
  void beginNext();

  /// Says that the odometer reading is missing, and goes there, where it is; false where it is not.
  bool refusesBlankKm();
  /// Puts the keyboard into the odometer's field.
  void startTyping(Qt::FocusReason reason = Qt::OtherFocusReason);
  /// The odometer readings that the entry's may follow; the last one is the empty field's hint.
  void setEarlier(const core::EarlierReadings& earlier);
  /// Modifying and deleting can be pressed while an entry is chosen.
  void setChosen(bool isChosen);

  /// The button `cmdGrafikon`.
  QPushButton& chartButton();
  /// Lets the fill-up's frame be narrower, with its last fields on a line of their own, as high as the part's
  /// frame beside it.
  void setNarrowTank(bool isNarrow);
  /// The width from which on the frames stand beside each other, in pixels.
  int wideWidth() const;

 signals:
  void recordWanted();
  void modifyWanted();
  void deleteWanted();
  void listWanted();
  void remindersWanted();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void setUpFields();
  void connectButtons();
  void quickAdd(QComboBox* field, const settings::LookupFile& list, const QString& what);
  void fillTexts(QComboBox* field, const settings::LookupFile& list);
  std::optional<settings::CompletedNote> completedNote(const QString& typed, const QString& key);
  void keepNumeric(QLineEdit* field);
  void showPrice();

  std::unique_ptr<Ui::EntryForm> ui_;
  Context& context_;
  EntryDay* day_ = nullptr;
  ReadingCue* reading_ = nullptr;
  ToldOnce noteSearch_;
};

}  // namespace tarvik::ui
