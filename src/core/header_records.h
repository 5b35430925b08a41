// The five parts of a TYP header, as last read or written. Offsets count from the start of the
// file; offsets and sizes are in bytes.
#pragma once

#include <array>
#include <cstdint>

namespace quillmark {

struct SectionPlace {
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
    bool operator==(const SectionPlace&) const = default;
};

struct IndexPlace {
    std::uint32_t offset = 0;
    std::uint16_t entrySize = 0;
    std::uint32_t size = 0;
    bool operator==(const IndexPlace&) const = default;
};

struct EnteteTYP {
    std::uint16_t headerSize = 0;
    std::array<char, 10> magic{};
    std::uint16_t version = 0;
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    std::uint16_t codePage = 0;
    SectionPlace poiData;
    SectionPlace polylineData;
    SectionPlace polygonData;
    std::uint16_t FID = 0;
    std::uint16_t ProductCode = 0;
    IndexPlace poiIndex;
    IndexPlace polylineIndex;
    IndexPlace polygonIndex;
    IndexPlace drawOrder;
    bool operator==(const EnteteTYP&) const = default;
};

struct EnteteExtraPOI {
    IndexPlace index;
    std::uint8_t flags = 0;
    SectionPlace data;
    bool operator==(const EnteteExtraPOI&) const = default;
};

struct EnteteLabels {
    std::array<std::uint8_t, 2> unknown1{};
    SectionPlace strings;
    std::uint32_t entrySizeA = 0;
    std::uint32_t entrySizeB = 0;
    SectionPlace tableA;
    std::array<std::uint8_t, 8> unknown2{};
    SectionPlace tableB;
    std::array<std::uint8_t, 4> unknown3{};
    bool operator==(const EnteteLabels&) const = default;
};

struct EnteteBloc {
    SectionPlace bloc;
    bool operator==(const EnteteBloc&) const = default;
};

struct EnteteActiveRouting {
    IndexPlace index;
    bool operator==(const EnteteActiveRouting&) const = default;
};

}  // namespace quillmark
