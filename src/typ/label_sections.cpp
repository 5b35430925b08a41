#include "typ/label_sections.h"

#include <algorithm>

#include "typ/index_entries.h"

namespace quillmark {
namespace {

bool sharesStart(const Bytes& block, const Bytes& table) {
    return block.size() <= table.size() && std::equal(block.begin(), block.end(), table.begin());
}

SectionPlace writeSection(ByteWriter& writer, const Bytes& content) {
    if (content.empty()) {
        return {};
    }
    const std::size_t start = writer.position();
    writer.bytes(content);
    return placeBetween(start, writer.position());
}

}  // namespace

Bytes readSection(ReadContext& context, const SectionPlace& place) {
    if (place.size == 0) {
        return {};
    }
    const ByteView file = context.file();
    if (std::size_t{place.offset} + place.size > file.size()) {
        tellPastEnd(context, place);
    }
    const std::size_t start = std::min<std::size_t>(place.offset, file.size());
    const ByteView there =
        file.subspan(start, std::min<std::size_t>(place.size, file.size() - start));
    context.charge(there.size());
    return {there.begin(), there.end()};
}

void readLabels(ReadContext& context, Document& document) {
    document.LabelsStrings = readSection(context, document.EnteteLabels.strings);
    document.LabelsTableA = readSection(context, document.EnteteLabels.tableA);
    document.LabelsTableB = readSection(context, document.EnteteLabels.tableB);
}

void readBloc(ReadContext& context, Document& document) {
    SectionPlace& place = document.EnteteBloc.bloc;
    if (place.size == 0) {
        return;
    }
    const SectionPlace& tableA = document.EnteteLabels.tableA;
    const SectionPlace& tableB = document.EnteteLabels.tableB;
    const std::uint64_t end = std::uint64_t{place.offset} + place.size;
    const bool pastEnd = end > context.file().size();
    if (place.offset == tableA.offset && tableA.size > 0) {
        document.BlocSource = BlocSourceKind::tableA;
    } else if (place.offset == tableB.offset && tableB.size > 0) {
        document.BlocSource = BlocSourceKind::tableB;
    } else if (pastEnd && (place.size == tableB.size || place.size == tableA.size)) {
        // The place is damaged, but its size tells which table it shares.
        tellPastEnd(context, place);
        const bool isB = place.size == tableB.size;
        document.BlocSource = isB ? BlocSourceKind::tableB : BlocSourceKind::tableA;
        place.offset = isB ? tableB.offset : tableA.offset;
    } else {
        document.BlocSource = BlocSourceKind::own;
    }
    document.BlocBrut = readSection(context, place);
    if (document.BlocBrut.empty()) {
        place = {};
        document.BlocSource = BlocSourceKind::none;
    }
}

void writeLabels(ByteWriter& writer, Document& document) {
    document.EnteteLabels.strings = writeSection(writer, document.LabelsStrings);
    document.EnteteLabels.tableA = writeSection(writer, document.LabelsTableA);
    document.EnteteLabels.tableB = writeSection(writer, document.LabelsTableB);
}

void writeBloc(ByteWriter& writer, Document& document) {
    SectionPlace& place = document.EnteteBloc.bloc;
    if (document.BlocBrut.empty()) {
        place = document.EnteteLabels.tableB;
        return;
    }
    // A block is shared only when the table really holds its bytes: nothing may be lost.
    const auto size = static_cast<std::uint32_t>(document.BlocBrut.size());
    if (document.BlocSource == BlocSourceKind::tableA &&
        sharesStart(document.BlocBrut, document.LabelsTableA)) {
        place = {document.EnteteLabels.tableA.offset, size};
    } else if (document.BlocSource == BlocSourceKind::tableB &&
               sharesStart(document.BlocBrut, document.LabelsTableB)) {
        place = {document.EnteteLabels.tableB.offset, size};
    } else {
        document.BlocSource = BlocSourceKind::own;
        place = writeSection(writer, document.BlocBrut);
    }
}

}  // namespace quillmark
