#pragma once

#include "maps/Edit.h"
#include "maps/MapHeaders.h"

namespace kartova {

// A change of the header buffers: a byte typed into the header page, a connection field, or the
// headers read again from the ROM when their edits are discarded. Both buffers are kept whole
// before and after; at 90 bytes each that is simpler than tracking single bytes.
class HeaderBytesEdit : public Edit {
 public:
  HeaderBytesEdit(std::string text, const PrimaryHeaderBuffer& primary_before,
                  const SecondaryHeaderBuffer& secondary_before, const PrimaryHeaderBuffer& primary_after,
                  const SecondaryHeaderBuffer& secondary_after);

  DocumentChange Undo(EditTarget& target) const override;
  DocumentChange Redo(EditTarget& target) const override;
  // The next keys typed into the same box: this step now ends where that one ends.
  bool MergeWith(const Edit& next) override;
  bool ChangesAnything() const override;

 private:
  PrimaryHeaderBuffer primary_before_;
  SecondaryHeaderBuffer secondary_before_;
  PrimaryHeaderBuffer primary_after_;
  SecondaryHeaderBuffer secondary_after_;
};

}  // namespace kartova
