#include "events/EventRecordEdit.h"

#include <algorithm>

#include "events/MapEventSet.h"

namespace kartova {

EventRecordEdit::EventRecordEdit(std::string text, int kind, int index, std::vector<std::uint8_t> before,
                                 std::vector<std::uint8_t> after)
    : Edit(std::move(text)), kind_(kind), index_(index), before_(std::move(before)), after_(std::move(after)) {}

DocumentChange EventRecordEdit::Put(EditTarget& target, const std::vector<std::uint8_t>& bytes) const {
  DocumentChange change;
  // Another map may have been loaded since: a record that is not there is left alone.
  if (kind_ < 0 || kind_ >= kEventKindCount || index_ < 0 || index_ >= target.events.Count(kind_)) return change;
  const std::span<std::uint8_t> record = target.events.Record(kind_, index_);
  std::copy_n(bytes.begin(), std::min(bytes.size(), record.size()), record.begin());
  change.events = true;
  change.event_kind = kind_;
  change.event_index = index_;
  return change;
}

DocumentChange EventRecordEdit::Undo(EditTarget& target) const { return Put(target, before_); }

DocumentChange EventRecordEdit::Redo(EditTarget& target) const { return Put(target, after_); }

bool EventRecordEdit::MergeWith(const Edit& next) {
  const auto* same = dynamic_cast<const EventRecordEdit*>(&next);
  if (!same || same->kind_ != kind_ || same->index_ != index_) return false;
  after_ = same->after_;
  return true;
}

}  // namespace kartova
