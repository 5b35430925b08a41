#include "batch/console.h"

#include <algorithm>
#include <istream>
#include <limits>
#include <ostream>

#include "batch/options.h"
#include "batch/wording.h"
#include "core/files.h"
#include "core/paths.h"
#include "typ/header.h"

namespace quillmark {
namespace {

constexpr std::size_t kMagicPosition = 2;
// What a file may hold at most, since positions in it are 32-bit signed numbers.
constexpr std::size_t kLargestInput = std::numeric_limits<std::int32_t>::max();

// Journals underline headings with rules longer than this; labels hold none.
constexpr std::size_t kRule = 100;

Bytes readAll(std::istream& stream) {
    Bytes bytes;
    std::size_t used = 0;
    do {
        bytes.resize(std::max<std::size_t>(2 * used, 1U << 16U));
        stream.read(reinterpret_cast<char*>(bytes.data() + used),
                    static_cast<std::streamsize>(bytes.size() - used));
        used += static_cast<std::size_t>(stream.gcount());
        if (used > kLargestInput) {
            throw Failure(ErrorNumber::overflow, std::string(wording::kTooLarge));
        }
    } while (stream);
    bytes.resize(used);
    return bytes;
}

bool hasMagic(ByteView bytes) {
    return bytes.size() >= kMagicPosition + kMagic.size() &&
           std::equal(kMagic.begin(), kMagic.end(), bytes.begin() + kMagicPosition);
}

// One line: runs of blanks and line breaks become one blank, and rules drawn with "-" go.
std::string oneLine(std::string_view message) {
    std::string line;
    while (!message.empty()) {
        const std::size_t end = std::min(message.find_first_of(" \t\r\n"), message.size());
        const std::string_view word = message.substr(0, end);
        const bool rule =
            word.size() >= kRule && word.find_first_not_of('-') == std::string_view::npos;
        if (!word.empty() && !rule) {
            line += line.empty() ? "" : " ";
            line += word;
        }
        message.remove_prefix(std::min(end + 1, message.size()));
    }
    return line;
}

}  // namespace

std::optional<OpenedFile> Console::open(const std::string& name, std::ostream& faults,
                                        int codePage) {
    try {
        if (name == kStandardStream) {
            const Bytes bytes = readAll(in_);
            return openBytes(bytes, !hasMagic(bytes), TextFileEncoding::automatic, traduction,
                             codePage);
        }
        return openFile(pathFromUtf8(name), TextFileEncoding::automatic, traduction, codePage);
    } catch (const Failure& failure) {
        tell(faults, name, JournalKind::error, std::string(wording::kCannotRead) + failure.what());
        return std::nullopt;
    }
}

bool Console::write(const std::string& name, ByteView content) {
    try {
        if (name != kStandardStream) {
            replaceFile(pathFromUtf8(name), content);
            return true;
        }
        out_.write(reinterpret_cast<const char*>(content.data()),
                   static_cast<std::streamsize>(content.size()));
        if (!out_.flush()) {
            throw Failure(ErrorNumber::device, std::string(wording::kStreamFailed));
        }
        return true;
    } catch (const Failure& failure) {
        tell(name, JournalKind::error, std::string(wording::kCannotWrite) + failure.what());
        return false;
    }
}

void Console::tell(std::ostream& stream, const std::string& name, JournalKind kind,
                   std::string_view message) {
    stream << name << ": " << (kind == JournalKind::error ? wording::kError : wording::kWarning)
           << ": " << oneLine(message) << '\n';
}

void Console::tell(std::ostream& stream, const std::string& name, const Journal& journal) {
    for (const JournalKind kind : {JournalKind::error, JournalKind::warning}) {
        for (const JournalEntry* entry : journal.shown(kind)) {
            tell(stream, name, kind, entry->text);
        }
    }
}

Answer RefusingDialogues::AfficheMessage(const std::string& message, MessageStyle style,
                                         const std::string& /*titre*/) {
    console_.tell(file_, JournalKind::error, message);
    switch (buttonsOf(style)) {
        case MessageStyle::ok:
            return Answer::ok;
        case MessageStyle::yesNo:
            return Answer::no;
        default:
            return Answer::cancel;
    }
}

std::optional<std::string> RefusingDialogues::chooseFileToOpen(
    const std::string& /*titre*/, const std::vector<FileFilter>& /*filters*/) {
    return std::nullopt;
}

std::optional<std::string> RefusingDialogues::chooseFileToSave(
    const std::string& /*titre*/, const FileFilter& /*filter*/,
    const std::string& /*proposedName*/) {
    return std::nullopt;
}

std::optional<std::string> RefusingDialogues::askText(const std::string& /*prompt*/,
                                                      const std::string& /*titre*/,
                                                      const std::string& /*initial*/) {
    return std::nullopt;
}

}  // namespace quillmark
