#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <algorithm>

#include "core/machine_file_system.h"
#include "repairs/repair_log.h"
#include "tests/reminders/builders.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/box_script.h"
#include "tests/ui/breakable_files.h"
#include "tests/ui/screen_test.h"
#include "tyres/tyre_set.h"
#include "ui/main/frmTarvik.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/riaszt.h"

// Every change that the screens offer, with a disk that breaks at the save or at the listing after it: what
// is said is what happened, the list is read anew, and nothing is chosen in it.

namespace tarvik::test {
namespace {

using Boxes = QList<QMessageBox::StandardButton>;

const QString kPlate = QStringLiteral("ABC-123");

/// A household with two records of everything, on a disk that a test can break.
struct House {
  House() {
    folder.makeFolder("ABC-123");
    core::NapiAdat full = entry(10'500, 41'420);
    full.TankoltLiter = {300'000};
    full.Teletank = core::kFlagSet;
    folder.write("ABC-123/napiadat.dat", fileOf({entry(10'000, 41'410), full}));
    folder.write("rendsz.dat", "ABC-123 " + std::string("\x2d\0", 2) + "DEF-456 " + std::string("\x28\0", 2));
    folder.write("set.dat", std::string(2, '\xFF') + padded("ABC-123", 10));
    folder.write("alkatr.dat", padded("Ablak", 50) + padded("F\xE9k", 50));
    folder.write("megjegyz.dat", padded("Tankol\xE1s", 50) + padded("Mos\xE1s", 50));
    folder.write("figyel.dat", fileOf({kmReminder(1'000, 500, "Olaj", "ABC-123"),
                                       kmReminder(1'000, 600, "Fék", "ABC-123")}));
    folder.write("figyDatum.dat", fileOf({dateReminder(1, "Adó", "A"), dateReminder(2, "Műszaki", "A")}));
    folder.write("Gumik.dat", fileOf({tyreSet("a", tyres::kFitted), tyreSet("b")}));
    folder.write("Szerviz.dat", fileOf({repair("a"), repair("b")}));
    context.state.currentReading = 10'500;
  }
  static tyres::TyreSet tyreSet(const char* type, std::int16_t onCar = tyres::kNotFitted) {
    tyres::TyreSet set;
    set.plate = core::FixedText<10>("ABC-123");
    set.type = core::FixedText<30>(type);
    set.maxKm = 40'000;
    set.onCar = onCar;
    return set;
  }
  static repairs::Repair repair(const char* description) {
    repairs::Repair made;
    made.plate = core::FixedText<10>("ABC-123");
    made.date = 41'455;  // 30 June 2013
    made.description = core::FixedText<80>(description);
    return made;
  }
  std::vector<std::string> contents() const {
    std::vector<std::string> all;
    for (const char* file : {"rendsz.dat", "figyel.dat", "Gumik.dat", "Szerviz.dat"})
      all.push_back(folder.read(file));
    return all;
  }

  TemporaryFolder folder;
  core::MachineFileSystem disk;
  BreakableFiles files{disk};
  FixedClock clock{{.year = 2013, .month = 7, .day = 5}};
  ui::Context context{files, {folder.path(), folder.path()}, clock, "1.0.0"};
};

template <typename Screen>
std::unique_ptr<QWidget> opened(House& house) {
  if constexpr (std::is_same_v<Screen, ui::frmTarvik>) {
    house.folder.write("figyDatum.dat", "");  // nothing due, so that no alert opens first
    auto screen = std::make_unique<ui::frmTarvik>(house.context);
    screen->load();
    return screen;
  } else if constexpr (std::is_same_v<Screen, ui::frmSetup>) {
    return std::make_unique<ui::frmSetup>(house.context, QPoint(), nullptr);
  } else if constexpr (std::is_same_v<Screen, ui::frmDatumFigyelmeztetes>) {
    return std::make_unique<Screen>(house.context, nullptr);
  } else if constexpr (std::is_same_v<Screen, ui::frmGumik> || std::is_same_v<Screen, ui::frmSzerviz>) {
    return std::make_unique<Screen>(house.context, kPlate, QStringList{kPlate}, nullptr);
  } else {
    return std::make_unique<Screen>(house.context, kPlate, nullptr);
  }
}

/// A change that a screen offers.
struct Offer {
  const char* name;
  std::unique_ptr<QWidget> (*open)(House&);
  const char* list;      ///< what lists it
  const char* button;    ///< what makes it
  const char* deletion;  ///< what must not be left to delete by
  QString done;          ///< the sentence that says that it is made; empty when nothing is listed after it
  QString step;          ///< how the menu names it, and behind a bar what the line says
  Boxes answers = {};    ///< to what is asked before
  int row = 1;           ///< the one of the list that is chosen before
  std::vector<std::pair<const char*, QString>> fields = {};  ///< what is typed before
};

const Boxes kYes{QMessageBox::Yes};

const QString kReminderIn = "A figyelmeztetés rögzítve van.";
const QString kReminderOut = "A figyelmeztetés törölve van.";
const QString kTextOut = "A tétel törölve van.";
const std::vector<Offer> kOffers{
    {"entry recorded",
     opened<ui::frmTarvik>,
     "ListView1",
     "cmd_rogzit",
     "cmd_del",
     "A bejegyzés rögzítve van.",
     "rögzítés, 2013.05.26.|Rögzítve: 2013.05.26. tankolás",
     kYes,
     1,
     {{"txKmOra", "11000"}}},
    {"entry modified", opened<ui::frmTarvik>, "ListView1", "cmd_modosit", "cmd_del",
     "A bejegyzés módosítva van.", "módosítás, 2013.05.26.|Módosítva: 2013.05.26. tankolás", kYes},
    {"entry deleted", opened<ui::frmTarvik>, "ListView1", "cmd_del", "cmd_del", "A bejegyzés törölve van.",
     "törlés, 2013.05.16.|Törölve: 2013.05.16. bejegyzés", kYes, 0},
    {"tyres fitted", opened<ui::frmGumik>, "ListViewGumi", "cmdGumiFel", "cmdGumiDel",
     "A gumi fel van szerelve.", "felszerelés, b|Felszerelve: b"},
    {"tyres taken off", opened<ui::frmGumik>, "ListViewGumi", "cmdGumiLe", "cmdGumiDel",
     "A gumi le van szerelve.", "leszerelés, a|Leszerelve: a", Boxes(), 0},
    {"tyres changed", opened<ui::frmGumik>, "ListViewGumi", "cmdGumiModosit", "cmdGumiDel",
     "A gumi adatai módosítva vannak.", "gumi módosítása, b|Módosítva: b"},
    {"tyres deleted", opened<ui::frmGumik>, "ListViewGumi", "cmdGumiDel", "cmdGumiDel", "A gumi törölve van.",
     "gumi törlése, b|Törölve: b"},
    {"tyres recorded", opened<ui::frmGumik>, "ListViewGumi", "cmdGumiRogzites", "cmdGumiDel", "",
     "gumi rögzítése, b|Rögzítve: b"},
    {"repair recorded", opened<ui::frmSzerviz>, "ListViewSzerviz", "cmdRogzitSzerviz", "cmdDelSzerviz",
     "A javítás rögzítve van.", "javítás rögzítése, b|Rögzítve: b"},
    {"repair deleted", opened<ui::frmSzerviz>, "ListViewSzerviz", "cmdDelSzerviz", "cmdDelSzerviz",
     "A javítás törölve van.", "javítás törlése, 2013.06.30.|Törölve: 2013.06.30. b"},
    {"km reminder recorded", opened<ui::figy>, "ListView1", "cmd_rogzit", nullptr, kReminderIn,
     "figyelmeztetés rögzítése, Fék|Rögzítve: Fék", kYes},
    {"km reminder deleted", opened<ui::figy>, "ListView1", "cmd_del", nullptr, kReminderOut,
     "figyelmeztetés törlése|Törölve: Fék", kYes},
    {"date reminder recorded",
     opened<ui::figy>,
     "ListView2",
     "cmdRogzit2",
     nullptr,
     kReminderIn,
     "figyelmeztetés rögzítése, Olaj|Rögzítve: Olaj",
     kYes,
     1,
     {{"txtMire", "Olaj"}}},
    {"date reminder deleted", opened<ui::figy>, "ListView2", "cmdDel2", nullptr, kReminderOut,
     "figyelmeztetés törlése|Törölve: Műszaki", kYes},
    {"alert deleted", opened<ui::riaszt>, "List1", "cmd_torles", nullptr, kReminderOut,
     "figyelmeztetés törlése|Törölve: Fék"},
    {"due date deleted", opened<ui::frmDatumFigyelmeztetes>, "ListView1", "cmdDel", nullptr, "",
     "figyelmeztetés törlése|Törölve: Műszaki", kYes},
    {"vehicle added",
     opened<ui::frmSetup>,
     "List1",
     "cmdRendszamFelvesz",
     "cmdRendszamDel",
     "A rendszám fel van véve.",
     "új gépkocsi, GHI-789|Felvéve: GHI-789",
     Boxes(),
     1,
     {{"txRendszam", "GHI-789"}, {"txTank", "40"}}},
    {"vehicle deleted", opened<ui::frmSetup>, "List1", "cmdRendszamDel", "cmdRendszamDel",
     "A rendszám törölve van.", "gépkocsi törlése, DEF-456|Törölve: DEF-456"},
    {"part name deleted", opened<ui::frmSetup>, "listAlkatr", "cmdAlkatrDel", "cmdAlkatrDel", kTextOut,
     "törlés, Fék|Törölve: Fék", kYes},
    {"note deleted", opened<ui::frmSetup>, "listMegj", "cmdMegjDel", "cmdMegjDel", kTextOut,
     "törlés, Mosás|Törölve: Mosás", kYes},
};

/// A screen with a row of its list chosen and its fields filled.
struct Opened {
  Opened(House& house, const Offer& made) : offer(made), screen(made.open(house)) {
    screen->show();
    list = screen->findChild<QAbstractItemView*>(offer.list);
    const QModelIndex chosen = list->model()->index(offer.row, 0);
    list->selectionModel()->setCurrentIndex(chosen,
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    for (const auto& [name, text] : offer.fields) screen->findChild<QLineEdit*>(name)->setText(text);
  }
  void press() { screen->findChild<QPushButton*>(offer.button)->click(); }
  QAction* item(const char* name) { return screen->findChild<QAction*>(name); }
  bool offersDeletion() {
    return offer.deletion != nullptr && screen->findChild<QPushButton*>(offer.deletion)->isEnabled();
  }

  // The buttons left that act on what is chosen in a list; those of the alerts, which are never disabled,
  // aside.
  QStringList offeredOnChosen() {
    QStringList offered;
    for (const char* name :
         {"cmd_modosit", "cmd_del", "cmdDel2", "cmdGumiDel", "cmdGumiModositKeret", "cmdGumiFel", "cmdGumiLe",
          "cmdDelSzerviz", "cmdRendszamDel", "cmdAlkatrDel", "cmdMegjDel"}) {
      const auto* button = screen->findChild<QPushButton*>(name);
      if (button != nullptr && button->isEnabled()) offered << name;
    }
    return offered;
  }

  const Offer& offer;
  std::unique_ptr<QWidget> screen;
  QAbstractItemView* list;
};

/// The changes of a record that was chosen, with the file that holds it.
struct OfferOnRecord {
  const char* offer;
  const char* file;
  std::size_t recordLength;
};
constexpr OfferOnRecord kOnRecords[] = {{"entry modified", "ABC-123/napiadat.dat", 156},
                                        {"entry deleted", "ABC-123/napiadat.dat", 156},
                                        {"tyres fitted", "Gumik.dat", 71},
                                        {"tyres taken off", "Gumik.dat", 71},
                                        {"tyres changed", "Gumik.dat", 71},
                                        {"tyres deleted", "Gumik.dat", 71},
                                        {"repair deleted", "Szerviz.dat", 186},
                                        {"km reminder deleted", "figyel.dat", 68},
                                        {"date reminder deleted", "figyDatum.dat", 68},
                                        {"alert deleted", "figyel.dat", 68},
                                        {"due date deleted", "figyDatum.dat", 68},
                                        {"vehicle deleted", "rendsz.dat", 10},
                                        {"part name deleted", "alkatr.dat", 50},
                                        {"note deleted", "megjegyz.dat", 50}};

// What another program may do to a file of two records meanwhile.
void exchangeRecords(const House& house, const OfferOnRecord& made) {
  const std::string contents = house.folder.read(made.file);
  house.folder.write(made.file, contents.substr(made.recordLength) + contents.substr(0, made.recordLength));
}

void addOffers() {
  QTest::addColumn<int>("index");
  for (std::size_t i = 0; i < kOffers.size(); ++i) QTest::newRow(kOffers[i].name) << static_cast<int>(i);
}

}  // namespace

class ChangesEndToEndTest : public QObject {
  Q_OBJECT

 private slots:
  void aListingThatFailsAfterAChangeSaysThatItIsMade_data() { addOffers(); }
  void aListingThatFailsAfterAChangeSaysThatItIsMade() {
    QFETCH(int, index);
    const Offer& offer = kOffers[static_cast<std::size_t>(index)];
    if (offer.done.isEmpty()) return;
    House house;
    Opened opened(house, offer);
    BoxScript boxes(offer.answers);
    house.files.cannotOpenAfterChange = true;
    opened.press();
    const auto said = [&](const SeenBox& box) {
      return box.text.endsWith("\n\n" + offer.done + " A lista vagy az összesítése nem teljes.");
    };
    QCOMPARE(std::count_if(boxes.seen.begin(), boxes.seen.end(), said), 1);
    for (const SeenBox& box : boxes.seen) QVERIFY2(!box.text.contains("Semmi sem"), qPrintable(box.text));
    QCOMPARE(opened.list->model()->rowCount(), 0);
    QVERIFY(!opened.offersDeletion());
  }

  void anUnconfirmedSaveIsListedAnewBeforeItIsTold_data() { addOffers(); }
  void anUnconfirmedSaveIsListedAnewBeforeItIsTold() {
    QFETCH(int, index);
    const Offer& offer = kOffers[static_cast<std::size_t>(index)];
    House house;
    Opened opened(house, offer);
    BoxScript boxes(offer.answers);
    bool isRefilled = false;
    connect(opened.list->model(), &QAbstractItemModel::modelReset, this,
            [&] { isRefilled = boxes.seen.size() == offer.answers.size(); });
    house.files.cannotSync = true;
    opened.press();
    QCOMPARE(boxes.seen.size(), offer.answers.size() + 1);
    QVERIFY2(boxes.seen.last().text.contains("Nézd meg a listát"), qPrintable(boxes.seen.last().text));
    QVERIFY(isRefilled);
    QVERIFY(opened.list->model()->rowCount() > 0);
    QVERIFY(!opened.list->selectionModel()->hasSelection());
    QCOMPARE(opened.offeredOnChosen(), QStringList());
    QVERIFY(opened.screen->isVisible());
  }

  void aRecordThatIsAnotherByNowStaysAndTheListIsReadAnew_data() {
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < std::size(kOnRecords); ++i)
      QTest::newRow(kOnRecords[i].offer) << static_cast<int>(i);
  }
  void aRecordThatIsAnotherByNowStaysAndTheListIsReadAnew() {
    QFETCH(int, index);
    const OfferOnRecord& made = kOnRecords[index];
    const auto offer = std::ranges::find(kOffers, std::string_view(made.offer), &Offer::name);
    House house;
    Opened opened(house, *offer);
    exchangeRecords(house, made);
    const std::string exchanged = house.folder.read(made.file);
    BoxScript boxes(offer->answers);
    QSignalSpy refilled(opened.list->model(), &QAbstractItemModel::modelReset);
    opened.press();
    QCOMPARE(boxes.seen.size(), offer->answers.size() + 1);
    QVERIFY2(boxes.seen.last().text.contains("Az adatok közben máshol megváltoztak"),
             qPrintable(boxes.seen.last().text));
    QVERIFY(house.folder.read(made.file) == exchanged);
    QVERIFY(!refilled.isEmpty());
    QVERIFY(opened.list->model()->rowCount() > 0);
    QVERIFY(!opened.list->selectionModel()->hasSelection());
    QCOMPARE(opened.offeredOnChosen(), QStringList());
  }

  void aSwitchWhoseSaveIsNotConfirmedSaysThatItStayed() {
    House house;
    const auto screen = opened<ui::frmTarvik>(house);
    auto* const box = screen->findChild<QCheckBox*>("Check1");
    const bool before = box->isChecked();
    BoxScript boxes;
    house.files.cannotSync = true;
    box->click();
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY2(boxes.seen[0].text.endsWith("\n\nA kapcsoló úgy maradt, ahogy volt."),
             qPrintable(boxes.seen[0].text));
    QCOMPARE(box->isChecked(), before);
  }

  void startSettingsWhoseSaveIsNotConfirmedAreToBeSavedAgain() {
    House house;
    const auto screen = opened<ui::frmSetup>(house);
    screen->show();
    BoxScript boxes;
    house.files.cannotSync = true;
    screen->findChild<QPushButton*>("cmdSetup")->click();
    QCOMPARE(boxes.seen.size(), 1);
    QVERIFY2(
        boxes.seen[0].text.endsWith("\n\nLehet, hogy a beállítások nincsenek elmentve. Mentsd el őket újra!"),
        qPrintable(boxes.seen[0].text));
  }

  void aTextThatIsAddedAndNotListedSaysSo() {
    House house;
    const auto screen = opened<ui::frmTarvik>(house);
    screen->findChild<QComboBox*>("txAlkatresz")->setEditText("Izzó");
    BoxScript boxes(kYes);
    house.files.cannotOpenAfterChange = true;
    screen->findChild<QPushButton*>("cmdAlkatresz")->click();
    QCOMPARE(boxes.seen.size(), 2);
    QVERIFY2(boxes.seen[1].text.endsWith("\n\nA szöveg fel van véve. A legördülő lista nem teljes."),
             qPrintable(boxes.seen[1].text));
    QCOMPARE(screen->findChild<QComboBox*>("txAlkatresz")->currentText(), QString("Izzó"));
  }

  void anEntryWhoseTyresFailSaysWhatBecameOfBoth() {
    for (const auto& [breakage, told] :
         {std::pair(&BreakableFiles::cannotReplace,
                    "A fájl nem cserélhető le az új változatára:\n%1\n(a lemez hibát jelzett)\n\n"
                    "A bejegyzés rögzítve van, de a felszerelt gumi futott kilométere nem változott."),
          {&BreakableFiles::cannotConfirm,
           "A rendszer nem igazolta vissza a mentést:\n%1\n(a lemez hibát jelzett)\n\n"
           "A bejegyzés rögzítve van. Nézd meg a gumik listáján, hogy a felszerelt gumi futott "
           "kilométere megváltozott-e!"}}) {
      House house;
      Opened opened(house, kOffers.front());
      BoxScript boxes(kYes);
      house.files.*breakage = house.folder / "Gumik.dat";
      opened.press();
      QCOMPARE(boxes.seen.size(), 2);
      QCOMPARE(boxes.seen[1].text, QString(told).arg(QString::fromStdString(house.folder / "Gumik.dat")));
    }
  }

  // The tyres went last and come back first.
  void anUndoingOrRedoingThatFailsHalfWaySaysWhatIsDoneAndWhatIsLeft() {
    const QString unreplaced = "A fájl nem cserélhető le az új változatára:\n%1\n(a lemez hibát jelzett)\n\n";
    const QString unconfirmed = "A rendszer nem igazolta vissza a mentést:\n%1\n(a lemez hibát jelzett)\n\n";
    const std::tuple<bool, std::string BreakableFiles::*, const char*, QString> cases[] = {
        {false, &BreakableFiles::cannotReplace, "ABC-123/napiadat.dat",
         unreplaced + "Visszavonva:\n%3\n\nElmaradt:\n%2"},
        {true, &BreakableFiles::cannotReplace, "Gumik.dat",
         unreplaced + "Újra megtéve:\n%2\n\nElmaradt:\n%3"},
        {false, &BreakableFiles::cannotConfirm, "Gumik.dat",
         unconfirmed + "Visszavonva:\n%3\n\nElmaradt:\n%2\n\nNézd meg a listát, mielőtt megismétled!"}};
    for (const auto& [isRedo, breakage, file, told] : cases) {
      House house;
      Opened opened(house, kOffers.front());
      BoxScript boxes(kYes);
      opened.press();
      if (isRedo) opened.item("mnuVisszavonas")->trigger();
      house.files.*breakage = house.folder / file;
      opened.item(isRedo ? "mnuUjra" : "mnuVisszavonas")->trigger();
      QCOMPARE(boxes.seen.size(), 2);
      const auto path = [&](const char* name) { return QString::fromStdString(house.folder / name); };
      QCOMPARE(boxes.seen[1].text, told.arg(path(file), path("ABC-123/napiadat.dat"), path("Gumik.dat")));
    }
  }

  void aListingThatFailsAfterAnUndoingIsTold() {
    House house;
    Opened opened(house, kOffers.front());
    BoxScript boxes(kYes);
    opened.press();
    house.files.cannotOpenAfterChange = true;
    opened.item("mnuVisszavonas")->trigger();
    QVERIFY2(boxes.seen.last().text.endsWith("\n\nA lista nem teljes."), qPrintable(boxes.seen.last().text));
  }

  void aDaysCopyThatIsNotConfirmedIsTold() {
    House house;
    Opened opened(house, kOffers.front());
    BoxScript boxes(kYes);
    house.files.cannotConfirm = house.folder / "Mentések/2013-07-05";
    opened.press();
    QTRY_COMPARE(boxes.seen.size(), 2);
    QVERIFY2(boxes.seen[1].text.endsWith(
                 "\n\nA mai mentés lehet, hogy nem készült el, a módosítás viszont megtörtént."),
             qPrintable(boxes.seen[1].text));
  }

  void whatIsNotAskedIsDoneBySpaceAndByNoEnter_data() { addOffers(); }
  void whatIsNotAskedIsDoneBySpaceAndByNoEnter() {
    QFETCH(int, index);
    const Offer& offer = kOffers[static_cast<std::size_t>(index)];
    House house;
    Opened opened(house, offer);
    auto* const button = opened.screen->findChild<QPushButton*>(offer.button);
    if (!offer.answers.isEmpty() || !button->isVisible()) return;
    QVERIFY(QTest::qWaitForWindowActive(opened.screen.get()));
    const auto before = house.contents();
    button->setFocus();
    for (int time = 0; time < 2; ++time) QTest::keyClick(button, Qt::Key_Return);
    QVERIFY(house.contents() == before);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(house.contents() != before);
  }

  void aSavedChangeIsListedWithoutABoxAndNamedOnTheScreen_data() { addOffers(); }
  void aSavedChangeIsListedWithoutABoxAndNamedOnTheScreen() {
    QFETCH(int, index);
    const Offer& offer = kOffers[static_cast<std::size_t>(index)];
    House house;
    Opened opened(house, offer);
    BoxScript boxes(offer.answers);
    opened.press();
    QCOMPARE(boxes.seen.size(), offer.answers.size());
    QCOMPARE(
        opened.item("mnuVisszavonas")->text() + '|' + opened.screen->findChild<QLabel*>("lbTortent")->text(),
        "&Visszavonás: " + offer.step + " – visszavonás: Ctrl+Z");
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::ChangesEndToEndTest)
#include "changes_end_to_end_test.moc"
