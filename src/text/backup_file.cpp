#include "text/backup_file.h"

#include <algorithm>
#include <fstream>
#include <string_view>

#include "core/errors.h"
#include "core/paths.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kStars = 80;
constexpr std::size_t kEndMark = 3;
// A header begins with the last star of the block before.
constexpr std::size_t kOwnEndMark = kEndMark - 1;
constexpr std::size_t kLongestTitle = 4096;
constexpr std::size_t kStep = std::size_t{1} << 16U;
// So much of what was read stays, so that no header is cut in two.
constexpr std::size_t kKept = 2 * (kStars + 2) + kLongestTitle + 4;

bool areStars(std::string_view text) {
    return text.size() == kStars && text.find_first_not_of('*') == std::string_view::npos;
}

struct Header {
    std::size_t start = 0;
    std::size_t titleStart = 0;
    std::size_t titleEnd = 0;
    std::size_t end = 0;
};

// The header whose second line of stars begins at `second`; false when there is none.
bool headerAround(std::string_view text, std::size_t second, Header& header) {
    const std::size_t titleEnd = second - 2;
    const std::size_t lineEnd =
        titleEnd < 2 ? std::string_view::npos : text.rfind("\r\n", titleEnd - 2);
    if (lineEnd == std::string_view::npos || lineEnd < kStars ||
        !areStars(text.substr(lineEnd - kStars, kStars))) {
        return false;
    }
    header = {lineEnd - kStars, lineEnd + 2, titleEnd, second + kStars + 2};
    return true;
}

std::ifstream open(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        failOnFile(fs::exists(file) ? ErrorNumber::permission : ErrorNumber::fileMissing,
                   utf8FromPath(file));
    }
    return in;
}

}  // namespace

std::vector<BackupPlace> listBackups(const fs::path& file) {
    std::ifstream in = open(file);
    static const std::string kSecondLine = "\r\n" + std::string(kStars, '*') + "\r\n";
    std::vector<BackupPlace> found;
    std::string text;
    std::uint64_t textStart = 0;
    std::size_t looked = 0;
    std::uint64_t length = 0;
    std::string tail;
    while (in) {
        const std::size_t old = text.size();
        text.resize(old + kStep);
        in.read(text.data() + old, static_cast<std::streamsize>(kStep));
        text.resize(old + static_cast<std::size_t>(in.gcount()));
        length = textStart + text.size();
        std::size_t at = text.find(kSecondLine, looked);
        for (; at != std::string::npos; at = text.find(kSecondLine, at + 2)) {
            Header header;
            if (!headerAround(text, at + 2, header)) {
                continue;
            }
            const std::uint64_t start = textStart + header.start;
            if (!found.empty()) {
                found.back().end = std::max(found.back().start, start - kOwnEndMark);
            }
            found.push_back({text.substr(header.titleStart, header.titleEnd - header.titleStart),
                             textStart + header.end, 0});
        }
        tail = text.substr(text.size() - std::min(text.size(), kEndMark));
        const std::size_t dropped = text.size() > kKept ? text.size() - kKept : 0;
        text.erase(0, dropped);
        textStart += dropped;
        looked = text.size() - std::min(text.size(), kSecondLine.size() - 1);
    }
    if (!found.empty()) {
        const std::uint64_t mark = tail == std::string(kEndMark, '*') ? kEndMark : 0;
        found.back().end = std::max(found.back().start, length - mark);
    }
    return found;
}

std::string readBackup(const fs::path& file, const BackupPlace& place) {
    std::error_code failed;
    const std::uintmax_t length = fs::file_size(file, failed);
    std::ifstream in = open(file);
    if (failed || place.start > length) {
        return {};
    }
    std::string body(
        static_cast<std::size_t>(std::min<std::uintmax_t>(place.end, length) - place.start), '\0');
    in.seekg(static_cast<std::streamoff>(place.start));
    in.read(body.data(), static_cast<std::streamsize>(body.size()));
    body.resize(static_cast<std::size_t>(in.gcount()));
    return body;
}

}  // namespace quillmark
