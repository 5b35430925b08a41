// Builds TYP files from raw bytes, fit or unfit, without the product's own writer.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

#include "core/bytes.h"
#include "support/test_files.h"
#include "typ/reader.h"
#include "typ/writer.h"

namespace quillmark::testing {

// Where the header names a section: offset and size, or offset, entry size and size.
enum HeaderField : std::size_t {
    kPoiData = 23,
    kPolylineData = 31,
    kPolygonData = 39,
    kPoiIndex = 51,
    kPolylineIndex = 61,
    kPolygonIndex = 71,
    kDrawOrder = 81,
    kExtraIndex = 91,
    kExtraFlags = 101,
    kExtraData = 102,
    kLabelStrings = 112,
    kTableA = 128,
    kTableB = 144,
    kBloc = 156,
    kActiveRoutingIndex = 164,
};

class TypBuilder {
  public:
    explicit TypBuilder(std::uint16_t headerSize = 91)
        : file_(std::max<std::size_t>(91, headerSize)) {
        number(0, headerSize, 2);
        const Bytes magic = bytesOf("GARMIN TYP");
        std::copy(magic.begin(), magic.end(), file_.begin() + 2);
        number(12, 1, 2).number(14, 2024, 2).number(16, 5, 1).number(21, 1252, 2);
    }
    TypBuilder& number(std::size_t at, std::uint32_t value, std::size_t width) {
        for (std::size_t i = 0; i < width; ++i) {
            file_.at(at + i) = static_cast<std::uint8_t>(value >> (8 * i));
        }
        return *this;
    }
    TypBuilder& append(const Bytes& bytes) {
        file_.insert(file_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    // Appends a section and names it in the header.
    TypBuilder& data(HeaderField field, const Bytes& bytes) {
        place(field, file_.size());
        number(field + 4, static_cast<std::uint32_t>(bytes.size()), 4);
        return append(bytes);
    }
    TypBuilder& index(HeaderField field, std::uint32_t entrySize, const Bytes& bytes) {
        place(field, file_.size());
        number(field + 4, entrySize, 2);
        number(field + 6, static_cast<std::uint32_t>(bytes.size()), 4);
        return append(bytes);
    }
    TypBuilder& place(HeaderField field, std::size_t offset) {
        return number(field, static_cast<std::uint32_t>(offset), 4);
    }
    [[nodiscard]] std::size_t size() const { return file_.size(); }
    [[nodiscard]] const Bytes& file() const { return file_; }

  private:
    Bytes file_;
};

inline Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

inline OpenedTyp open(const Bytes& file) {
    return ouvrir(file, Traduction());
}

inline constexpr DateTime kNow{2024, 5, 6, 7, 8, 9};

inline Bytes save(const Document& document) {
    return CreerTYP(document, kNow).file;
}

// The data of the only section, as a save writes it: between header and one index entry.
inline Bytes savedRecord(const Document& document) {
    const Bytes file = save(document);
    return {file.begin() + 91, file.end() - 3};
}

// A document that can be saved.
inline Document minimal(std::int32_t headerSize = 91) {
    Document document;
    document.FID = document.ProductCode = "1";
    document.TailleEntete = headerSize;
    return document;
}

// Opens in time, and a second save changes nothing, whatever the first file was.
inline void expectStable(const Bytes& file) {
    const std::clock_t start = std::clock();
    const auto opened = open(file);
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC);
    Bytes once;
    try {
        once = save(opened.document);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), ErrorNumber::overflow);
        return;
    }
    EXPECT_TRUE(save(open(once).document) == once);
}

// All entries in the order of reading, each as "E" or "W" and its text on one line.
inline std::vector<std::string> told(const Journal& journal) {
    std::vector<std::string> lines;
    for (const JournalEntry& entry : journal.entries()) {
        std::string line = entry.kind == JournalKind::error ? "E " : "W ";
        for (const char c : entry.text) {
            if (c != '\r') {
                line += c == '\n' ? '|' : c;
            }
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace quillmark::testing
