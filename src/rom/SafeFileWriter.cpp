#include "rom/SafeFileWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace kartova {

FileWriteError::FileWriteError(std::string path, std::string reason)
    : std::runtime_error(path + ": " + reason),
      path_(std::move(path)),
      reason_(std::move(reason)) {}

namespace {

constexpr std::size_t kPieceSize = std::size_t{1} << 20;
// Far beyond any cartridge. A bigger file or region is a mistake, and holding it in memory
// whole could exhaust the machine.
constexpr std::int64_t kMaxFileSize = std::int64_t{1} << 30;
constexpr int kMaxLinkHops = 40;  // the kernel's own limit
constexpr mode_t kPermissionBits = 07777;

// The file a failure is reported on (as the user named it) and the tests' fault hook.
struct Job {
  const std::string& path;
  const WriteFaultHook* hook = nullptr;

  [[noreturn]] void Fail(const std::string& reason) const { throw FileWriteError(path, reason); }
  [[noreturn]] void Fail(int err) const { Fail(std::generic_category().message(err)); }
  void Step(WriteStep step) const {
    if (hook && *hook)
      if (const int err = (*hook)(step)) Fail(err);
  }
};

class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return fd_; }

 private:
  int fd_;
};

struct FileImage {
  std::vector<std::uint8_t> bytes;
  mode_t mode = 0;
};

// Only a regular file can hold a ROM; a directory, pipe or device is refused before any read.
void RequireRegularFile(const Job& job, const struct stat& st) {
  if (S_ISDIR(st.st_mode)) job.Fail(EISDIR);
  if (!S_ISREG(st.st_mode)) job.Fail("Das ist keine gewöhnliche Datei.");
  if (st.st_size > kMaxFileSize) job.Fail(EFBIG);
}

std::vector<std::uint8_t> ReadAll(const Job& job, int fd, std::int64_t expected) {
  // One spare byte lets the end show without growing the buffer; a file that grew since fstat
  // is still read to its end.
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(expected) + 1);
  std::size_t have = 0;
  for (;;) {
    if (have == bytes.size()) {
      if (have > static_cast<std::size_t>(kMaxFileSize)) job.Fail(EFBIG);
      bytes.resize(have + kPieceSize);
    }
    const ssize_t got = ::read(fd, bytes.data() + have, bytes.size() - have);
    if (got == 0) break;
    if (got > 0)
      have += static_cast<std::size_t>(got);
    else if (errno != EINTR)
      job.Fail(errno);
  }
  bytes.resize(have);
  return bytes;
}

