#include <cstdio>
#include <cstring>

// A buffer on the stack and a copy into it, so that the compiler has something to protect.

namespace {

[[gnu::noinline]] void copyInto(char* buffer, std::size_t size, const char* text) {
  std::strncpy(buffer, text, size - 1);
  buffer[size - 1] = '\0';
}

[[gnu::noinline]] std::size_t lengthOf(const char* text, std::size_t size) {
  char buffer[64];
  std::memcpy(buffer, text, size);
  copyInto(buffer + size, sizeof buffer - size, text);
  return std::strlen(buffer);
}

}  // namespace

int main(int count, char** arguments) {
  return std::printf("%zu\n", lengthOf(arguments[0], static_cast<std::size_t>(count))) > 0 ? 0 : 1;
}
