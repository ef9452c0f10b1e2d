#include "cli/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {
std::string SystemReason(int error) { return std::generic_category().message(error); }
}  // namespace

OutputFile::OutputFile(std::string path) : path_(std::move(path)) {
  fd_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd_ < 0) throw FileWriteError(path_, SystemReason(errno));
  struct stat st {};
  regular_ = ::fstat(fd_, &st) == 0 && S_ISREG(st.st_mode);
}

OutputFile::~OutputFile() {
  if (fd_ >= 0) CloseAndRemove();
}

bool OutputFile::Write(const void* data, std::size_t size) noexcept {
  const auto* bytes = static_cast<const char*>(data);
  while (size > 0 && error_ == 0) {
    const ssize_t n = ::write(fd_, bytes, size);
    if (n > 0) {
      bytes += n;
      size -= static_cast<std::size_t>(n);
    } else if (n == 0) {
      error_ = EIO;
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
  return error_ == 0;
}

void OutputFile::Finish() {
  if (error_ != 0) Fail({});
  const int fd = std::exchange(fd_, -1);
  // Some file systems report a full disk only when the file is closed.
  if (::close(fd) != 0) {
    const int error = errno;
    if (regular_) ::unlink(path_.c_str());
    throw FileWriteError(path_, SystemReason(error));
  }
}

void OutputFile::Fail(const std::string& reason) {
  CloseAndRemove();
  throw FileWriteError(path_, error_ != 0 ? SystemReason(error_) : reason);
}

void OutputFile::CloseAndRemove() noexcept {
  if (fd_ >= 0) ::close(std::exchange(fd_, -1));
  if (regular_) ::unlink(path_.c_str());
}

void WriteNewFile(const std::string& path, std::string_view bytes) {
  OutputFile file(path);
  file.Write(bytes.data(), bytes.size());
  file.Finish();
}

}  // namespace kartova::cli
