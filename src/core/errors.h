// Failures that a user's file or machine can cause. Faults of our own are asserts and never these.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace quillmark {

// Numbers shown to the user in journals and boxes, by kind of failure.
enum class ErrorNumber : int {
    other = 5,
    overflow = 6,
    memory = 7,
    index = 9,
    conversion = 13,
    fileMissing = 53,
    device = 57,
    diskFull = 61,
    readPastEnd = 62,
    permission = 70,
    path = 76,
};

class Failure : public std::runtime_error {
  public:
    Failure(ErrorNumber number, const std::string& description)
        : std::runtime_error(description), number_(number) {}
    [[nodiscard]] ErrorNumber number() const noexcept { return number_; }

  private:
    ErrorNumber number_;
};

// A read reached beyond the bytes there are.
class ReadError : public Failure {
  public:
    // `position` and `wanted` in bytes.
    ReadError(std::size_t position, std::size_t wanted);
};

// Throws a Failure that says what is wrong with a file. `file` is UTF-8.
[[noreturn]] void failOnFile(ErrorNumber number, const std::string& file);

// The error number and description of any exception, for the journal and for boxes.
struct ErrorFacts {
    ErrorNumber number = ErrorNumber::other;
    std::string description;
};
// To be called within a catch block only.
ErrorFacts currentErrorFacts();

// The line that tells of it; `place` is "Feuille WINDOW" or "Module MODULE".
[[nodiscard]] std::string unforeseenText(const ErrorFacts& facts, const std::string& procedure,
                                         const std::string& place);

}  // namespace quillmark
