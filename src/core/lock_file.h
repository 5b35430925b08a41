// Says that a file belongs to this process, for as long as the process lives.
#pragma once

#include <cstdint>
#include <filesystem>

namespace quillmark {

// The platform lets go of the lock when the process dies, however that happens. Nobody else's
// work is waited for: who doesn't get the lock does without.
class LockFile {
  public:
    // Makes the lock file and its folder.
    explicit LockFile(const std::filesystem::path& file);
    ~LockFile();
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    // False when another process has it, and where no file can be made.
    [[nodiscard]] bool isOwned() const noexcept { return handle_ != -1; }
    [[nodiscard]] bool isTaken() const noexcept { return taken_; }  // by another process

  private:
    std::intptr_t handle_ = -1;  // the platform's own
    bool taken_ = false;
};

}  // namespace quillmark
