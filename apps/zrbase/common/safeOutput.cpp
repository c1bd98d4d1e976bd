#include "common/safeOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "common/commandError.h"

namespace {

namespace fs = std::filesystem;

// The partial files that an interrupt must remove. A signal handler may touch nothing that
// allocates, so the names are copied into fixed room; a command has few outputs, a Shapefile of
// five files and a picture at most, and a name that does not fit is merely not removed.
constexpr std::size_t kPendingSlots = 8;
std::array<std::array<char, 4096>, kPendingSlots> pendingNames{};

extern "C" void removePendingAndEnd(int signalNumber) {
  for (const auto& name : pendingNames) {
    if (name[0] != '\0') {
      unlink(name.data());
    }
  }
  std::signal(signalNumber, SIG_DFL);
  std::raise(signalNumber);
}

void rememberPending(const std::string& name) {
  for (auto& slot : pendingNames) {
    if (slot[0] == '\0' && name.size() < slot.size()) {
      std::memcpy(slot.data(), name.c_str(), name.size() + 1);
      break;
    }
  }
  std::signal(SIGINT, removePendingAndEnd);
  std::signal(SIGTERM, removePendingAndEnd);
}

void forgetPending(const std::string& name) {
  for (auto& slot : pendingNames) {
    if (name == slot.data()) {
      slot[0] = '\0';
    }
  }
}

CommandError cannotWrite(const std::string& path, int errorNumber) {
  return CommandError(path + ": cannot be written: " + std::strerror(errorNumber));
}

std::string partialName(const fs::path& finalPath) {
  const std::string name = "." + finalPath.stem().string() + "." + std::to_string(getpid()) +
                           ".partial" + finalPath.extension().string();
  return (finalPath.parent_path() / name).string();
}

}  // namespace

SafeOutput::SafeOutput(const std::string& finalPath)
    : finalPath_(finalPath), partialPath_(partialName(finalPath)) {
  std::error_code ignored;
  if (fs::is_directory(finalPath, ignored)) {
    throw cannotWrite(finalPath, EISDIR);
  }
  const int file = open(partialPath_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (file < 0) {
    throw cannotWrite(finalPath, errno);
  }
  close(file);
  rememberPending(partialPath_);
}

SafeOutput::~SafeOutput() {
  if (!committed_) {
    unlink(partialPath_.c_str());
    forgetPending(partialPath_);
  }
}

void SafeOutput::write(const char* bytes, std::size_t count) const {
  std::FILE* const file = std::fopen(partialPath_.c_str(), "wb");
  if (file == nullptr) {
    throw cannotWrite(finalPath_, errno);
  }
  const bool written = std::fwrite(bytes, 1, count, file) == count;
  const int errorNumber = errno;
  const bool closed = std::fclose(file) == 0;
  if (!written || !closed) {
    throw cannotWrite(finalPath_, written ? errno : errorNumber);
  }
}

void SafeOutput::commit() {
  if (std::rename(partialPath_.c_str(), finalPath_.c_str()) != 0) {
    throw cannotWrite(finalPath_, errno);
  }
  committed_ = true;
  forgetPending(partialPath_);
}
