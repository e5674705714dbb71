#include "core/field_number.h"

#include "core/number_text.h"

namespace tarvik::core {
std::int32_t fieldWhole32(const Ratio& value, const char* field) {
  return inField(field, [&] { return toWhole32(value); });
}

std::int32_t plainWhole32(std::string_view text, const char* field) {
  return fieldWhole32(plainNumber(text), field);
}

std::int32_t requiredWhole32(std::string_view text, const char* field) {
  return fieldWhole32(requiredNumber(text, field), field);
}

Amount requiredAmount(std::string_view text, const char* field) {
  return inField(field, [&] { return toAmount(requiredNumber(text, field)); });
}

}  // namespace tarvik::core
