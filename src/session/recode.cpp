#include "session/recode.h"

#include <algorithm>

#include "text/code_pages.h"

namespace quillmark {
namespace {

// Largest content of a label block, by what its two-byte prefix holds.
constexpr std::size_t kLargestBlock = 16383;
constexpr std::size_t kLargestShortBlock = 127;

class Recoder {
  public:
    Recoder(int from, int to) : from_(from), to_(to) {}

    // Texts in a row, each ended by a zero.
    Bytes texts(ByteView block, LabelLoss& loss) const {
        Bytes result;
        while (!block.empty()) {
            text(block, result, loss);
        }
        return result;
    }

    void labels(Bytes& block, LabelLoss loss, std::vector<LabelLoss>& losses) const {
        const std::size_t prefix = block.empty() || (block[0] & 1U) != 0 ? 1 : 2;
        if (block.size() <= prefix) {
            return;
        }
        const ByteView old = ByteView(block).subspan(prefix);
        Bytes content;
        for (ByteView rest = old; !rest.empty() && !loss.cut;) {
            const std::size_t start = content.size();
            content.push_back(rest[0]);
            rest = rest.subspan(1);
            text(rest, content, loss);
            if (content.size() > kLargestBlock) {
                content.resize(start);
                loss.cut = true;
            }
        }
        if (loss.lost > 0 || loss.cut) {
            losses.push_back(loss);
        }
        if (std::equal(content.begin(), content.end(), old.begin(), old.end())) {
            return;
        }
        ByteWriter writer;
        if (content.size() <= kLargestShortBlock) {
            writer.u8(static_cast<std::uint8_t>(content.size() * 2 + 1));
        } else {
            writer.u16(static_cast<std::uint32_t>(content.size() * 4 + 2));
        }
        writer.bytes(content);
        block = writer.release();
    }

  private:
    // Takes one text and its zero off the front of `block`.
    void text(ByteView& block, Bytes& result, LabelLoss& loss) const {
        const auto end = std::find(block.begin(), block.end(), 0);
        const auto size = static_cast<std::size_t>(end - block.begin());
        const EncodedText encoded = textToBytes(bytesToText(block.first(size), from_), to_);
        loss.lost += encoded.lost;
        result.insert(result.end(), encoded.bytes.begin(), encoded.bytes.end());
        block = block.subspan(size);
        if (!block.empty()) {
            result.push_back(0);
            block = block.subspan(1);
        }
    }

    int from_;
    int to_;
};

}  // namespace

std::vector<LabelLoss> recodeLabels(Document& document, int CodePage) {
    std::vector<LabelLoss> losses;
    const Recoder recoder(document.CodePage, CodePage);
    document.CodePage = CodePage;
    const auto all = [&](auto& records, LabelLoss where, int LabelLoss::*number) {
        for (auto& record : records) {
            recoder.labels(record.Strings, where, losses);
            ++(where.*number);
        }
    };
    all(document.Polygone, {ObjectKind::Polygone}, &LabelLoss::index);
    all(document.Polyline, {ObjectKind::Polyline}, &LabelLoss::index);
    all(document.POI, {ObjectKind::POI}, &LabelLoss::index);
    LabelLoss group{ObjectKind::ExtraPOI};
    for (ExtraPOI& extra : document.ExtraPOI) {
        all(extra.POI, group, &LabelLoss::member);
        ++group.index;
    }
    LabelLoss special;
    document.LabelsStrings = recoder.texts(document.LabelsStrings, special);
    if (special.lost > 0) {
        losses.push_back(special);
    }
    return losses;
}

}  // namespace quillmark
