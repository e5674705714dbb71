#include "ui/output_file.h"

#include <QTest>

#include "core/machine_file_system.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::ui {

class OutputFileTest : public QObject {
  Q_OBJECT

 private slots:
  void aCompleteFileTakesItsPlace() {
    test::TemporaryFolder folder;
    folder.write("list.pdf", "old");
    {
      OutputFile file(files_, folder / "list.pdf");
      file.write("new");
      file.commit();
    }
    QCOMPARE(folder.read("list.pdf"), std::string("new"));
    QCOMPARE(folder.names(), std::vector<std::string>{"list.pdf"});
  }

  void whatAnotherProgramHasUnderTheUnfinishedNameStays_data() {
    QTest::addColumn<bool>("completes");
    QTest::newRow("complete") << true;
    QTest::newRow("given up") << false;
  }
  void whatAnotherProgramHasUnderTheUnfinishedNameStays() {
    QFETCH(bool, completes);
    test::TemporaryFolder folder;
    folder.write("list.pdf.part", "a download");
    folder.write("list.pdf.part2", "another");
    {
      OutputFile file(files_, folder / "list.pdf");
      file.write("new");
      if (completes) file.commit();
    }
    QCOMPARE(folder.read("list.pdf.part"), std::string("a download"));
    QCOMPARE(folder.read("list.pdf.part2"), std::string("another"));
    QCOMPARE(folder.names().size(), completes ? std::size_t{3} : std::size_t{2});
  }

 private:
  core::MachineFileSystem files_;
};

}  // namespace tarvik::ui

QTEST_MAIN(tarvik::ui::OutputFileTest)
#include "output_file_test.moc"
