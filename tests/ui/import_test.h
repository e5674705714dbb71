#pragma once

#include "tests/ui/main_screen.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/exchange/import_preview.h"

namespace tarvik::test {

/// Tests of the preview of an import: a file is read into the logbook of one car, and a person acts in its
/// controls.
class ImportTest : public QObject {
 protected:
  using Preview = ui::ImportPreview;
  static constexpr const char* kPlate = "ABC-123";
  static constexpr const char* kFile = "ABC-123/napiadat.dat";

  // Two fill-ups in kilometres, litres and forints.
  static inline const std::string kForintLog =
      "Dátum;Km óra;Liter;Költség (Ft);Tele;Megjegyzés\n"
      "2012.01.05.;1000;40,5;24300;igen;első\n"
      "2012.01.19.;1500;30;18000;igen;\n";

  struct Import {
    Import() { desk.program.makeFolder(kPlate); }

    std::vector<core::NapiAdat> stored() {
      const std::string bytes = desk.program.read(kFile);
      std::vector<core::NapiAdat> entries;
      for (std::size_t at = 0; at + core::NapiAdat::kLength <= bytes.size(); at += core::NapiAdat::kLength)
        entries.push_back(core::decoded<core::NapiAdat>(
            std::as_bytes(std::span(bytes.data() + at, core::NapiAdat::kLength))));
      return entries;
    }
    // Reads a file of that text in and lets the box at the end go; act is what the person does in the
    // preview.
    bool take(const std::string& text, std::function<void(Preview&)> act) {
      BoxScript boxes({QMessageBox::Ok});
      const bool isTaken = read(text, std::move(act));
      told = boxes.seen.isEmpty() ? QString() : boxes.seen.last().text;
      return isTaken;
    }
    bool read(const std::string& text, std::function<void(Preview&)> act = {}) {
      desk.current.write("log.csv", text);
      if (act) onNextDialog<Preview>(std::move(act));
      bool isTaken = false;
      ui::guarded(nullptr, [&] {
        isTaken =
            ui::importCsvFileAt(desk.context, kPlate, ui::toQt(desk.current / "log.csv"), nullptr, list);
      });
      return isTaken;
    }

    Desk desk;
    std::function<void()> list = [] {};
    QString told;  // by the box at the end
  };

  static QPushButton* button(const Preview& preview) { return part<QPushButton>(preview, "cmdAtvesz"); }
  static void takeOver(const Preview& preview) { press(*button(preview)); }
  static QString label(const Preview& preview, const char* name) {
    return part<QLabel>(preview, name)->text();
  }
  static QString state(const Preview& preview) { return label(preview, "lbState"); }
  static QAbstractItemModel* rowsOf(const Preview& preview) {
    return part<QTreeView>(preview, "ListViewBejegyzesek")->model();
  }
  static QComboBox* box(const Preview& preview, const char* name) { return part<QComboBox>(preview, name); }
  static void choose(const Preview& preview, const char* name, int index) {
    box(preview, name)->setCurrentIndex(index);
  }
  static QChar sideOf(const QVariant& alignment) {
    const auto side = alignment.value<Qt::Alignment>();
    return side.testFlag(Qt::AlignRight) ? '>' : side.testFlag(Qt::AlignHCenter) ? '|' : '<';
  }
  static void type(const Preview& preview, const char* name, const QString& text) {
    typeInto(*part<QLineEdit>(preview, name), text);
  }
  static QStringList choicesOf(const Preview& preview, const char* name) {
    QStringList choices;
    for (int i = 0; i < box(preview, name)->count(); ++i) choices << box(preview, name)->itemText(i);
    return choices;
  }
  static QString row(const QAbstractItemModel* model, int number, int columns) {
    QStringList cells;
    for (int column = 0; column < columns; ++column)
      cells.append(model->index(number, column).data().toString());
    return cells.join(QLatin1Char('|'));
  }
};

}  // namespace tarvik::test
