#include "maps/MapHeaders.h"

#include "rom/Address.h"
#include "rom/RomFile.h"

namespace kartova {

std::int64_t PrimaryHeaderBuffer::SecondaryHeaderFileOffset() const {
  return SecondaryHeaderOffset(bytes[0], bytes[4], bytes[3]);
}

std::int64_t SecondaryHeaderBuffer::BlockDataFileOffset() const {
  return BankHiLoToOffset(bytes[3], bytes[5], bytes[4]);
}

void ReadPrimaryHeader(RomFile& rom, std::int64_t offset, PrimaryHeaderBuffer& header) {
  rom.Seek(offset);
  rom.ReadBytes(header.bytes.data(), header.bytes.size());
}

void ReadSecondaryHeader(RomFile& rom, const PrimaryHeaderBuffer& primary, SecondaryHeaderBuffer& header) {
  rom.Seek(primary.SecondaryHeaderFileOffset());
  rom.ReadBytes(header.bytes.data(), header.bytes.size());
}

}  // namespace kartova
