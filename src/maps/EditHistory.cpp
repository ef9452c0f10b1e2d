#include "maps/EditHistory.h"

namespace kartova {

void EditHistory::Push(std::unique_ptr<Edit> edit, std::string merge_key) {
  if (!edit) return;
  // A gesture is open only right after a push, so the step it joins is the one on top.
  const bool joins =
      !merge_key.empty() && merge_key == open_key_ && !steps_.empty() && index_ == steps_.size();
  if (joins && steps_.back()->MergeWith(*edit)) {
    // Typing a box back to what it held leaves a step that changes nothing.
    if (!steps_.back()->ChangesAnything()) {
      steps_.pop_back();
      open_key_.clear();
    }
    index_ = steps_.size();
    return;
  }
  // The open gesture belongs to the step on top. A step that changes nothing is not kept, and
  // costs none of the steps that could be redone (a click with the block a cell already has).
  open_key_.clear();
  if (!edit->ChangesAnything()) return;
  steps_.resize(index_);  // whatever was undone cannot be redone after a new step
  open_key_ = std::move(merge_key);
  steps_.push_back(std::move(edit));
  index_ = steps_.size();
}

std::string EditHistory::UndoText() const { return CanUndo() ? steps_[index_ - 1]->Text() : std::string(); }

std::string EditHistory::RedoText() const { return CanRedo() ? steps_[index_]->Text() : std::string(); }

DocumentChange EditHistory::Undo(EditTarget& target) {
  CloseGesture();
  if (!CanUndo()) return {};
  --index_;
  return steps_[index_]->Undo(target);
}

DocumentChange EditHistory::Redo(EditTarget& target) {
  CloseGesture();
  if (!CanRedo()) return {};
  return steps_[index_++]->Redo(target);
}

void EditHistory::Clear() {
  steps_.clear();
  index_ = 0;
  open_key_.clear();
}

}  // namespace kartova
