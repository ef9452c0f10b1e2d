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

namespace {
DocumentChange Put(EditTarget& target, const PrimaryHeaderBuffer& primary, const SecondaryHeaderBuffer& secondary) {
  target.primary = primary;
  target.secondary = secondary;
  DocumentChange change;
  change.headers = true;
  return change;
}
}  // namespace

DocumentChange HeaderBytesEdit::Undo(EditTarget& target) const {
  return Put(target, primary_before_, secondary_before_);
}

DocumentChange HeaderBytesEdit::Redo(EditTarget& target) const {
  return Put(target, primary_after_, secondary_after_);
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
