// Words and tables of the text form, shared by the generator and the parser.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quillmark::format {

inline constexpr std::string_view kIdentity = "[_id]";
inline constexpr std::string_view kComments = "[_comments]";
inline constexpr std::string_view kDrawOrder = "[_drawOrder]";
inline constexpr std::string_view kPolygon = "[_polygon]";
inline constexpr std::string_view kLine = "[_line]";
inline constexpr std::string_view kPoint = "[_point]";
inline constexpr std::string_view kEnd = "[End]";  // of the three sections above objects
inline constexpr std::string_view kObjectEnd = "[end]";

inline constexpr std::string_view kCommentsBanner = ";=========== COMMENTAIRES ======";
inline constexpr std::string_view kDrawOrderBanner =
    ";=========== POLYGONES : PRIORITE DANS L'AFFICHAGE ======";
inline constexpr std::string_view kPolygonBanner =
    ";===================== POLYGONES ========================";
inline constexpr std::string_view kLineBanner =
    ";====================== LINES ===========================";
inline constexpr std::string_view kPointBanner =
    ";====================== POINTS ==========================";

// Columns of a picture, as a help for the eye; cut behind the width of a point's picture.
inline constexpr std::string_view kRuler = ";12345678901234567890123456789012";
inline constexpr std::string_view kTrueColourComment = ";Couleurs 24 bits : pas de palette ";

// Pixel codes of a point's picture: colour i is one of these, from 17 colours on a pair of them.
inline constexpr std::array<char, 16> CaracteresPixel{'!', '#', '%', '?', '$', '*', '=', '1',
                                                      '2', '3', '4', '5', '6', '7', '8', '9'};
inline constexpr int kOneCharacterColours = 16;

// Palette codes of a pattern: day, day background, night, night background.
inline constexpr std::array<char, 4> kPatternCodes{'!', '#', '3', '4'};

// Rows of a line's bitmap have 5 bits in the record.
inline constexpr int kMaxLineRows = 31;

inline constexpr std::array<std::string_view, 5> kFontStyles{
    "Default", "NoLabel (invisible)", "SmallFont", "NormalFont", "LargeFont"};
inline constexpr std::array<std::string_view, 4> kDayNightModes{"No", "Day", "Night",
                                                                "DayAndNight"};

// The generator's names of activities and the parser's don't agree: an activity other than
// "Walking" and "Mountain Biking" changes on the way through text. Files in use rely on both.
struct Activity {
    std::string_view name;
    std::uint8_t first, second;  // the two bytes of `ActiveRouting`
};
inline constexpr std::array<Activity, 6> kWrittenActivities{{{"Walking", 4, 0},
                                                             {"Hiking", 4, 1},
                                                             {"Mountaineering", 4, 2},
                                                             {"Bicycling", 5, 0},
                                                             {"Tour cycling", 5, 1},
                                                             {"Mountain Biking", 5, 2}}};
inline constexpr std::string_view kUnknownActivity = "Unknown";
inline constexpr std::array<Activity, 6> kReadActivities{{{"Walking", 4, 0},
                                                          {"Hiking", 5, 0},
                                                          {"Mountaineering", 4, 1},
                                                          {"Bicycling", 5, 1},
                                                          {"Tour cycling", 4, 2},
                                                          {"Mountain Biking", 5, 2}}};
inline constexpr Activity kOtherActivity{"", 255, 10};

}  // namespace quillmark::format
