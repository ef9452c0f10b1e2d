#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "maps/Edit.h"

namespace kartova {

// The document's undo and redo stack. Steps are pushed already applied. A step pushed with a
// merge key joins the step before it when that one has the same key and the gesture is still
// open (several characters typed into one box are one step); CloseGesture ends that.
class EditHistory {
 public:
  void Push(std::unique_ptr<Edit> edit, std::string merge_key = {});
  // Ends the open gesture: the next step stands on its own.
  void CloseGesture() { open_key_.clear(); }

  bool CanUndo() const { return index_ > 0; }
  bool CanRedo() const { return index_ < steps_.size(); }
  // Names of the step an undo or redo would take, empty when there is none.
  std::string UndoText() const;
  std::string RedoText() const;
  DocumentChange Undo(EditTarget& target);
  DocumentChange Redo(EditTarget& target);

  // Forgets every step (another map was loaded).
  void Clear();
  std::size_t Count() const { return steps_.size(); }
  std::size_t Index() const { return index_; }

 private:
  std::vector<std::unique_ptr<Edit>> steps_;
  std::size_t index_ = 0;  // steps_[0..index_) are applied
  std::string open_key_;
};

}  // namespace kartova
