#include "typ/reader.h"

#include <algorithm>
#include <initializer_list>

#include "typ/draw_order_section.h"
#include "typ/extra_poi_section.h"
#include "typ/header.h"
#include "typ/label_sections.h"
#include "typ/poi_records.h"
#include "typ/polygon_records.h"
#include "typ/polyline_records.h"

namespace quillmark {
namespace {

constexpr std::size_t kRuleLength = 150;
constexpr std::int32_t kDefaultCodePage = 1252;

std::string magicMessage(const ReadContext& context) {
    const std::string rule(kRuleLength, '-');
    return rule + "\r\n" +
           context.Trad("Main",
                        "Le fichier semble être corrompu ou ne pas être un fichier TYP valide",
                        "msgTYPNonValide") +
           "\r\n" + rule + "\r\n\r\n\r\n";
}

void takeDate(EnteteTYP& header) {
    if (header.year < 2000) {
        header.year = static_cast<std::uint16_t>(header.year + 1900);
    }
    header.month = std::min<std::uint8_t>(header.month, 12);
}

void takeCodePage(ReadContext& context, Document& document) {
    std::uint16_t& codePage = document.EnteteTYP.codePage;
    if (codePageIndex(codePage) < 0) {
        const std::string next = "\r\n";
        context.add(
            JournalKind::warning,
            context.Trad("Main", "Numéro de page de code inconnu:", "msgCodePageInvalide1") + ' ' +
                std::to_string(codePage) + next +
                context.Trad("Main", "Quillmark l'a remplacé par 1252.", "msgCodePageInvalide2") +
                next +
                context.Trad("Main",
                             "Si cela ne convient pas, sélectionner un autre numéro de page de "
                             "code dans le déroulant \"Page de code\".",
                             "msgCodePageInvalide3"));
        codePage = kDefaultCodePage;
    }
    document.CodePage = codePage;
}

// Where the first section begins; the end of the file without any.
std::size_t firstSection(const Document& document, std::size_t fileSize) {
    const EnteteTYP& base = document.EnteteTYP;
    std::size_t first = fileSize;
    const auto consider = [&first](std::initializer_list<std::uint32_t> offsets) {
        for (const std::uint32_t offset : offsets) {
            if (offset > 0) {
                first = std::min<std::size_t>(first, offset);
            }
        }
    };
    consider({base.polygonData.offset, base.polylineData.offset, base.poiData.offset,
              base.drawOrder.offset});
    if (base.headerSize >= kExtraPoiHeaderEnd) {
        consider({document.EnteteExtraPOI.data.offset, document.EnteteExtraPOI.index.offset});
    }
    const EnteteLabels& labels = document.EnteteLabels;
    if (base.headerSize >= kLabelsHeaderEnd) {
        consider({labels.strings.offset, labels.tableA.offset, labels.tableB.offset});
    }
    // Otherwise a file with nothing but a block would keep it twice.
    if (document.BlocSource == BlocSourceKind::own) {
        consider({document.EnteteBloc.bloc.offset});
    }
    return first;
}

void readBetween(ReadContext& context, Document& document) {
    const std::size_t start = std::max<std::size_t>(kBaseHeaderEnd, document.EnteteTYP.headerSize);
    const std::size_t first = firstSection(document, context.file().size());
    if (context.file().size() < start) {
        context.error(ErrorNumber::readPastEnd, "le fichier finit dans son en-tête");
        return;
    }
    if (first < start) {
        context.error(ErrorNumber::other, "la première section, position " + std::to_string(first) +
                                              ", commence dans l'en-tête");
        return;
    }
    const ByteView between = context.file().subspan(start, first - start);
    document.EntreSections.assign(between.begin(), between.end());
    context.charge(between.size());
}

// Ordinary and Active Routing lines in the order of the document.
std::vector<IndexEntry> readPolylineIndexes(ReadContext& context, const Document& document) {
    std::vector<IndexEntry> lines =
        readIndex(context, document.EnteteTYP.polylineIndex, IndexKind::plain, kMaxObjects);
    const std::vector<IndexEntry> activeRouting =
        readIndex(context, document.EnteteActiveRouting.index, IndexKind::activeRouting,
                  kMaxObjects - lines.size());
    lines.insert(lines.end(), activeRouting.begin(), activeRouting.end());
    sortPolylineIndex(lines);
    return lines;
}

void readSections(ReadContext& context, Document& document) {
    const EnteteTYP& base = document.EnteteTYP;
    const auto polygons = readIndex(context, base.polygonIndex, IndexKind::plain, kMaxObjects);
    const auto polylines = readPolylineIndexes(context, document);
    const auto pois = readIndex(context, base.poiIndex, IndexKind::plain, kMaxObjects);
    readDrawOrder(context, document);
    document.ExtraPOI = readExtraPoiIndex(context, document.EnteteExtraPOI);
    readPolygons(context, base.polygonData, polygons, document.Polygone);
    readPolylines(context, base.polylineData, polylines, document.Polyline);
    readPois(context, base.poiData, pois, document);
    readExtraPoiMembers(context, document);
}

}  // namespace

OpenedTyp ouvrir(ByteView file, const Traduction& traduction) {
    OpenedTyp opened;
    Document& document = opened.document;
    ReadContext context(file, traduction, opened.journal);
    readBaseHeader(context, document);
    EnteteTYP& header = document.EnteteTYP;
    opened.hasMagic = header.magic == kMagic;
    if (!opened.hasMagic) {
        // What isn't a TYP file needs no word about the length of its header.
        opened.journal.clear();
        context.add(JournalKind::error, magicMessage(context));
    }
    takeDate(header);
    document.FID = std::to_string(header.FID);
    document.ProductCode = std::to_string(header.ProductCode);
    takeCodePage(context, document);
    readHeaderExtensions(context, document);
    readLabels(context, document);
    readBloc(context, document);
    readSections(context, document);
    context.setObject({});
    readBetween(context, document);
    return opened;
}

}  // namespace quillmark
