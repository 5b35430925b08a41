#include "text/backups.h"

#include <zlib.h>

#include <functional>
#include <new>
#include <string_view>
#include <system_error>

#include "core/errors.h"
#include "core/paths.h"
#include "core/private_file.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEndMark = "***";
// The last byte of a block is overwritten by the first of the next.
constexpr std::size_t kShared = 1;

ByteView viewOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

TextBackups::Prepared TextBackups::prepare(const std::string& text) {
    Prepared made;
    made.size = text.size();
    made.hash = std::hash<std::string>()(text);
    uLongf room = compressBound(static_cast<uLong>(text.size()));
    made.compressed.resize(room);
    if (compress(made.compressed.data(), &room, viewOf(text).data(),
                 static_cast<uLong>(text.size())) != Z_OK) {
        throw std::bad_alloc();
    }
    made.compressed.resize(room);
    made.compressed.shrink_to_fit();
    return made;
}

bool TextBackups::isNewest(const Prepared& text) const {
    if (SauvegardesTexte_.empty()) {
        return false;
    }
    const Prepared& newest = SauvegardesTexte_.back();
    return newest.hash == text.hash && newest.size == text.size &&
           newest.compressed == text.compressed;
}

std::size_t TextBackups::add(Prepared text) {
    memory_ += text.compressed.size();
    SauvegardesTexte_.push_back(std::move(text));
    const std::size_t number = first_ + SauvegardesTexte_.size() - 1;
    while (memory_ > limit_) {
        memory_ -= SauvegardesTexte_.front().compressed.size();
        SauvegardesTexte_.pop_front();
        ++first_;
    }
    return number;
}

std::string TextBackups::text(std::size_t position) const {
    const Prepared& element = SauvegardesTexte_.at(position);
    std::string text(element.size, '\0');
    auto size = static_cast<uLongf>(text.size());
    if (!text.empty() &&
        uncompress(reinterpret_cast<Bytef*>(text.data()), &size, element.compressed.data(),
                   static_cast<uLong>(element.compressed.size())) != Z_OK) {
        throw std::bad_alloc();
    }
    return text;
}

std::string backupBlock(const std::string& NomFichier, const std::string& sauvegarde,
                        std::size_t number, const std::string& body) {
    const std::string stars = std::string(80, '*') + "\r\n";
    std::string block;
    block.reserve(2 * stars.size() + NomFichier.size() + sauvegarde.size() + body.size() + 32);
    block += stars;
    block += NomFichier + ' ' + sauvegarde + std::to_string(number) + "\r\n";
    block += stars;
    block += body;
    block += kEndMark;
    return block;
}

void appendBackup(const fs::path& file, const std::string& block, std::size_t limit) {
    std::error_code failed;
    fs::create_directories(file.parent_path(), failed);  // a failure shows at the write
    const std::uintmax_t length = fs::file_size(file, failed);
    if (!failed && length > 0 && length - kShared + block.size() > limit) {
        fs::rename(file, earlierBackup(file), failed);
        if (failed) {
            failOnFile(ErrorNumber::permission, utf8FromPath(file));
        }
    }
    writeOverEnd(file, kShared, viewOf(block));
}

void setAsideBackup(const fs::path& file) {
    std::error_code failed;
    const std::uintmax_t length = fs::file_size(file, failed);
    if (failed) {
        return;
    }
    if (length > 0) {
        fs::rename(file, earlierBackup(file), failed);
    } else {
        fs::remove(file, failed);
    }
}

fs::path earlierBackup(const fs::path& file) {
    fs::path earlier = file;
    return earlier += "~";
}

}  // namespace quillmark
