#include "tests/ui/import_test.h"
#include "tests/ui/screen_test.h"
#include "ui/look/look.h"

using namespace tarvik;

// What the preview asks a person about a file, and how its columns and words are shown.
class ImportQuestionsTest : public test::ImportTest {
  Q_OBJECT

 private slots:
  void everyChoiceIsNamed() {
    const std::pair<const char*, QStringList> choices[] = {
        {"cmbNapok", {"nap, hónap, év", "hónap, nap, év", "év, hónap, nap"}},
        {"cmbTavolsag", {"kilométer", "mérföld (1,609 km)"}},
        {"cmbMennyiseg", {"liter", "amerikai gallon (3,785 liter)", "angol gallon (4,546 liter)"}},
        {"cmbKmKezdet", {"az első tankolás előtt", "az utolsó tankoláskor"}},
        {"cmbPenznem",
         {"forint (HUF)", "euró (EUR)", "amerikai dollár (USD)", "angol font (GBP)", "svájci frank (CHF)",
          "cseh korona (CZK)", "lengyel zloty (PLN)", "román lej (RON)", "szerb dinár (RSD)",
          "ukrán hrivnya (UAH)", "más pénznem"}},
        {"cmbHely", {"nap szerint a helyére", "a napló végére"}},
        {"cmbTizedes", {"vessző (40,5)", "pont (40.5)"}},
        {"cmbElvalaszto", {"pontosvessző", "vessző", "tabulátor", "függőleges vonal"}},
        {"cmbKodolas",
         {"UTF-8", "közép-európai (Windows-1250)", "nyugat-európai (Windows-1252)",
          "közép-európai (ISO 8859-2)", "közép-európai (DOS 852)", "cirill (Windows-1251)", "cirill (KOI8-R)",
          "UTF-16 (LE)", "UTF-16 (BE)"}}};
    Import csv;
    csv.read(kForintLog, [&](Preview& preview) {
      for (const auto& [name, named] : choices) QCOMPARE(choicesOf(preview, name), named);
      choose(preview, "cmbPenznem", 10);
      QCOMPARE(label(preview, "lbValto"), QStringLiteral("A fájl pénzneme hány &forint:"));
      preview.reject();
    });
  }

