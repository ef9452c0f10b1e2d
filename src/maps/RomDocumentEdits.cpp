// The document's edits: paint strokes, header changes, undo and redo, and whether the buffers
// still match the file.

#include <algorithm>

#include <utility>

#include "events/EventRecordEdit.h"
#include "maps/HeaderBytesEdit.h"
#include "maps/RomDocument.h"

namespace kartova {

void RomDocument::BeginStroke() {
  EndStroke();
  history_.CloseGesture();
  stroke_ = std::make_unique<PaintCellsEdit>("Malen", false);
}

bool RomDocument::PaintCell(int x, int y, std::uint8_t block) {
  if (!grid_.IsMapCell(x, y)) return false;
  std::uint8_t& cell = grid_.Row(y)[x];
  if (!stroke_) BeginStroke();
  const std::uint8_t before = cell;
  cell = block;
  stroke_->Record(x, y, before, block);
  return before != block;
}

void RomDocument::EndStroke() {
  if (stroke_) history_.Push(std::move(stroke_));
  stroke_.reset();
}

DocumentChange RomDocument::EditHeaders(const PrimaryHeaderBuffer& primary,
                                        const SecondaryHeaderBuffer& secondary, std::string text,
                                        std::string gesture_key) {
  DocumentChange change;
  if (primary.bytes == primary_.bytes && secondary.bytes == secondary_.bytes) return change;
  EndStroke();
  auto edit = std::make_unique<HeaderBytesEdit>(std::move(text), primary_, secondary_, primary, secondary);
  primary_ = primary;
  secondary_ = secondary;
  history_.Push(std::move(edit), std::move(gesture_key));
  change.headers = true;
  return change;
}

DocumentChange RomDocument::EditEventRecord(int kind, int index, std::vector<std::uint8_t> bytes,
                                            std::string text, std::string gesture_key) {
  const std::span<const std::uint8_t> record = std::as_const(events_).Record(kind, index);
  std::vector<std::uint8_t> before(record.begin(), record.end());
  bytes.resize(before.size(), 0);
  DocumentChange change;
  if (bytes == before) return change;
  EndStroke();
  std::copy(bytes.begin(), bytes.end(), events_.Record(kind, index).begin());
  history_.Push(std::make_unique<EventRecordEdit>(std::move(text), kind, index, std::move(before), bytes),
                std::move(gesture_key));
  change.events = true;
  change.event_kind = kind;
  change.event_index = index;
  return change;
}

DocumentChange RomDocument::Undo() {
  EndStroke();
  EditTarget target = Target();
  return history_.Undo(target);
}

DocumentChange RomDocument::Redo() {
  EndStroke();
  EditTarget target = Target();
  return history_.Redo(target);
}

// ---- What the file holds ------------------------------------------------------------------

void RomDocument::ResetSavedState() {
  saved_primary_ = primary_;
  saved_secondary_ = secondary_;
  saved_events_ = events_;
  RememberSavedBlocks();
}

void RomDocument::RememberSavedBlocks() {
  saved_width_ = grid_.MapWidth();
  saved_height_ = grid_.MapHeight();
  saved_blocks_.resize(static_cast<std::size_t>(saved_width_) * static_cast<std::size_t>(saved_height_));
  auto out = saved_blocks_.begin();
  for (int r = 0; r < saved_height_; ++r) {
    const std::uint8_t* row = grid_.Row(ExtendedMap::kMargin + r) + ExtendedMap::kMargin;
    out = std::copy(row, row + saved_width_, out);
  }
}

bool RomDocument::BlocksModified() const {
  if (saved_width_ != grid_.MapWidth() || saved_height_ != grid_.MapHeight()) return true;
  const auto width = static_cast<std::ptrdiff_t>(saved_width_);
  auto saved = saved_blocks_.begin();
  for (int r = 0; r < saved_height_; ++r, saved += width) {
    const std::uint8_t* row = grid_.Row(ExtendedMap::kMargin + r) + ExtendedMap::kMargin;
    if (!std::equal(row, row + width, saved)) return true;
  }
  return false;
}

bool RomDocument::IsModified() const {
  if (!MapLoaded()) return false;
  return primary_.bytes != saved_primary_.bytes || secondary_.bytes != saved_secondary_.bytes ||
         !(events_ == saved_events_) || BlocksModified();
}

void RomDocument::MarkSaved(int scope) {
  if (scope == kReloadFull) {
    saved_primary_ = primary_;
    saved_secondary_ = secondary_;
  }
  if (scope == kReloadFull || scope == kReloadMapOnly) RememberSavedBlocks();
  if (scope == kReloadFull || scope == kReloadEventsOnly) saved_events_ = events_;
}

}  // namespace kartova
