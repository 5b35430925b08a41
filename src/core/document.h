// The one document: a plain value that `main` owns and hands down by reference.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/header_records.h"
#include "core/records.h"

namespace quillmark {

// One column of `DrawOrder`.
struct DrawOrderItem {
    std::int32_t level = 0;
    std::int32_t type = 0;
    std::int32_t subtype = 0;  // 0 when none
    bool operator==(const DrawOrderItem&) const = default;
};

// Where the bytes of `BlocBrut` lie in the file.
enum class BlocSourceKind : std::uint8_t { none = 0, own = 1, tableA = 2, tableB = 3 };

struct Document {
    // Counts are the sizes of the arrays; `Polyline` holds ordinary and Active Routing lines,
    // the ordinary ones first, except while text is being parsed.
    std::vector<quillmark::POI> POI;
    std::vector<quillmark::Polygone> Polygone;
    std::vector<quillmark::Polyline> Polyline;
    std::vector<quillmark::ExtraPOI> ExtraPOI;

    std::vector<std::string> ListDraworder;  // master copy, "Type=0x10f,SubType=0x04,2"
    std::vector<DrawOrderItem> DrawOrder;    // derived from `ListDraworder`

    std::int32_t CodePage = 1252;
    std::int32_t TailleEntete = 91;  // header size in bytes, what `cbbHeadersize` shows
    std::string FID;                 // as typed: text of `txtFID`
    std::string ProductCode;         // text of `txtProductCode`
    std::string Commentaire;         // text files only; lines joined by CR LF

    Bytes LabelsStrings;
    Bytes LabelsTableA;
    Bytes LabelsTableB;
    Bytes BlocBrut;
    BlocSourceKind BlocSource = BlocSourceKind::none;
    Bytes EntreSections;  // bytes between header and first section
    // Header bytes within the stated size but behind the last part that is understood; only a
    // header of an unusual size has any.
    Bytes EnteteInconnu;

    quillmark::EnteteTYP EnteteTYP;
    quillmark::EnteteExtraPOI EnteteExtraPOI;
    quillmark::EnteteLabels EnteteLabels;
    quillmark::EnteteBloc EnteteBloc;
    quillmark::EnteteActiveRouting EnteteActiveRouting;

    std::int16_t MaxDimensionPOI = 0;  // pixels
    std::int16_t MaxDimensionExtraPOI = 0;

    [[nodiscard]] int NbPolylinesAR() const;
    [[nodiscard]] int NbPolylines() const;
    // Entries of the two label tables; 0 without an entry size.
    [[nodiscard]] int NbLabelsA() const;
    [[nodiscard]] int NbLabelsB() const;

    bool operator==(const Document&) const = default;
};

// Largest number of objects of one kind: counts are 16-bit signed throughout the format's world.
inline constexpr int kMaxObjects = 32767;

// Code pages a document may name, in the order of `cbbCodepage`.
inline constexpr std::array<std::int32_t, 14> kCodePages{1250, 1251, 1252,  1253, 1254, 1255, 1256,
                                                         1257, 1258, 65001, 936,  950,  874,  932};
// Index in `kCodePages`, -1 when the page isn't in it.
[[nodiscard]] int codePageIndex(std::int32_t codePage);

// Header sizes in bytes, in the order of `cbbHeadersize`.
inline constexpr std::array<std::int32_t, 5> kHeaderSizes{91, 110, 156, 164, 174};

}  // namespace quillmark
