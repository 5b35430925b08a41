// Open files of the platform, and what its calls fail with.
#pragma once

#include <filesystem>

#include "core/bytes.h"
#include "core/errors.h"

namespace quillmark {

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int get() const { return number_; }
    // The error of the platform, 0 when there is none.
    int close();

  private:
    int number_;
};

[[noreturn]] void failByErrno(int error, const std::filesystem::path& file,
                              ErrorNumber whenMissing = ErrorNumber::path);

// Both throw a Failure that names `file`.
void writeAll(int descriptor, ByteView content, const std::filesystem::path& file);
void flushToDevice(int descriptor, const std::filesystem::path& file);

}  // namespace quillmark
