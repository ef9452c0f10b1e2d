#pragma once

#include <array>
#include <cstdint>

namespace kartova {

class RomFile;

// The primary map header as the editor holds it: the record of HeaderLength bytes and whatever
// follows it in the ROM, 30 bytes in all. Saving writes all 30 back, so the bytes behind the
// record return to the file exactly as they were read.
struct PrimaryHeaderBuffer {
  static constexpr int kSize = 30;
  static constexpr int kFirstExtraByte = 9;  // bytes 9..29 exist when HeaderLength is above 9
  std::array<std::uint8_t, kSize> bytes{};

  std::uint8_t SecondaryBank() const { return bytes[0]; }
  std::uint8_t Tileset() const { return bytes[1]; }
  // The byte whose names come from the "AbilityNames" list; it also picks the palette table.
  std::uint8_t AbilityByte() const { return bytes[2]; }
  // Little-endian in bytes 3-4; bit 14 is dropped on the way to the file offset.
  std::uint16_t SecondaryPointer() const { return static_cast<std::uint16_t>(bytes[3] | bytes[4] << 8); }
  std::uint8_t Location() const { return bytes[5]; }
  std::uint8_t Music() const { return bytes[6]; }
  std::uint8_t Lighting() const { return bytes[7]; }
  std::uint8_t FishingGroup() const { return bytes[8]; }
  // File offset of the secondary header this record points to.
  std::int64_t SecondaryHeaderFileOffset() const;
};

// The secondary map header: 12 bytes of fixed fields and four 12-byte connection slots, which
// hold the records of the directions whose flag is set, packed in the order north, south,
// west, east.
struct SecondaryHeaderBuffer {
  static constexpr int kSize = 60;
  static constexpr int kConnectionSlotsOffset = 12;
  static constexpr int kConnectionRecordSize = 12;
  // Bits of the connection flag byte.
  static constexpr std::uint8_t kNorth = 0x08, kSouth = 0x04, kWest = 0x02, kEast = 0x01;
  std::array<std::uint8_t, kSize> bytes{};

  std::uint8_t BorderBlock() const { return bytes[0]; }
  std::uint8_t Height() const { return bytes[1]; }
  std::uint8_t Width() const { return bytes[2]; }
  std::uint8_t BlockDataBank() const { return bytes[3]; }
  std::uint16_t BlockDataPointer() const { return static_cast<std::uint16_t>(bytes[4] | bytes[5] << 8); }
  std::uint8_t ScriptBank() const { return bytes[6]; }
  std::uint16_t ScriptHeaderPointer() const { return static_cast<std::uint16_t>(bytes[7] | bytes[8] << 8); }
  std::uint16_t EventHeaderPointer() const { return static_cast<std::uint16_t>(bytes[9] | bytes[10] << 8); }
  std::uint8_t ConnectionFlags() const { return bytes[11]; }
  // File offset of the block rows (bank byte, then the pointer's high and low byte).
  std::int64_t BlockDataFileOffset() const;
};

// Reads the 30 primary bytes at offset. Bytes past the end of the file keep what the buffer
// held before, as a short read of the editor leaves its buffer.
void ReadPrimaryHeader(RomFile& rom, std::int64_t offset, PrimaryHeaderBuffer& header);
// Reads the 60 secondary bytes at the offset the primary header points to; short reads as above.
void ReadSecondaryHeader(RomFile& rom, const PrimaryHeaderBuffer& primary, SecondaryHeaderBuffer& header);

}  // namespace kartova
