#pragma once

#include <QObject>
#include <memory>

namespace tarvik::test {

/// A class of Qt tests that its program can run by the name of its file.
class ScreenTest {
 public:
  using Make = std::unique_ptr<QObject> (*)();

  /// Makes the class known to the program's main.
  ScreenTest(const char* file, Make make);
};

}  // namespace tarvik::test

/// Makes a class of Qt tests known to the program that it is linked into; one a file, at its end.
#define TARVIK_SCREEN_TEST(Class)                  \
  static const tarvik::test::ScreenTest knownTest( \
      __FILE__, [] { return std::unique_ptr<QObject>(std::make_unique<Class>()); });
