#include "rom/RuntimeError.h"

#include <cstdint>

namespace kartova {

namespace {
std::string Description(int number) {
  switch (number) {
    case RuntimeError::kOverflow:
      return "Überlauf";
    case RuntimeError::kSubscriptOutOfRange:
      return "Index außerhalb des gültigen Bereichs";
    default:
      return "Anwendungs- oder objektdefinierter Fehler";
  }
}
}  // namespace

RuntimeError::RuntimeError(int number)
    : std::runtime_error("Laufzeitfehler '" + std::to_string(number) + "': " + Description(number)),
      number_(number) {}

std::string RuntimeError::GermanMessage() const { return what(); }

long long CheckedInt32(long long v) {
  if (v < INT32_MIN || v > INT32_MAX) throw RuntimeError::Overflow();
  return v;
}

void CheckIndex(long long index, long long size) {
  if (index < 0 || index >= size) throw RuntimeError::SubscriptOutOfRange();
}

}  // namespace kartova