  void aForeignCurrencyIsAskedFor() {
    Import csv;
    QVERIFY(csv.take(
        "Date,Odometer (mi),Gallons (US),Total ($),Full\n2012-01-05,1000,10,40,1\n", [](Preview& preview) {
          QCOMPARE(state(preview), QStringLiteral("Írd be, hány forint a fájl pénzneme!"));
          QVERIFY(!button(preview)->isEnabled());
          QCOMPARE(label(preview, "lbValto"), QStringLiteral("1 USD hány &forint:"));
          for (const auto& [rate, isEnough] : {std::pair("0", false), {"0,5", true}, {"", false}}) {
            type(preview, "txValto", rate);
            QCOMPARE(button(preview)->isEnabled(), isEnough);
          }
          type(preview, "txValto", "360,5");
          QVERIFY(button(preview)->isEnabled());
          takeOver(preview);
        }));
    const core::NapiAdat entry = csv.stored()[0];
    QCOMPARE(entry.KmOra, 1609);
    QCOMPARE(entry.TankoltLiter.tenThousandths, 378'541);
    QCOMPARE(entry.TankoltKtg, 14'420);
  }

  void unitsThatTheFileDoesNotStateAreAskedFor() {
    Import csv;
    QVERIFY(csv.take("Date,Odometer,Gallons\n2012-01-05,1000,10\n", [](Preview& preview) {
      QCOMPARE(state(preview), QStringLiteral("Válaszd ki, kilométer vagy mérföld!"));
      QVERIFY(!button(preview)->isEnabled());
      choose(preview, "cmbTavolsag", 0);
      QCOMPARE(state(preview), QStringLiteral("Válaszd ki, milyen gallon van a fájlban!"));
      choose(preview, "cmbMennyiseg", 2);
      QVERIFY(button(preview)->isEnabled());
      takeOver(preview);
    }));
    QCOMPARE(csv.stored()[0].TankoltLiter.tenThousandths, 454'609);
    QCOMPARE(csv.stored()[0].KmOra, 1000);
  }

  void anOpenOrderOfDaysAndSeveralVehiclesAreAskedFor() {
    Import csv;
    QVERIFY(csv.take(
        "Rendszám,Dátum,Km óra,Liter\nA,1/2/2012,1000,40\nB,2/2/2012,500,30\n", [](Preview& preview) {
          QVERIFY(!button(preview)->isEnabled());
          QCOMPARE(choicesOf(preview, "cmbJarmu"), (QStringList{"A (1 sor)", "B (1 sor)", "minden sor"}));
          QCOMPARE(box(preview, "cmbJarmu")->currentIndex(), -1);
          choose(preview, "cmbJarmu", 0);
          QCOMPARE(box(preview, "cmbJarmu")->currentIndex(), 0);
          const QSignalSpy emptied(box(preview, "cmbJarmu")->model(), &QAbstractItemModel::rowsRemoved);
          choose(preview, "cmbNapok", 1);
          QCOMPARE(emptied.count(), 0);
          QVERIFY(button(preview)->isEnabled());
          takeOver(preview);
        }));
    QCOMPARE(csv.stored().size(), 1U);
    QCOMPARE(csv.stored()[0].Datum, core::toStored(core::dayOf({2012, 1, 2})));
  }

  void aLogOfDistancesIsAskedForItsReading() {
    Import csv;
    QVERIFY(csv.take("Dátum;Megtett km;Liter;Ft\n2012.01.05.;640;41;25575\n2012.01.19.;510;31;18600\n",
                     [](Preview& preview) {
                       QCOMPARE(state(preview), QStringLiteral("Írd be a km óra állását!"));
                       for (const auto& [km, isEnough] : {std::pair("-1", false), {"0", true}, {"", false}}) {
                         type(preview, "txKmKezdet", km);
                         QCOMPARE(button(preview)->isEnabled(), isEnough);
                       }
                       choose(preview, "cmbKmKezdet", 1);
                       type(preview, "txKmKezdet", "10000");
                       takeOver(preview);
                     }));
    QCOMPARE(csv.stored().at(0).KmOra, 9'490);
    QCOMPARE(csv.stored().at(1).KmOra, 10'000);
  }

  void aTypedReadingMayHaveItsThousandsApart() {
    for (const char* km : {"112.480", "112 480", "112480", "112480,4"}) {
      Import csv;
      QVERIFY(
          csv.take("Dátum;Megtett út (km);Liter;Ft/liter\n2023.02.03;641;44,95;605,9\n"
                   "2023.02.16;670;46,88;612,9\n",
                   [&](Preview& preview) {
                     type(preview, "txKmKezdet", km);
                     takeOver(preview);
                   }));
      QCOMPARE(csv.stored().at(0).KmOra, 113'121);
      QCOMPARE(csv.stored().at(1).KmOra, 113'791);
    }
  }

  void unknownWordsForAFullTankAreAskedFor() {
    Import csv;
    QVERIFY(csv.take(
        "Dátum;Km óra;Liter;Ft;Tele\n2012.01.05.;1000;41;25575;csurig\n2012.01.19.;1500;31;18600;félig\n"
        "2012.01.29.;2000;31;18600;\n",
        [](Preview& preview) {
          QCOMPARE(state(preview), QStringLiteral("Válaszd ki, melyik szó jelenti, hogy tele lett a tank!"));
          QCOMPARE(choicesOf(preview, "cmbTele"),
                   (QStringList{"„csurig” (1 sor)", "„félig” (1 sor)", "(üres) (1 sor)"}));
          choose(preview, "cmbKodolas", 1);
          QCOMPARE(choicesOf(preview, "cmbTele"),
                   (QStringList{"„csurig” (1 sor)", "„fĂ©lig” (1 sor)", "(üres) (1 sor)"}));
          choose(preview, "cmbKodolas", 0);
          choose(preview, "cmbTele", 0);
          QCOMPARE(rowsOf(preview)->index(1, 4).data().toString(), QStringLiteral("X"));
          QCOMPARE(rowsOf(preview)->index(2, 4).data().toString(), QString());
          takeOver(preview);
        }));
    QCOMPARE(csv.stored().at(0).Teletank, core::kFlagSet);
    QCOMPARE(csv.stored().at(1).Teletank, std::int16_t{0});
  }

  void theColumnsAreShownWholeWithTheirFirstValuesCutWhereTheyAreLong() {
    Import csv;
    const std::string log =
        "Dátum;Km óra;Liter;Ft;Megjegyzés, amely nem kell\n"
        "2012.01.05.;1000;40;24000;\n2012.01.19.;1500;41;24600; \n2012.01.29.;2000;41;24600;egy\n"
        "2012.02.05.;2500;40;24000;pontosan 24 betűs szöveg\n"
        "2012.02.19.;3000;40;24000;ez már huszonöt betűs lesz\n2012.02.29.;3500;40;24000;négy\n";
    csv.read(log, [](Preview& preview) {
      auto* columns = test::part<QScrollArea>(preview, "oszlopok");
      QCOMPARE(columns->height(), columns->sizeHint().height());
      QStringList shown;
      for (const char* name : {"lbOszlop_4", "lbErtek_4_0", "lbErtek_4_1", "lbErtek_4_2"})
        shown << label(preview, name) << test::part<QLabel>(preview, name)->toolTip();
      QCOMPARE(shown, (QStringList{"Megjegyzés, amely nem k…", "Megjegyzés, amely nem kell", "egy", "",
                                   "pontosan 24 betűs szöveg", "", "ez már huszonöt betűs l…",
                                   "ez már huszonöt betűs lesz"}));
      for (const char* name : {"cmbOszlop_0", "cmbOszlop_1", "lbOszlop_0", "lbErtek_0_0", "lbErtek_0_2"}) {
        const auto* part = test::part<QWidget>(preview, name);
        QCOMPARE(part->visibleRegion().boundingRect(), part->rect());
        if (part->inherits("QComboBox")) QCOMPARE(part->width(), part->sizeHint().width());
        if (!part->inherits("QComboBox")) QCOMPARE(part->height(), part->sizeHint().height());
      }
      QVERIFY(test::part<QLabel>(preview, "lbOszlop_0")->font().bold());
      columns->setFixedWidth(columns->minimumSizeHint().width());
      QTRY_VERIFY(columns->horizontalScrollBar()->isVisible());
      QCOMPARE(columns->viewport()->height(), columns->widget()->sizeHint().height());
      preview.close();
    });
  }

  void theFirstWordForAFullTankIsShownAmongTheWords() {
    Import csv;
    const std::string heads = "Dátum;Km óra;Liter;Ft;Tele\n";
    csv.read(heads + "2012.01.05.;1000;40;24000;\n2012.01.19.;1500;41;24600;igen\n", [](Preview& preview) {
      QCOMPARE(choicesOf(preview, "cmbTele"), (QStringList{"(üres) (1 sor)", "„igen” (1 sor)"}));
      QCOMPARE(box(preview, "cmbTele")->currentIndex(), 1);
      preview.close();
    });
    csv.read(heads + "2012.01.05.;1000;40;24000;igen\n2012.01.19.;1500;41;24600;tele\n",
             [](Preview& preview) {
               QCOMPARE(box(preview, "cmbTele")->currentIndex(), 0);
               preview.close();
             });
  }

  void aCurrencyThatHasNoNameHereIsAnotherOneAndOneThatIsOpenIsNone() {
    Import csv;
    for (const auto& [head, shown] : {std::pair("Cost (SEK)", "más pénznem"), {"Cost", ""}}) {
      const std::string log = std::string("Date;Odometer (km);Litres;") + head + "\n2012-01-05;1000;40;60\n";
      csv.read(log, [shown = shown](Preview& preview) {
        QCOMPARE(box(preview, "cmbPenznem")->currentText(), QString::fromUtf8(shown));
        preview.close();
      });
    }
  }

  // Nothing is understood of this file; the person says what its columns are.
  void everyColumnHasItsMeaningOverIt() {
    Import csv;
    QVERIFY(csv.take(
        "A&B <b>%1;ennyit ment;ennyi kellett;ennyibe fájt\nalma;1000;40;24000\n2012.01.05.;1500;41;24600\n",
        [](Preview& preview) {
          auto* first = box(preview, "cmbOszlop_0");
          QCOMPARE(first->accessibleName(), QStringLiteral("A(z) „A&B <b>%1” oszlop jelentése"));
          QCOMPARE(label(preview, "lbOszlop_0"), QStringLiteral("A&B <b>%1"));
          const auto* head = preview.findChild<QLabel*>("lbOszlop_0");
          QVERIFY(first->geometry().bottom() < head->y());
          QVERIFY(head->geometry().bottom() < preview.findChild<QLabel*>("lbErtek_0_0")->y());
          choose(preview, "cmbOszlop_0", static_cast<int>(exchange::Meaning::Day));
          choose(preview, "cmbOszlop_1", static_cast<int>(exchange::Meaning::Odometer));
          QCOMPARE(state(preview), QStringLiteral("Válaszd ki, melyik oszlop a tankolt mennyiség!"));
          choose(preview, "cmbOszlop_2", static_cast<int>(exchange::Meaning::Volume));
          choose(preview, "cmbOszlop_3", static_cast<int>(exchange::Meaning::NotNeeded));
          QVERIFY(row(rowsOf(preview), 1, 9).contains("nem érthető dátum: „alma”"));
          takeOver(preview);
        }));
    QCOMPARE(csv.stored().size(), 1U);
    QCOMPARE(csv.stored()[0].KmOra, 1500);
    QCOMPARE(csv.stored()[0].TankoltLiter.tenThousandths, 410'000);
  }

  // The drop-down over the column that is asked about has the keyboard, and what is missing is in the colour
  // of what is overdue until it is there.
  void aColumnThatMaySayWhichFillsWereFullIsAskedFor() {
    Import csv;
    const std::string log =
        "Dátum;Km óra;Liter;Ft;Pukk\n2012.01.05.;1000;40;24000;i\n2012.01.19.;1500;41;24600;n\n";
    QVERIFY(csv.take(log, [](Preview& preview) {
      auto* state = test::part<QLabel>(preview, "lbState");
      QVERIFY(state->text().contains("„Pukk”"));
      QCOMPARE(state->palette().color(QPalette::WindowText), ui::overdueColour(state->palette()));
      auto* meaning = box(preview, "cmbOszlop_4");
      QCOMPARE(preview.focusWidget(), meaning);
      QCOMPARE(meaning->currentText(), QStringLiteral("nem értem"));
      meaning->setCurrentIndex(static_cast<int>(exchange::Meaning::Full));
      QCOMPARE(state->text(), QStringLiteral("Kijelölve: 2 bejegyzés"));
      QCOMPARE(state->palette().color(QPalette::WindowText), preview.palette().color(QPalette::WindowText));
      takeOver(preview);
    }));
    QCOMPARE(csv.stored()[1].Teletank, 0);
  }

  void encodingAndSeparatorCanBeChanged() {
    Import csv;
    csv.read("Dátum;Km óra;Liter;Ft\n2012.01.05.;1000;40,5;24300\n", [](Preview& preview) {
      QCOMPARE(box(preview, "cmbKodolas")->currentText(), QStringLiteral("UTF-8"));
      QCOMPARE(box(preview, "cmbKodolas")->count(), 9);
      QCOMPARE(box(preview, "cmbElvalaszto")->currentText(), QStringLiteral("pontosvessző"));
      choose(preview, "cmbKodolas", 1);
      QCOMPARE(label(preview, "lbOszlop_0"), QStringLiteral("DĂˇtum"));
      choose(preview, "cmbKodolas", 0);
      choose(preview, "cmbElvalaszto", 1);
      QVERIFY(!button(preview)->isEnabled());
      choose(preview, "cmbElvalaszto", 0);
      QVERIFY(button(preview)->isEnabled());
      preview.reject();
    });
  }
};

TARVIK_SCREEN_TEST(ImportQuestionsTest)
#include "import_questions_test.moc"
