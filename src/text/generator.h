// The text form of a document and of single objects.
#pragma once

#include <string>
#include <vector>

#include "core/clock.h"
#include "core/document.h"
#include "core/journal.h"
#include "core/profile.h"
#include "core/settings.h"
#include "core/translation.h"

namespace quillmark {

struct GeneratorContext {
    TextSettings settings;
    const Profile* types = nullptr;          // `MPCTypes.txt`; every description is "//" without it
    const Traduction* traduction = nullptr;  // built-in French when null
};

// Facts for the comment lines above a text made from a compiled file.
struct SourceComments {
    std::string folder;      // left out when empty
    std::string fileSize;    // bytes, decimal text
    std::string compiledAt;  // as `lblDateCreation` shows it
    DateTime now;
};

// Where a record stands in a generated text: lines from 0, `lastLine` is the one of `[end]`.
struct TextSection {
    ObjectKind kind = ObjectKind::none;
    int index = 0;  // in the array of its kind
    int firstLine = 0;
    int lastLine = 0;
};

struct GeneratedText {
    std::string text;  // UTF-8, lines ended by CR LF
    std::vector<TextSection> sections;
    Journal journal;
};

// `comments` is null for a document from text or a new one.
[[nodiscard]] GeneratedText genererTexte(const Document& document, const GeneratorContext& context,
                                         const SourceComments* comments);

// One object's section, from `[_polygon]`, `[_line]` or `[_point]` to `[end]`, with its line end.
void AffichePolygone(const Polygone& polygone, const GeneratorContext& context, int CodePage,
                     std::string& text, Journal& journal);
void AffichePolyline(const Polyline& polyline, const GeneratorContext& context, int CodePage,
                     std::string& text, Journal& journal);
void AffichePOI(const POI& poi, const GeneratorContext& context, int CodePage, std::string& text,
                Journal& journal);

// The date of a header as `lblDateCreation` shows it: "dd/mm/yyyy    hh:mm:ss     ".
[[nodiscard]] std::string creationDateText(const EnteteTYP& header);

// What the document holds that text has no place for.
struct TextLosses {
    bool extraPoi = false;
    bool specialLabels = false;
    bool rawBlock = false;
    bool betweenSections = false;
    int subtypes = 0;    // polygons and lines whose subtype isn't written
    int labels = 0;      // that come back shortened or with other blanks
    int activities = 0;  // of Active Routing lines that come back as another one
    [[nodiscard]] bool any() const {
        return extraPoi || specialLabels || rawBlock || betweenSections || subtypes > 0 ||
               labels > 0 || activities > 0;
    }
};
[[nodiscard]] TextLosses textLosses(const Document& document);

}  // namespace quillmark
