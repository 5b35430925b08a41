#include "text/recode.h"

#include <algorithm>

#include "text/code_pages.h"
#include "text/labels.h"

namespace quillmark {
namespace {

class Recoder {
  public:
    Recoder(int from, int to) : from_(from), to_(to) {}

    void labels(Bytes& Strings, LabelLoss loss) {
        const std::vector<Label> decoded = decodeStrings(Strings, from_);
        EncodedStrings encoded = encodeStrings(decoded, to_);
        loss.lost = encoded.lost;
        // UTF-8 takes the stand-in for bytes that were no text in the old page.
        const auto raw = splitStrings(Strings);
        for (std::size_t i = 0; i < raw.size(); ++i) {
            loss.lost += isMalformed(raw[i].text, decoded[i].text, from_) ? 1U : 0U;
        }
        loss.cut = encoded.truncated;
        note(loss);
        if (!sameEntries(Strings, encoded.Strings)) {
            Strings = std::move(encoded.Strings);
        }
    }

    void specialLabels(Bytes& LabelsStrings) {
        LabelLoss loss;
        EncodedText encoded = textToBytes(bytesToText(LabelsStrings, from_), to_);
        loss.lost = encoded.lost;
        note(loss);
        LabelsStrings = std::move(encoded.bytes);
    }

    std::vector<LabelLoss> losses;

  private:
    void note(const LabelLoss& loss) {
        if (loss.lost > 0 || loss.cut) {
            losses.push_back(loss);
        }
    }
    // Blocks may be padded or have a longer prefix than they need: that stays when labels do.
    static bool sameEntries(ByteView a, ByteView b) {
        const auto left = splitStrings(a);
        const auto right = splitStrings(b);
        return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                          [](const RawLabel& one, const RawLabel& other) {
                              return one.language == other.language &&
                                     std::equal(one.text.begin(), one.text.end(),
                                                other.text.begin(), other.text.end());
                          });
    }

    int from_;
    int to_;
};

}  // namespace

std::vector<LabelLoss> recodeLabels(Document& document, int CodePage) {
    if (document.CodePage == CodePage) {
        return {};
    }
    Recoder recoder(document.CodePage, CodePage);
    document.CodePage = CodePage;
    const auto all = [&](auto& records, LabelLoss where, int LabelLoss::*number) {
        for (auto& record : records) {
            const auto before = static_cast<std::int32_t>(record.Strings.size());
            recoder.labels(record.Strings, where);
            record.Longueur += static_cast<std::int32_t>(record.Strings.size()) - before;
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
    recoder.specialLabels(document.LabelsStrings);
    return std::move(recoder.losses);
}

}  // namespace quillmark
