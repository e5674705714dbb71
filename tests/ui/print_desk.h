#pragma once

#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPdfWriter>
#include <QProgressDialog>
#include <cerrno>
#include <deque>

#include "core/record_file.h"
#include "tests/support/bytes.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/by_hand.h"
#include "tests/ui/printed_entries.h"
#include "ui/base/guarded.h"
#include "ui/print/list_printer.h"

namespace tarvik::test {

/// Answers the dialogs of one command in turn and notes what they say. A dialog that nobody expects is
/// closed and fails the test, and so does an answer that no dialog asked for.
class Answers : public QObject {
 public:
  using Answer = std::function<void(QDialog&)>;

  Answers() { lookAgain(); }
  ~Answers() override {
    if (!steps_.empty() || surprised_)
      QTest::qFail("the dialogs that came are not those that the test answers", __FILE__, __LINE__);
  }

  template <typename Dialog>
  void expect(std::function<void(Dialog&)> answer) {
    steps_.push_back({[](QDialog& dialog) { return qobject_cast<Dialog*>(&dialog) != nullptr; },
                      [answer](QDialog& dialog) { answer(static_cast<Dialog&>(dialog)); }});
  }

  void heading(const QString& text) {
    expect<QInputDialog>([this, text](QInputDialog& dialog) {
      texts << dialog.windowTitle() << dialog.labelText();
      dialog.setTextValue(text);
      dialog.accept();
    });
  }
  void headingCancelled() {
    expect<QInputDialog>([](QInputDialog& dialog) { dialog.reject(); });
  }
  void box(QMessageBox::StandardButton button) {
    expect<QMessageBox>([this, button](QMessageBox& box) {
      texts << box.windowTitle() << box.text();
      auto* const answer = box.button(button);
      if (answer == nullptr) QTest::qFail("the box has no such button", __FILE__, __LINE__);
      answer == nullptr ? box.done(QDialog::Rejected) : answer->click();
    });
  }
  void fileName(const QString& path) {
    expect<QFileDialog>([this, path](QFileDialog& dialog) {
      texts << QFileInfo(dialog.selectedFiles().value(0)).fileName();
      nameFile(dialog, path);
      static_cast<QDialog&>(dialog).accept();
    });
  }
  void fileCancelled() {
    expect<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
  }
  void progressCancelled() {
    expect<QProgressDialog>([this](QProgressDialog& dialog) {
      texts << dialog.windowTitle() << dialog.labelText();
      auto* button = dialog.findChild<QPushButton*>();
      texts << button->text();
      button->click();
    });
  }

  QStringList texts;

 private:
  struct Step {
    std::function<bool(QDialog&)> isMeant;
    Answer answer;
  };

  // An answer may open the next dialog before it returns, so the next look never waits for this one.
  void lookAgain() { QTimer::singleShot(1, this, &Answers::look); }

  void look() {
    lookAgain();
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) return;
    if (!steps_.empty() && steps_.front().isMeant(*dialog)) {
      const Answer answer = steps_.front().answer;
      steps_.pop_front();
      answer(*dialog);
    } else if (!qobject_cast<QProgressDialog*>(dialog)) {
      surprised_ = true;
      dialog->reject();
    }
  }

  std::deque<Step> steps_;
  bool surprised_ = false;
};

/// A printing system that keeps a copy of what it is sent.
class RecordingPrintSystem final : public ui::PdfPrintSystem {
 public:
  explicit RecordingPrintSystem(QString copy) : copy_(std::move(copy)) {}

  QString printer() override { return name; }
  QString send(const QString& printer, const QString& file, const QString& title) override {
    sent << printer << title;
    QFile::copy(file, copy_);
    return refusal;
  }

  QString name = QStringLiteral("Nappali");
  QString refusal;
  QStringList sent;

 private:
  QString copy_;
};

