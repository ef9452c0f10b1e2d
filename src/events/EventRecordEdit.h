#pragma once

#include <cstdint>
#include <vector>

#include "maps/Edit.h"

namespace kartova {

// New bytes for one event record: a field typed into, or an event dragged to another place.
// Edits of one gesture (the keys typed into one field, one drag from press to release) join.
class EventRecordEdit : public Edit {
 public:
  EventRecordEdit(std::string text, int kind, int index, std::vector<std::uint8_t> before,
                  std::vector<std::uint8_t> after);

  DocumentChange Undo(EditTarget& target) const override;
  DocumentChange Redo(EditTarget& target) const override;
  bool MergeWith(const Edit& next) override;
  bool ChangesAnything() const override { return before_ != after_; }

 private:
  DocumentChange Put(EditTarget& target, const std::vector<std::uint8_t>& bytes) const;

  int kind_;
  int index_;
  std::vector<std::uint8_t> before_;
  std::vector<std::uint8_t> after_;
};

}  // namespace kartova
