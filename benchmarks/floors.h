#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvik::bench {

// What the machine asks for at the least, written by hand on the system's own calls: nothing is checked
// beyond success, nothing is kept safe beyond what the promise needs. A call that fails ends the program.

/// A logbook entry with its fields side by side, texts as they lie in the file.
struct BareEntry {
  std::int32_t kmOra;
  double datum;
  std::int16_t teletank;
  std::int64_t tankoltLiter;
  std::int32_t tankoltKtg;
  std::int32_t alkatreszKtg;
  std::int64_t ftPerLiter;
  std::int16_t olajcsere;
  std::int16_t szurocsere;
  std::int16_t gyertyacsere;
  char alkatresz[50];
  std::int32_t megjKtg;
  char megjegyzes[50];
  std::int64_t fogyasztas;
};

inline constexpr std::size_t kBareEntryBytes = 156;

/// A file's bytes in one read.
struct BareFile {
  explicit BareFile(const std::string& path);
  ~BareFile();
  BareFile(const BareFile&) = delete;
  BareFile& operator=(const BareFile&) = delete;

  std::byte* bytes;
  std::size_t size;
};

/// Copies the fields of an entry out of the file's bytes.
BareEntry decodedBarely(const std::byte* bytes);

/// Reads a file whole and decodes each entry once.
void readBarely(const std::string& path);

/// Appends a record: open, write, sync, close.
void appendBarely(const std::string& path, const std::vector<std::byte>& record);

/// Replaces a file by a copy of itself: read, write to a temporary file, sync, rename, sync the folder.
void replaceBarely(const std::string& folder, const std::string& name);

/// Waits until everything that was written is on the disk, so that the next sync has its own data alone.
void settle();

}  // namespace tarvik::bench
