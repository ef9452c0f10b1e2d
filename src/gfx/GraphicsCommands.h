#pragma once

#include <cstdint>

namespace kartova {

// Command kinds of the game's graphics compression, as they stand in bits 5-7 of a command
// byte; the low five bits hold the count less one. The long form moves the kind to bits 2-4
// and takes two more count bits from there plus a whole second byte.
inline constexpr int kLiteral = 0x00;
inline constexpr int kByteFill = 0x20;
inline constexpr int kAlternatingFill = 0x40;
inline constexpr int kZeroFill = 0x60;
inline constexpr int kCopy = 0x80;
inline constexpr int kBitReversedCopy = 0xA0;
inline constexpr int kBackwardCopy = 0xC0;
inline constexpr int kLongForm = 0xE0;
// Ends a stream where a command byte would stand.
inline constexpr std::uint8_t kEndMark = 0xFF;

}  // namespace kartova
