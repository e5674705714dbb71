#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "core/napi_adat.h"
#include "exchange/import_plan.h"
#include "ui/base/context.h"
#include "ui/exchange/import_choices.h"
#include "ui/exchange/import_model.h"

namespace Ui {
class ImportPreview;
}

namespace tarvik::ui {

/// What an import is about: the file and the logbook that it is to come into.
struct ImportSource {
  QString name;      ///< of the file
  QByteArray bytes;  ///< of the file
  std::string plate;
  core::Logbook logbook;  ///< as it is now; it is compared before anything is written
  std::int16_t tankLitres = 0;
  std::function<void()> list = {};  ///< lists that logbook anew behind the preview
};

/// Shows what a file would bring into a logbook before anything enters it: what each column is read as, how
/// the file counts, what all comes to beside the logbook, and every row, whether it is an entry or why it is
/// none. Every reading can be changed and is applied at once; what the file leaves open is asked before its
/// one button takes over all that is ticked, in one step. Where that fails, the preview stays, and it and the
/// list behind show the logbook as it is by then before the failure is told.
class ImportPreview : public QDialog {
  Q_OBJECT

 public:
  ImportPreview(Context& context, ImportSource source, QWidget* parent);
  ~ImportPreview() override;

  /// How many entries were taken over, and how many others got another consumption by that.
  int takenEntries() const { return takenEntries_; }
  int changedEntries() const { return changedEntries_; }

 private:
  void listen();
  QSize wantedSize() const;
  void readFile();
  void understand();
  void planAgain();
  void listAgain();
  exchange::PlanContext planContext() const;
  exchange::ImportPlan plan() const;
  void chooseMeaning(int column, int meaning);
  void showState();
  void showSums();
  void focusQuestion();
  QString missing() const;
  void tickAll() { rows_->tickAll(true); }
  void tickNone() { rows_->tickAll(false); }
  void takeOver();

  std::unique_ptr<Ui::ImportPreview> ui_;
  Context& context_;
  ImportSource source_;
  FileShape shape_;
  exchange::LogTable table_;
  exchange::Choices choices_;  // the columns that the person chose
  exchange::Reading reading_;
  ImportModel* rows_;
  int takenEntries_ = 0;
  int changedEntries_ = 0;
};

}  // namespace tarvik::ui
