#include <algorithm>
#include <ostream>
#include <string>

#include "batch/commands.h"
#include "batch/wording.h"
#include "core/clock.h"
#include "core/paths.h"
#include "core/profile.h"
#include "session/save.h"
#include "text/generator.h"
#include "text/recode.h"
#include "typ/writer.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

// Header sizes from which on the special labels and the raw block are kept.
constexpr int kHeaderWithLabels = 156;
constexpr int kHeaderWithBlock = 164;

ExitStatus statusOf(const Journal& journal) {
    return journal.ErreurFlag() ? ExitStatus::errors : ExitStatus::fine;
}

SourceComments sourceComments(const std::string& name, const OpenedFile& opened) {
    SourceComments comments;
    if (name != kStandardStream) {
        const std::u8string folder = fs::absolute(pathFromUtf8(name)).parent_path().u8string();
        comments.folder.assign(folder.begin(), folder.end());
    }
    comments.fileSize = std::to_string(opened.fileSize);
    comments.compiledAt = creationDateText(opened.document.EnteteTYP);
    comments.now = currentDateTime();
    return comments;
}

std::string listed(const TextLosses& losses) {
    std::string list;
    const auto add = [&](bool lost, std::string_view what) {
        if (lost) {
            list += list.empty() ? "" : ", ";
            list += what;
        }
    };
    add(losses.extraPoi, wording::kExtraPoi);
    add(losses.specialLabels, wording::kSpecialLabels);
    add(losses.rawBlock, wording::kRawBlock);
    add(losses.betweenSections, wording::kBetweenSections);
    add(losses.subtypes > 0, std::to_string(losses.subtypes) + std::string(wording::kSubtypes));
    add(losses.labels > 0, std::to_string(losses.labels) + std::string(wording::kLabelsChanged));
    add(losses.activities > 0,
        std::to_string(losses.activities) + std::string(wording::kActivitiesChanged));
    return list;
}

void tellLosses(const std::vector<LabelLoss>& losses, const Document& document,
                const std::string& name, Console& console) {
    const auto identity = [](std::string_view kind, const auto& record) {
        return std::string(kind) + " 0x" + record.Type + "/" + record.SubType;
    };
    for (const LabelLoss& loss : losses) {
        const auto index = static_cast<std::size_t>(loss.index);
        std::string object;
        switch (loss.kind) {
            case ObjectKind::Polygone:
                object = identity(wording::kPolygon, document.Polygone[index]);
                break;
            case ObjectKind::Polyline:
                object = identity(wording::kLine, document.Polyline[index]);
                break;
            case ObjectKind::POI:
                object = identity(wording::kPoint, document.POI[index]);
                break;
            case ObjectKind::ExtraPOI:
                object = std::string(wording::kExtraPoi) + ' ' +
                         std::to_string(document.ExtraPOI[index].BrandID);
                break;
            case ObjectKind::none:
                object = wording::kSpecialLabels;
        }
        if (loss.lost > 0) {
            console.tell(
                name, JournalKind::warning,
                object + ": " + std::to_string(loss.lost) + std::string(wording::kLostCharacters));
        }
        if (loss.cut) {
            console.tell(name, JournalKind::warning,
                         object + ": " + std::string(wording::kLabelsCut));
        }
    }
}

// What a header of `size` bytes would leave out of the file without a question; empty when nothing.
std::string_view silentLoss(const Document& document, int size) {
    if (size < kHeaderWithLabels &&
        !(document.LabelsStrings.empty() && document.LabelsTableA.empty() &&
          document.LabelsTableB.empty())) {
        return wording::kLosesLabels;
    }
    if (size < kHeaderWithBlock && !document.BlocBrut.empty()) {
        return wording::kLosesBlock;
    }
    const bool unknown = std::any_of(document.EnteteInconnu.begin(), document.EnteteInconnu.end(),
                                     [](std::uint8_t byte) { return byte != 0; });
    return unknown && size != document.TailleEntete ? wording::kLosesUnknown : std::string_view();
}

}  // namespace

ExitStatus writeText(const BatchOptions& options, const fs::path& dataFolder, Console& console) {
    const std::string& name = options.inputs.front();
    const auto opened = console.open(name);
    if (!opened) {
        return ExitStatus::errors;
    }
    const Document& document = opened->document;
    const Profile types = Profile::load(dataFolder / "MPCTypes.txt");
    GeneratorContext context;
    context.settings.FormatPOI = options.longPoiCode;
    context.settings.EcrireTrueColors = options.trueColours;
    context.types = &types;
    context.traduction = &console.traduction;
    const SourceComments comments = sourceComments(name, *opened);
    const bool withComments = options.headerComments && !opened->OuvertEnTexte;
    const GeneratedText generated =
        genererTexte(document, context, withComments ? &comments : nullptr);

    Journal journal = opened->journal;
    journal.append(generated.journal);
    console.tell(name, journal);
    if (const TextLosses losses = textLosses(document); losses.any()) {
        console.tell(name, JournalKind::warning,
                     std::string(wording::kNoPlaceInText) + listed(losses));
    }
    const EncodedText encoded =
        textToBytes(generated.text, options.utf8 ? kUtf8 : document.CodePage);
    if (encoded.lost > 0) {
        console.tell(options.output, JournalKind::warning,
                     std::to_string(encoded.lost) + std::string(wording::kLostCharacters));
    }
    return console.write(options.output, encoded.bytes) ? statusOf(journal) : ExitStatus::errors;
}

ExitStatus writeTyp(const BatchOptions& options, Console& console) {
    const std::string& name = options.inputs.front();
    auto opened = console.open(name, options.codePage.value_or(0));
    if (!opened) {
        return ExitStatus::errors;
    }
    Document& document = opened->document;
    if (options.codePage) {
        tellLosses(recodeLabels(document, *options.codePage), document, name, console);
    }
    if (options.fid) {
        document.FID = std::to_string(*options.fid);
    }
    if (options.productCode) {
        document.ProductCode = std::to_string(*options.productCode);
    }
    console.tell(name, opened->journal);

    if (options.headerSize) {
        if (const auto loss = silentLoss(document, *options.headerSize); !loss.empty()) {
            console.tell(name, JournalKind::error, loss);
            return ExitStatus::errors;
        }
        document.TailleEntete = *options.headerSize;
    } else if (opened->OuvertEnTexte) {
        document.TailleEntete = smallestHeader(document);
    }
    RefusingDialogues dialogues(console, options.output);
    if (options.output == kStandardStream) {
        const auto written = composeTyp(document, dialogues, console.traduction);
        if (!written || !console.write(options.output, written->file)) {
            return ExitStatus::errors;
        }
    } else if (CreerTYP(document, pathFromUtf8(options.output), false, dialogues,
                        console.traduction)
                   .status != SaveStatus::saved) {
        return ExitStatus::errors;
    }
    return statusOf(opened->journal);
}

}  // namespace quillmark