FileImage ReadFile(const Job& job, const std::string& file) {
  // Non-blocking, so that a named pipe given by mistake cannot hang the editor in open().
  Descriptor fd(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (fd.get() < 0) job.Fail(errno);
  struct stat st {};
  if (::fstat(fd.get(), &st) != 0) job.Fail(errno);
  RequireRegularFile(job, st);
  return {ReadAll(job, fd.get(), st.st_size), st.st_mode & kPermissionBits};
}

// Read from /proc because setting the mask to learn it would race with other threads.
mode_t CurrentUmask() {
  if (std::FILE* status = std::fopen("/proc/self/status", "re")) {
    char line[256];
    unsigned mask = 0;
    bool found = false;
    while (!found && std::fgets(line, sizeof line, status))
      found = std::sscanf(line, "Umask: %o", &mask) == 1;
    std::fclose(status);
    if (found) return mask;
  }
  const mode_t mask = ::umask(022);
  ::umask(mask);
  return mask;
}

// The file at the end of a chain of symbolic links, so that a save replaces that file and
// the links stay. A dangling link names the file to be created.
std::string ResolveLinks(const Job& job, std::string file) {
  for (int hop = 0; hop < kMaxLinkHops; ++hop) {
    struct stat st {};
    if (::lstat(file.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return file;
    std::error_code ec;
    const std::filesystem::path link = std::filesystem::read_symlink(file, ec);
    if (ec) job.Fail(ec.value());
    file = (std::filesystem::path(file).parent_path() / link).string();
  }
  job.Fail(ELOOP);
}

// The target's status, or nothing for a missing target that may be created. The owner's write
// bit is checked by hand: rename() would replace a read-only file, and root passes access().
std::optional<struct stat> InspectTarget(const Job& job, const std::string& target,
                                         bool create_if_missing) {
  struct stat st {};
  if (::stat(target.c_str(), &st) != 0) {
    if (errno == ENOENT && create_if_missing) return std::nullopt;
    job.Fail(errno);
  }
  RequireRegularFile(job, st);
  if ((st.st_mode & S_IWUSR) == 0) job.Fail("Die Datei ist schreibgeschützt.");
  return st;
}

// A wild offset would ask for more memory than any ROM needs; refused before allocating.
void CheckRegions(const Job& job, const std::vector<FileRegion>& regions) {
  for (const FileRegion& region : regions) {
    if (region.offset < 0 || region.bytes.empty()) continue;
    if (region.offset > kMaxFileSize ||
        static_cast<std::int64_t>(region.bytes.size()) > kMaxFileSize - region.offset)
      job.Fail(EFBIG);
  }
}

// The bytes the save starts from, with the permissions a newly created target gets.
FileImage ReadStartingImage(const Job& job, const std::string& target, bool target_exists,
                            const std::string& source) {
  // Trouble reading is reported on the file that was being read.
  const std::string& file = source.empty() ? target : source;
  const Job reading{source.empty() ? job.path : source, job.hook};
  reading.Step(WriteStep::kReadSource);
  FileImage image;
  if (!source.empty() || target_exists)
    image = ReadFile(reading, file);
  else
    image.mode = 0644 & ~CurrentUmask();
  image.mode |= S_IWUSR;
  return image;
}

// The new image's file beside the target; removed again unless renamed over the target.
class TempFile {
 public:
  TempFile(const Job& job, const std::string& target) {
    const std::filesystem::path t(target);
    std::string name = ".";
    name += t.filename().string();
    name += ".kartova-XXXXXX";
    path_ = (t.parent_path() / name).string();
    fd_ = ::mkostemp(path_.data(), O_CLOEXEC);
    if (fd_ < 0) job.Fail(errno);
  }
  ~TempFile() {
    if (fd_ >= 0) ::close(fd_);
    if (!renamed_) ::unlink(path_.c_str());
  }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  int fd() const { return fd_; }
  void Close(const Job& job) {
    // Some file systems report a failed write only here.
    if (::close(std::exchange(fd_, -1)) != 0) job.Fail(errno);
  }
  void RenameOver(const Job& job, const std::string& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) job.Fail(errno);
    renamed_ = true;
  }

 private:
  std::string path_;
  int fd_ = -1;
  bool renamed_ = false;
};

void WriteFully(const Job& job, int fd, const std::uint8_t* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(fd, data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) job.Fail(errno);
    if (written == 0) job.Fail(EIO);
    data += written;
    size -= static_cast<std::size_t>(written);
  }
}

void WriteImage(const Job& job, int fd, const std::vector<std::uint8_t>& image) {
  for (std::size_t done = 0; done < image.size(); done += kPieceSize) {
    job.Step(WriteStep::kWrite);
    WriteFully(job, fd, image.data() + done, std::min(kPieceSize, image.size() - done));
  }
}

// Saving as another user (root, typically) must not hand the ROM over to that user; where the
// system refuses, the file belongs to whoever saved it.
void KeepOwner(int fd, const struct stat& target) {
  if (target.st_uid == ::geteuid() && target.st_gid == ::getegid()) return;
  [[maybe_unused]] const int ignored = ::fchown(fd, target.st_uid, target.st_gid);
}

// Makes the rename itself durable. Best effort: the new file is complete either way.
void SyncDirectory(const std::string& target) {
  const std::string parent = std::filesystem::path(target).parent_path().string();
  const char* dir = parent.empty() ? "." : parent.c_str();
  const Descriptor fd(::open(dir, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (fd.get() >= 0) ::fsync(fd.get());
}

void ReplaceFile(const Job& job, const std::string& target, const std::vector<std::uint8_t>& image,
                 mode_t mode, const std::optional<struct stat>& existing) {
  job.Step(WriteStep::kCreateTemp);
  TempFile temp(job, target);
  WriteImage(job, temp.fd(), image);
  // Ownership and mode before the flush, so that they reach the disk with the data.
  if (existing) KeepOwner(temp.fd(), *existing);
  if (::fchmod(temp.fd(), mode) != 0) job.Fail(errno);
  job.Step(WriteStep::kSync);
  if (::fsync(temp.fd()) != 0) job.Fail(errno);
  temp.Close(job);
  job.Step(WriteStep::kRename);
  temp.RenameOver(job, target);
  SyncDirectory(target);
}

}  // namespace

void WriteRegionsSafely(const std::string& path, const std::vector<FileRegion>& regions,
                        const SafeWriteOptions& options) {
  const Job job{path, &options.fault_hook};
  const std::string target = ResolveLinks(job, path);
  const std::optional<struct stat> existing = InspectTarget(job, target, options.create_if_missing);
  CheckRegions(job, regions);
  FileImage image = ReadStartingImage(job, target, existing.has_value(), options.source);
  ApplyRegions(image.bytes, regions);
  const mode_t mode = existing ? existing->st_mode & kPermissionBits : image.mode;
  ReplaceFile(job, target, image.bytes, mode, existing);
}

std::vector<std::uint8_t> ReadWholeFile(const std::string& path) {
  return ReadFile(Job{path}, path).bytes;
}

}  // namespace kartova
