#pragma once

#include <QWidget>
#include <vector>

#include "core/machine_file_system.h"
#include "core/napi_adat.h"
#include "core/record_file.h"
#include "tests/support/bytes.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/box_script.h"
#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "ui/base/context.h"

namespace tarvik::test {

/// The screen's part of that name; null when it has none of that kind.
template <typename Widget>
Widget* part(const QWidget& screen, const char* name) {
  return screen.findChild<Widget*>(QString::fromUtf8(name));
}

/// The bytes of a file of those records.
template <core::Record R>
std::string bytesOf(const std::vector<R>& records) {
  std::string bytes;
  for (const R& record : records) bytes += textOf(core::encoded(record));
  return bytes;
}

/// What a screen needs around it: empty folders of its own, the real file system, a day that stands still.
struct Desk {
  Desk() { dressOnce(); }

  void writeLogbook(const std::string& plate, const std::vector<core::NapiAdat>& entries) const {
    program.makeFolder(plate);
    program.write(plate + "/napiadat.dat", bytesOf(entries));
  }

  TemporaryFolder program;
  TemporaryFolder current;
  core::MachineFileSystem files;
  FixedClock clock{{.year = 2013, .month = 7, .day = 5}};
  ui::Context context{files, {program.path(), current.path()}, clock, "1.0.0"};
};

}  // namespace tarvik::test
