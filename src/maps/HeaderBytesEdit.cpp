#include "maps/HeaderBytesEdit.h"

namespace kartova {

HeaderBytesEdit::HeaderBytesEdit(std::string text, const PrimaryHeaderBuffer& primary_before,
                                 const SecondaryHeaderBuffer& secondary_before,
                                 const PrimaryHeaderBuffer& primary_after,
                                 const SecondaryHeaderBuffer& secondary_after)
    : Edit(std::move(text)),
      primary_before_(primary_before),
      secondary_before_(secondary_before),
      primary_after_(primary_after),
      secondary_after_(secondary_after) {}

DocumentChange HeaderBytesEdit::Undo(EditTarget& target) const {
  target.primary = primary_before_;
  target.secondary = secondary_before_;
  DocumentChange change;
  change.headers = true;
  return change;
}

DocumentChange HeaderBytesEdit::Redo(EditTarget& target) const {
  target.primary = primary_after_;
  target.secondary = secondary_after_;
  DocumentChange change;
  change.headers = true;
  return change;
}

bool HeaderBytesEdit::MergeWith(const Edit& next) {
  const auto* same = dynamic_cast<const HeaderBytesEdit*>(&next);
  if (!same) return false;
  primary_after_ = same->primary_after_;
  secondary_after_ = same->secondary_after_;
  return true;
}

bool HeaderBytesEdit::ChangesAnything() const {
  return primary_before_.bytes != primary_after_.bytes || secondary_before_.bytes != secondary_after_.bytes;
}

}  // namespace kartova
