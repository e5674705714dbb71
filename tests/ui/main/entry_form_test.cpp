#include "ui/main/entry_form.h"

#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"

namespace tarvik::ui {
namespace {

struct Form : test::Desk {
  Form() { part.show(); }
  QLineEdit& edit(const char* name) { return *test::part<QLineEdit>(part, name); }

  EntryForm part{context, nullptr};
};

core::EntryInput anInput() {
  return {.kmOra = "10500",
          .tankoltLiter = "35,25",
          .tankoltKtg = "14100",
          .ftPerLiter = "399,99",
          .alkatresz = "Olajszűrő",
          .alkatreszKtg = "2500",
          .megjegyzes = "Tankolás + mosás",
          .megjKtg = "800",
          .datum = core::dayOf({2013, 7, 5}),
          .teletank = false,
          .olajcsere = true,
          .szurocsere = true,
          .gyertyacsere = true};
}

// All fields of an input in one line.
QString lineOf(const core::EntryInput& input) {
  QStringList texts;
  for (const std::string& text :
       {input.kmOra, input.tankoltLiter, input.tankoltKtg, input.ftPerLiter, input.alkatresz,
        input.alkatreszKtg, input.megjegyzes, input.megjKtg, core::shortDate(input.datum)})
    texts << QString::fromStdString(text);
  for (const bool flag : {input.teletank, input.olajcsere, input.szurocsere, input.gyertyacsere})
    texts << (flag ? "x" : "-");
  return texts.join('|');
}

}  // namespace

class EntryFormTest : public QObject {
  Q_OBJECT

 private slots:
  void whatIsShownIsWhatIsInTheFieldsThePriceToo() {
    Form form;
    form.part.load();
    form.part.showInput(anInput());
    QCOMPARE(lineOf(form.part.input()), QString("10500|35,25|14100|399,99|Olajszűrő|2500|Tankolás + "
                                                "mosás|800|2013.07.05.|-|x|x|x"));
  }

  void eachMarkIsShownInItsOwnBox() {
    Form form;
    form.part.load();
    core::EntryInput input = anInput();
    for (bool core::EntryInput::*mark : {&core::EntryInput::teletank, &core::EntryInput::olajcsere,
                                         &core::EntryInput::szurocsere, &core::EntryInput::gyertyacsere}) {
      input.*mark = !(input.*mark);
      form.part.showInput(input);
      QCOMPARE(lineOf(form.part.input()), lineOf(input));
    }
  }

  void onALowDisplayTheFullTankTheCueOfTheDayAndTheWayBackShareALine() {
    Form form;
    form.part.load();
    core::EntryInput input = anInput();
    input.datum = core::dayOf({2013, 7, 4});
    form.part.showInput(input);
    form.part.setNarrowTank(true);
    QCoreApplication::processEvents();
    const QRect full = test::part<QCheckBox>(form.part, "ChkTeletank")->geometry();
    const QRect cue = test::part<QLabel>(form.part, "lbNemMai")->geometry();
    const QRect back = test::part<QPushButton>(form.part, "cmdMa")->geometry();
    QVERIFY(full.right() < cue.left() && cue.right() < back.left());
    QVERIFY(cue.height() >= form.part.fontMetrics().height());
    for (const QRect& beside : {cue, back}) QVERIFY(std::abs(beside.center().y() - full.center().y()) <= 1);
    QVERIFY(full.top() > form.edit("txTankoltLiter").geometry().bottom());
  }

  void theTabKeyGoesByTheLinesOfTheTankNarrowOrWide() {
    Form form;
    form.part.load();
    core::EntryInput input = anInput();
    form.part.showEntry({input, input.datum});
    const auto places = [&form] {
      QCoreApplication::processEvents();
      QList<QRect> found;
      for (const char* name : {"lbNemMai", "cmdMa", "ChkTeletank"})
        found << test::part<QWidget>(form.part, name)->geometry();
      return found;
    };
    const auto order = [&form] {
      QStringList names;
      for (QWidget* part = test::part<QWidget>(form.part, "DTPicker1"); names.size() < 3;
           part = part->nextInFocusChain())
        if (QStringList{"DTPicker1", "cmdMa", "ChkTeletank"}.contains(part->objectName()))
          names << part->objectName();
      return names;
    };
    const QList<QRect> wide = places();
    form.part.setNarrowTank(true);
    QVERIFY(places() != wide);
    QCOMPARE(order(), QStringList({"DTPicker1", "ChkTeletank", "cmdMa"}));
    form.part.setNarrowTank(false);
    QCOMPARE(places(), wide);
    QCOMPARE(order(), QStringList({"DTPicker1", "cmdMa", "ChkTeletank"}));
  }

  void thePriceOfAnEntryStaysUntilItsCostIsLeft() {
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form.part));
    form.part.showInput(anInput());
    form.edit("txTankoltKtg").setFocus();
    QCOMPARE(test::part<QLabel>(form.part, "lbFtperLiter")->text(), QString("399,99"));
    form.edit("txKmOra").setFocus();
    QCOMPARE(test::part<QLabel>(form.part, "lbFtperLiter")->text(), QString("400,00"));
  }

  void aFieldWhoseStrayLetterGoesGetsTheKeyboard() {
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form.part));
    form.edit("txKmOra").setFocus();
    form.edit("txTankoltLiter").setText("3x");
    QCOMPARE(form.edit("txTankoltLiter").text(), QString("3"));
    QVERIFY(form.edit("txTankoltLiter").hasFocus());
  }

  void anEntryBringsItsDayAndOneWithADamagedDayLeavesIt() {
    Form form;
    form.part.showEntry({anInput(), core::dayOf({1999, 12, 31})});
    QCOMPARE(form.part.input().datum, core::dayOf({1999, 12, 31}));
    form.part.showEntry({anInput(), {}});
    QCOMPARE(form.part.input().datum, core::dayOf({1999, 12, 31}));
  }

  void theNextEntryBeginsWithTheNotesCostAndTheDayAndAFullTank() {
    Form form;
    form.part.showEntry({anInput(), core::dayOf({1999, 12, 31})});
    form.part.beginNext();
    QCOMPARE(lineOf(form.part.input()), QString("|||||||800|1999.12.31.|x|-|-|-"));
    form.edit("txMegjKtg").clear();
    form.part.beginNext();
    QCOMPARE(form.edit("txMegjKtg").text(), QString("0"));
  }

  void aNoteOfSpacesIsNoNoteWhenItsFieldGetsTheKeyboard() {
    Form form;
    QVERIFY(QTest::qWaitForWindowActive(&form.part));
    auto* const note = test::part<QComboBox>(form.part, "txMegjegyzes");
    test::typeInto(*note, "   ");
    form.edit("txMegjKtg").setFocus();
    QCOMPARE(note->currentText(), QString("   "));
    note->setFocus();
    QCOMPARE(note->currentText(), QString("Tankolás"));
    QCOMPARE(note->lineEdit()->selectedText(), QString("Tankolás"));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::EntryFormTest)
#include "entry_form_test.moc"
