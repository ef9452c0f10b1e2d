#pragma once

#include <stdexcept>
#include <string>

namespace kartova {

// The editor's runtime errors: an index out of range or an arithmetic overflow ends the
// operation that raised it. The ui catches it at the handler boundary, shows GermanMessage()
// and keeps running.
class RuntimeError : public std::runtime_error {
 public:
  static constexpr int kOverflow = 6;
  static constexpr int kSubscriptOutOfRange = 9;

  explicit RuntimeError(int number);

  static RuntimeError Overflow() { return RuntimeError(kOverflow); }
  static RuntimeError SubscriptOutOfRange() { return RuntimeError(kSubscriptOutOfRange); }

  int number() const { return number_; }
  // "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"
  std::string GermanMessage() const;

 private:
  int number_;
};

// Throws the overflow error when v does not fit a signed 32-bit integer.
long long CheckedInt32(long long v);
// Throws the subscript error when index is outside 0..size-1.
void CheckIndex(long long index, long long size);

}  // namespace kartova
