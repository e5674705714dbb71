#include "tests/support/temporary_folder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace tarvik::test {

namespace fs = std::filesystem;

namespace {

// Texts are UTF-8, whatever the machine's own encoding of names is.
fs::path pathOf(const std::string& text) {
  return std::u8string(text.begin(), text.end());
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = (fs::temp_directory_path() / ("tarvik-test-" + std::to_string(random()))).string();
  } while (!fs::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void TemporaryFolder::makeFolder(std::string_view name) const {
  fs::create_directories(pathOf(*this / name));
}

void TemporaryFolder::write(std::string_view name, std::string_view contents) const {
  std::ofstream out(pathOf(*this / name), std::ios::binary | std::ios::trunc);
  out.write(contents.data(), static_cast<std::streamsize>(contents.size()));
  if (!out.flush()) throw std::runtime_error("cannot write " + (*this / name));
}

std::string TemporaryFolder::read(std::string_view name) const {
  std::ifstream in(pathOf(*this / name), std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + (*this / name));
  return {std::istreambuf_iterator<char>(in), {}};
}

bool TemporaryFolder::has(std::string_view name) const {
  return fs::exists(pathOf(*this / name));
}

std::vector<std::string> TemporaryFolder::names() const {
  std::vector<std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(path_)) {
    const std::u8string name = entry.path().lexically_relative(path_).generic_u8string();
    found.emplace_back(name.begin(), name.end());
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::string padded(std::string_view text, std::size_t width) {
  std::string result(text.substr(0, width));
  result.resize(width, ' ');
  return result;
}

}  // namespace tarvik::test
