#pragma once

#include <QHash>
#include <QWidget>
#include <functional>
#include <vector>

#include "exchange/import_plan.h"
#include "exchange/reading.h"
#include "ui/exchange/text_file.h"

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace tarvik::ui {

/// What a file was read with, beyond the meaning of its columns.
struct FileShape {
  Encoding encoding = Encoding::Utf8;
  char separator = ',';
};

/// How a file counts and writes: each reading as a field that a person can change, applied at once. What is
/// not answered yet shows nothing chosen.
class ImportChoices : public QWidget {
  Q_OBJECT

 public:
  explicit ImportChoices(QWidget* parent = nullptr);

  /// Shows a reading, and only the fields that mean something for it.
  void show(const exchange::Reading& reading, const FileShape& shape, bool doPlacesDiffer);
  /// What the person said; the columns are not among it.
  const exchange::Choices& choices() const { return choices_; }
  FileShape shape() const;
  exchange::Place place() const;
  /// The field that answers a question; null where it is answered over a column.
  QWidget* fieldOf(exchange::Question question) const { return fields_.value(question); }

 signals:
  /// Another encoding or separator was chosen.
  void shapeChanged();
  /// Another reading was chosen.
  void choiceChanged();
  /// Another place in the logbook was chosen.
  void placeChanged();

 private:
  void addUnits();
  void addWords();
  void addMoney();
  void addShape();
  void addRow(const QString& name, int kindLetters, const QString& label, QWidget* field);
  QComboBox* addBox(const QString& name, const QString& label, const QStringList& items,
                    const std::function<void(int)>& chosen);
  QComboBox* addAnswer(const QString& name, const QString& label, const QStringList& items,
                       const std::function<void(int)>& take);
  QLineEdit* addField(const QString& name, const QString& label);
  void takeTyped();
  void takeTrip();
  void takeRates();
  void showUnits(const exchange::Reading& reading);
  void showMoney(const exchange::Reading& reading);
  void showVehicles(const exchange::Reading& reading);
  void showWords(const exchange::Reading& reading);
  void showRow(QWidget* field, bool isShown);

  QFormLayout* form_;
  QComboBox* days_;
  QComboBox* distance_;
  QComboBox* volume_;
  QComboBox* sign_;
  QComboBox* vehicle_;
  QComboBox* fullWord_;
  QComboBox* tripStart_;
  QLineEdit* tripReading_;
  QComboBox* currency_;
  std::vector<QLineEdit*> rates_;
  QComboBox* place_;
  QComboBox* encoding_;
  QComboBox* separator_;
  exchange::Choices choices_;
  exchange::Reading reading_;
  QHash<exchange::Question, QWidget*> fields_;  // that answer them
  bool isShowing_ = true;                       // the fields change by the program, not by a person
};

}  // namespace tarvik::ui
