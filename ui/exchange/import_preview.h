#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/napi_adat.h"
#include "exchange/import_plan.h"
#include "exchange/log_reader.h"
#include "ui/base/context.h"
#include "ui/exchange/import_model.h"

namespace Ui {
class ImportPreview;
}

namespace tarvik::ui {

class ListView;
class TextListModel;

/// What an import is about: the file and the logbook that it is to come behind.
struct ImportSource {
  QString name;      ///< of the file
  std::string text;  ///< of the file
  exchange::LogFile log;
  std::string plate;
  core::Logbook logbook;  ///< as it is now; it is compared before anything is written
  std::int16_t tankLitres = 0;
  std::function<void()> list = {};  ///< lists that logbook anew behind the preview
};

/// Shows what a file would bring into a logbook before anything enters it: the entries as they would be
/// listed, what was noticed of each, how the columns were read, which rows are left out and why. Asks for
/// what the file cannot say. Its one button takes over all that is ticked, in one step; where that fails, the
/// preview stays, and it and the list behind show the logbook as it is by then before the failure is told.
class ImportPreview : public QDialog {
  Q_OBJECT

 public:
  ImportPreview(Context& context, ImportSource source, QWidget* parent);
  ~ImportPreview() override;

 private:
  void setUpQuestions();
  void setUpLists();
  QSize wantedSize() const;
  void showFile();
  void readAgain();
  void planAgain();
  void listAgain();
  void showColumns();
  void showLeftOut();
  void showState();
  void focusQuestion();
  QString missingAnswer() const;
  std::optional<core::Ratio> factor() const;
  exchange::Answers answers() const;
  exchange::ImportPlan plan() const;
  void takeOver();

  std::unique_ptr<Ui::ImportPreview> ui_;
  Context& context_;
  ImportSource source_;
  ImportModel* entries_;
  TextListModel* columns_ = nullptr;
  TextListModel* leftOut_ = nullptr;
};

}  // namespace tarvik::ui
