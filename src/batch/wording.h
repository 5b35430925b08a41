// All English words of the command line; messages of the engine come from its own texts.
#pragma once

#include <string_view>

namespace quillmark::wording {

extern const std::string_view kHelp;
inline constexpr std::string_view kProgram = "quillmark-batch";
inline constexpr std::string_view kTryHelp = "Try 'quillmark-batch --help'.";

inline constexpr std::string_view kError = "error";
inline constexpr std::string_view kWarning = "warning";

inline constexpr std::string_view kCannotRead = "cannot be read: ";
inline constexpr std::string_view kCannotWrite = "cannot be written: ";
inline constexpr std::string_view kTooLarge = "it is larger than a file of this kind can be";
inline constexpr std::string_view kStreamFailed = "the stream takes no more";
inline constexpr std::string_view kNoLanguage = "there is no such language file, French is used";
inline constexpr std::string_view kNoPaint = "this build of the program can't paint";
inline constexpr std::string_view kLostCharacters =
    " characters that the code page lacks became \"?\"";
inline constexpr std::string_view kLabelsCut = "labels became too long, the last ones are gone";
inline constexpr std::string_view kPolygon = "polygon";
inline constexpr std::string_view kLine = "line";
inline constexpr std::string_view kPoint = "point";
inline constexpr std::string_view kNoPlaceInText = "text has no place for: ";
inline constexpr std::string_view kExtraPoi = "Extra POI";
inline constexpr std::string_view kSpecialLabels = "special labels";
inline constexpr std::string_view kRawBlock = "the raw block";
inline constexpr std::string_view kBetweenSections = "bytes between header and first section";
inline constexpr std::string_view kSubtypes = " subtypes of polygons and lines";
inline constexpr std::string_view kActivitiesChanged =
    " activities of lines, which come back as others";
inline constexpr std::string_view kLabelsChanged =
    " labels that text shortens (blanks at the end, ; = 0x)";
inline constexpr std::string_view kLosesUnknown =
    "another header size would lose fields of the header that nobody knows";
inline constexpr std::string_view kLosesLabels =
    "this header size would lose the special labels; it must be 156 or more";
inline constexpr std::string_view kLosesBlock =
    "this header size would lose the raw block; it must be 164 or more";

// Labels of `info`.
inline constexpr std::string_view kNone = "none";
inline constexpr std::string_view kKind = "kind";
inline constexpr std::string_view kKindTyp = "TYP file";
inline constexpr std::string_view kKindText = "text";
inline constexpr std::string_view kSize = "size in bytes";
inline constexpr std::string_view kHeaderSize = "header size";
inline constexpr std::string_view kVersion = "version";
inline constexpr std::string_view kDate = "date";
inline constexpr std::string_view kEncoding = "encoding";
inline constexpr std::string_view kEncodingUtf8 = "UTF-8";
inline constexpr std::string_view kEncodingCodePage = "code page";
inline constexpr std::string_view kCodePage = "code page";
inline constexpr std::string_view kFid = "FID";
inline constexpr std::string_view kProduct = "product code";
inline constexpr std::string_view kPolygons = "polygons";
inline constexpr std::string_view kLines = "lines";
inline constexpr std::string_view kActiveRouting = "of these for active routing";
inline constexpr std::string_view kPoints = "points";
inline constexpr std::string_view kExtraPoiGroups = "extra POI groups";
inline constexpr std::string_view kExtraPoiMembers = "extra POI members";
inline constexpr std::string_view kDrawOrder = "draw order entries";
inline constexpr std::string_view kLabelBytes = "bytes of special labels";
inline constexpr std::string_view kLabelEntriesA = "entries of label table A";
inline constexpr std::string_view kLabelEntriesB = "entries of label table B";
inline constexpr std::string_view kBlockBytes = "bytes of the raw block";
inline constexpr std::string_view kBetweenBytes = "bytes behind the header";

}  // namespace quillmark::wording