/// Shows the progress at once, as after the time that a slow machine would take.
inline void showProgress() {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (qobject_cast<QProgressDialog*>(widget)) QMetaObject::invokeMethod(widget, "forceShow");
}

/// A printing system that cannot take a sheet back, whose progress shows from the first page on.
class OneWayPrintSystem final : public ui::PrintSystem {
 public:
  explicit OneWayPrintSystem(QString paper) : paper_(std::move(paper)) {}

  QString printer() override { return QStringLiteral("Nappali"); }
  QString print(const QString&, const QString&, core::FileSystem&, const ui::DrawDocument& draw) override {
    QPdfWriter writer(paper_);
    const auto isRefused = [this] {
      for (QWidget* widget : QApplication::topLevelWidgets())
        if (const auto* progress = qobject_cast<QProgressDialog*>(widget)) steps << progress->value();
      showProgress();
      return false;
    };
    isDrawn = draw({.device = writer, .isRefused = isRefused, .canBeTakenBack = false});
    mode = writer.pageLayout().mode();
    return {};
  }

  bool isDrawn = false;
  QList<int> steps;  ///< of the progress, before each sheet
  QPageLayout::Mode mode = QPageLayout::StandardMode;

 private:
  QString paper_;
};

/// A disk on which one call fails for documents that are being written.
class FailingDisk final : public ForwardingFileSystem {
 public:
  int open(const std::string& path, core::OpenMode mode) override {
    const bool isNew = mode == core::OpenMode::CreateNew || mode == core::OpenMode::CreatePrivate;
    return isNew && refuses(openError) ? -1 : ForwardingFileSystem::open(path, mode);
  }
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    if (offset == 0) onFirstWrite();
    if (offset + static_cast<std::int64_t>(data.size()) > capacity) return refuses(ENOSPC) ? -1 : 0;
    return ForwardingFileSystem::write(descriptor, data, offset);
  }
  int sync(int descriptor) override {
    return refuses(syncError) ? -1 : ForwardingFileSystem::sync(descriptor);
  }
  int rename(const std::string& from, const std::string& to) override {
    return refuses(renameError) ? -1 : ForwardingFileSystem::rename(from, to);
  }

  int openError = 0;
  int syncError = 0;
  int renameError = 0;
  std::int64_t capacity = 1'000'000'000;
  std::function<void()> onFirstWrite = [] {};

 private:
  static bool refuses(int error) {
    if (error != 0) errno = error;
    return error != 0;
  }
};

/// A vehicle ABC123 with a logbook, and all that the command needs.
struct Bench {
  explicit Bench(int entries) : count(entries) {
    folder.makeFolder("ABC123");
    std::string bytes;
    for (int i = 1; i <= entries; ++i) bytes += textOf(core::encoded(entryOf(i)));
    folder.write("ABC123/napiadat.dat", bytes);
  }

  QString path(const char* name) const { return QString::fromStdString(folder / name); }
  bool print() {
    return ui::guarded(&window, [&] { ui::printList(context, plate, allRows(count), &window, system); });
  }
  // The machine has no printer; the person has the list saved under that name.
  void answerWithoutPrinter(const char* file) {
    system.name.clear();
    answers.heading("Minden");
    answers.box(QMessageBox::Yes);
    answers.fileName(path(file));
  }
  // Everything in the folder besides the vehicle's.
  std::vector<std::string> documents() const {
    auto names = folder.names();
    std::erase_if(names, [](const std::string& name) { return name.starts_with("ABC123"); });
    return names;
  }

  int count;
  TemporaryFolder folder;
  FailingDisk disk;
  FixedClock clock{{2026, 11, 21}};
  ui::Context context{disk, {folder.path(), folder.path()}, clock, "1.0.0"};
  RecordingPrintSystem system{path("sent.pdf")};
  QString plate = QStringLiteral("ABC123  ");
  QWidget window;
  Answers answers;
};

}  // namespace tarvik::test
