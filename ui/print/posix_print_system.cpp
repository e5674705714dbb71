#include <QFile>
#include <QLibrary>

#include "ui/print/print_system.h"

namespace tarvik::ui {
namespace {

// The printing system's client library, found at run time: a machine without printing runs the program
// all the same. Qt's own printer would send the document too, but it drops the answer.
class CupsLibrary {
 public:
  bool isUsable() const { return printFile_ && addOption_ && freeOptions_ && lastErrorString_; }
  QString errorString() const { return library_.errorString(); }

  QString print(const QByteArray& queue, const QByteArray& file, const QByteArray& title) const {
    void* options = nullptr;
    int count = addOption_("media", "A4", 0, &options);
    count = addOption_("print-scaling", "none", count, &options);
    const int job = printFile_(queue.constData(), file.constData(), title.constData(), count, options);
    const QString words = job == 0 ? QString::fromUtf8(lastErrorString_()) : QString();
    freeOptions_(count, options);
    return words;
  }

 private:
  template <typename Function>
  Function resolve(const char* name) {
    return reinterpret_cast<Function>(library_.resolve(name));
  }

  QLibrary library_{QStringLiteral("cups"), 2};
  int (*printFile_)(const char*, const char*, const char*, int,
                    void*) = resolve<decltype(printFile_)>("cupsPrintFile");
  int (*addOption_)(const char*, const char*, int, void**) = resolve<decltype(addOption_)>("cupsAddOption");
  void (*freeOptions_)(int, void*) = resolve<decltype(freeOptions_)>("cupsFreeOptions");
  const char* (*lastErrorString_)() = resolve<decltype(lastErrorString_)>("cupsLastErrorString");
};

class CupsPrintSystem final : public PdfPrintSystem {
 public:
  QString send(const QString& printer, const QString& file, const QString& title) override {
    const CupsLibrary cups;
    if (!cups.isUsable()) return cups.errorString();
    const QString queue = printer.section(QLatin1Char('/'), 0, 0);  // behind the slash: a set of options
    return cups.print(queue.toUtf8(), QFile::encodeName(file), title.toUtf8());
  }
};

}  // namespace

PrintSystem& machinePrinting() {
  static CupsPrintSystem system;
  return system;
}

}  // namespace tarvik::ui
