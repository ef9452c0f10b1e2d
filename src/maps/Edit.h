#pragma once

#include <string>

#include "maps/DocumentChange.h"

namespace kartova {

// One step of the edit history. An edit is pushed after it has been applied; Undo puts back
// what was there before and Redo applies it again, both through the target, and each says
// what it changed.
class Edit {
 public:
  explicit Edit(std::string text) : text_(std::move(text)) {}
  virtual ~Edit() = default;
  Edit(const Edit&) = delete;
  Edit& operator=(const Edit&) = delete;

  virtual DocumentChange Undo(EditTarget& target) const = 0;
  virtual DocumentChange Redo(EditTarget& target) const = 0;
  // Takes the following edit into this one when both belong to one gesture (the keys typed
  // into one box): true when `next` was absorbed and need not be kept.
  virtual bool MergeWith(const Edit& /*next*/) { return false; }
  // False when the edit changes nothing at all and is not worth a step.
  virtual bool ChangesAnything() const { return true; }

  // The step's name for the Edit menu ("Malen", "Header ändern", ...).
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace kartova
