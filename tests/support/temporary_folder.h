#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::test {

/// A new empty folder that goes with everything in it when the test ends.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  /// The full path of a name in the folder.
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  /// Makes a folder in it.
  void makeFolder(std::string_view name) const;
  /// Writes a file in it, replacing what is there.
  void write(std::string_view name, std::string_view contents) const;
  /// A file's bytes; the test fails when it is missing.
  std::string read(std::string_view name) const;
  bool has(std::string_view name) const;
  /// The names of everything in it, sorted; files in sub-folders with their relative path.
  std::vector<std::string> names() const;

 private:
  std::string path_;
};

/// A text padded with spaces to a width, as fixed texts are stored (ASCII).
std::string padded(std::string_view text, std::size_t width);

}  // namespace tarvik::test
