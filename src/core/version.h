// Three numbers of a version and how they compare: whether a newer one is out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

struct Version {
    std::uint32_t Major = 0;
    std::uint32_t Minor = 0;     // up to 99
    std::uint32_t Revision = 0;  // up to 99

    // Ascending with the version.
    [[nodiscard]] std::uint64_t sum() const {
        return std::uint64_t{Major} * 10000 + std::uint64_t{Minor} * 100 + Revision;
    }
    // "v1.2.3"
    [[nodiscard]] std::string text() const;
};

// A version note: "1.2.3" with a "v" in front or not, and blanks or line ends around it. Nothing
// for anything else.
[[nodiscard]] std::optional<Version> readVersion(std::string_view note);

}  // namespace quillmark
