#include "benchmarks/floors.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tarvik::bench {
namespace {

template <typename Result>
Result checked(Result result, const char* what) {
  if (result >= 0) return result;
  std::perror(what);
  std::exit(1);
}

void closeSynced(int file) {
  checked(fsync(file), "fsync");
  checked(close(file), "close");
}

void writeSynced(int file, const std::byte* bytes, std::size_t size) {
  if (checked(write(file, bytes, size), "write") != static_cast<ssize_t>(size)) std::exit(1);
  closeSynced(file);
}

}  // namespace

BareFile::BareFile(const std::string& path) {
  const int file = checked(open(path.c_str(), O_RDONLY), "open");
  struct stat status {};
  checked(fstat(file, &status), "fstat");
  size = static_cast<std::size_t>(status.st_size);
  bytes = static_cast<std::byte*>(std::malloc(size));
  checked(read(file, bytes, size), "read");
  checked(close(file), "close");
}

BareFile::~BareFile() {
  std::free(bytes);
}

BareEntry decodedBarely(const std::byte* bytes) {
  BareEntry entry;
  const auto take = [&bytes](auto& field) {
    std::memcpy(&field, bytes, sizeof field);
    bytes += sizeof field;
  };
  take(entry.kmOra);
  take(entry.datum);
  take(entry.teletank);
  take(entry.tankoltLiter);
  take(entry.tankoltKtg);
  take(entry.alkatreszKtg);
  take(entry.ftPerLiter);
  take(entry.olajcsere);
  take(entry.szurocsere);
  take(entry.gyertyacsere);
  take(entry.alkatresz);
  take(entry.megjKtg);
  take(entry.megjegyzes);
  take(entry.fogyasztas);
  return entry;
}

void readBarely(const std::string& path) {
  const BareFile file(path);
  for (std::size_t offset = 0; offset + kBareEntryBytes <= file.size; offset += kBareEntryBytes) {
    BareEntry entry = decodedBarely(file.bytes + offset);
    benchmark::DoNotOptimize(entry);
  }
}

void appendBarely(const std::string& path, const std::vector<std::byte>& record) {
  writeSynced(checked(open(path.c_str(), O_WRONLY | O_APPEND), "open"), record.data(), record.size());
}

void replaceBarely(const std::string& folder, const std::string& name) {
  const std::string path = folder + "/" + name;
  const std::string temporary = path + ".floor";
  const BareFile old(path);
  writeSynced(checked(open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666), "open"), old.bytes,
              old.size);
  checked(rename(temporary.c_str(), path.c_str()), "rename");
  closeSynced(checked(open(folder.c_str(), O_RDONLY | O_DIRECTORY), "open"));
}

void settle() {
  sync();
}

}  // namespace tarvik::bench
