#include "text/unchanged_sections.h"

#include <algorithm>
#include <string>
#include <vector>

#include "text/format.h"
#include "text/text_source.h"
#include "text/view_text.h"

namespace quillmark {
namespace {

struct Section {
    std::size_t firstLine = 0;
    std::size_t lastLine = 0;
    std::string text;  // lines without regard to how they end
};

std::string join(const std::vector<std::string_view>& lines, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t i = first; i <= last && i < lines.size(); ++i) {
        text.append(lines[i]);
        text.push_back('\n');
    }
    return text;
}

bool isObjectName(std::string_view line) {
    return line == format::kPolygon || line == format::kLine || line == format::kPoint;
}

// Whole sections, spelled as the generator spells their first and last line: others were edited.
std::vector<Section> findSections(std::string_view text) {
    const std::vector<std::string_view> lines = splitLines(text);
    std::vector<Section> sections;
    std::size_t first = lines.size();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (isObjectName(lines[i])) {
            first = i;
        } else if (lines[i] == format::kObjectEnd && first < i) {
            sections.push_back({first, i, join(lines, first, i)});
            first = lines.size();
        }
    }
    return sections;
}

std::vector<Section> shownSections(std::string_view text,
                                   const std::vector<TextSection>& generated) {
    const std::vector<std::string_view> lines = splitLines(text);
    std::vector<Section> sections;
    for (const TextSection& section : generated) {
        const auto first = static_cast<std::size_t>(section.firstLine);
        const auto last = static_cast<std::size_t>(section.lastLine);
        sections.push_back({first, last, join(lines, first, last)});
    }
    return sections;
}

}  // namespace

UnchangedSections::UnchangedSections(const GeneratedText* generated, std::string_view edited) {
    if (generated == nullptr) {
        return;
    }
    const std::string shown = viewableText(generated->text);
    hadUnshown_ = shown != generated->text;
    const std::vector<Section> before = shownSections(shown, generated->sections);
    const std::vector<Section> after = findSections(viewableText(std::string(edited)));
    const auto match = [&](std::size_t old, std::size_t now) {
        const TextSection& source = generated->sections[old];
        matches_[after[now].firstLine] = {source.kind, source.index, after[now].lastLine};
    };
    // Different records can have the same text, so what stands before and behind the edited part
    // is matched by its place; within it equal texts are matched in their order.
    const std::size_t common = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < common && before[head].text == after[head].text) {
        match(head, head);
        ++head;
    }
    std::size_t tail = 0;
    while (tail < common - head &&
           before[before.size() - 1 - tail].text == after[after.size() - 1 - tail].text) {
        match(before.size() - 1 - tail, after.size() - 1 - tail);
        ++tail;
    }
    std::unordered_map<std::string_view, std::vector<std::size_t>> left;
    for (std::size_t i = before.size() - tail; i-- > head;) {
        left[before[i].text].push_back(i);
    }
    for (std::size_t i = head; i + tail < after.size(); ++i) {
        const auto found = left.find(after[i].text);
        if (found != left.end() && !found->second.empty()) {
            match(found->second.back(), i);
            found->second.pop_back();
        }
    }
}

const UnchangedSections::Match* UnchangedSections::at(std::size_t firstLine) const {
    const auto found = matches_.find(firstLine);
    return found == matches_.end() ? nullptr : &found->second;
}

}  // namespace quillmark
