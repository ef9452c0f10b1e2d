#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "rom/FileRegion.h"

namespace kartova {

// A write that could not be completed. The file on disk is exactly as it was before.
class FileWriteError : public std::runtime_error {
 public:
  FileWriteError(std::string path, std::string reason);
  const std::string& path() const { return path_; }
  // The system's reason in plain words ("Permission denied", "No space left on device", ...).
  const std::string& reason() const { return reason_; }

 private:
  std::string path_;
  std::string reason_;
};

// The steps of a safe write, in order, for fault injection in tests.
enum class WriteStep {
  kReadSource,   // reading the file's current bytes
  kCreateTemp,   // creating the temporary file beside the target
  kWrite,        // each write of a piece of the new image into the temporary file
  kSync,         // flushing the temporary file to the disk
  kRename,       // renaming the temporary file over the target
};
// Called before every step; a non-zero errno value makes that step fail with it.
using WriteFaultHook = std::function<int(WriteStep)>;

struct SafeWriteOptions {
  // Where the current bytes come from; empty: the target itself. "Save as" builds the copy
  // from the ROM it was opened from.
  std::string source;
  // A target that does not exist is created (from the source's bytes, or empty). Otherwise a
  // missing target is an error: a ROM that vanished is not silently recreated.
  bool create_if_missing = false;
  WriteFaultHook fault_hook;
};

// Replaces regions of a file without ever leaving it half-written: the new image (the current
// bytes with the regions put in) is written to a temporary file in the target's directory,
// flushed, given the target's permissions and renamed over the target. A symbolic link is
// followed, so the file it names is replaced and the link stays. On any failure the temporary
// file is removed, the target is untouched and FileWriteError says why. A target whose
// permissions forbid writing is refused even where the system would let the rename through.
void WriteRegionsSafely(const std::string& path, const std::vector<FileRegion>& regions,
                        const SafeWriteOptions& options = {});

// Reads a whole file; FileWriteError (with the reason) when it cannot be read.
std::vector<std::uint8_t> ReadWholeFile(const std::string& path);

}  // namespace kartova
