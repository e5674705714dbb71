#include "tests/ui/screen_test.h"

#include <QApplication>
#include <QFileInfo>
#include <QTest>
#include <cstdio>
#include <map>

namespace tarvik::test {
namespace {

std::map<QString, ScreenTest::Make>& knownTests() {
  static std::map<QString, ScreenTest::Make> tests;
  return tests;
}

}  // namespace

ScreenTest::ScreenTest(const char* file, Make make) {
  knownTests().emplace(QFileInfo(QString::fromUtf8(file)).completeBaseName(), make);
}

}  // namespace tarvik::test

// PROGRAM NAME [ARGUMENTS...] runs the tests of NAME.cpp with the arguments of Qt Test.
int main(int argc, char** argv) {
  const auto& tests = tarvik::test::knownTests();
  const auto found = argc > 1 ? tests.find(QString::fromLocal8Bit(argv[1])) : tests.end();
  if (found == tests.end()) {
    std::fputs("usage: PROGRAM NAME [ARGUMENTS...]; names:\n", stderr);
    for (const auto& [name, make] : tests) std::fprintf(stderr, "  %s\n", qPrintable(name));
    return 2;
  }
  QApplication app(argc, argv);
  QApplication::setAttribute(Qt::AA_Use96Dpi, true);
  QStringList arguments = QApplication::arguments();
  arguments.removeAt(1);
  return QTest::qExec(found->second().get(), arguments);
}
