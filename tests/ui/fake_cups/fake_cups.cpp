#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

// A printing system's client library that prints nothing: it notes what it is asked in the file that
// FAKE_CUPS_NOTES names, and takes a document when FAKE_CUPS_JOB names a job.

namespace {

int lastingOptions = 0;

void note(const std::string& line) {
  std::ofstream(std::getenv("FAKE_CUPS_NOTES"), std::ios::app) << line << '\n';
}

std::string bytesOf(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

extern "C" {

int cupsAddOption(const char* name, const char* value, int count, void** options) {
  note(std::string("option ") + std::to_string(count) + ": " + name + "=" + value);
  *options = &lastingOptions;
  return count + 1;
}

int cupsPrintFile(const char* queue, const char* file, const char* title, int count, void* options) {
  const bool hasOptions = options == &lastingOptions;
  const bool isPdf = bytesOf(file).starts_with("%PDF-");
  note(std::string("print on ") + queue + ": " + title + ", " + (isPdf ? "a PDF file" : "something else"));
  note("with " + std::to_string(hasOptions ? count : 0) + " options");
  return std::atoi(std::getenv("FAKE_CUPS_JOB"));
}

void cupsFreeOptions(int count, void* options) {
  note("freed " + std::to_string(options == &lastingOptions ? count : 0) + " options");
}

const char* cupsLastErrorString() {
  return "A sor nem fogad munkát.";
}
}
