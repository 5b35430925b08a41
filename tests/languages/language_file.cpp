#include "languages/language_file.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/ascii.h"
#include "core/profile.h"

namespace quillmark::languages {
namespace {

using Faults = std::vector<std::string>;

std::string folded(const std::string& section, const std::string& cle) {
    return loweredLatin1(section) + '\0' + loweredLatin1(cle);
}

// The same key may stand with several defaults.
std::map<std::string, std::vector<const SourceText*>> byKey(const std::vector<SourceText>& texts) {
    std::map<std::string, std::vector<const SourceText*>> keys;
    for (const SourceText& text : texts) {
        keys[folded(text.section, text.cle)].push_back(&text);
    }
    return keys;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// What a sentence ends with: "..." counts as one sign; letters, and a blank to go on after, as
// none.
std::string ending(std::string_view text) {
    if (text.ends_with("...")) {
        return "...";
    }
    constexpr std::string_view kSigns = ".:;?!";
    return !text.empty() && kSigns.find(text.back()) != std::string_view::npos
               ? std::string(1, text.back())
               : std::string();
}

// Sizes, limits and names of encodings, which are the same in all languages.
std::multiset<std::string> numbers(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    std::multiset<std::string> found;
    for (std::size_t at = text.find_first_of(kDigits); at != std::string_view::npos;
         at = text.find_first_of(kDigits, at)) {
        const std::size_t end = std::min(text.find_first_not_of(kDigits, at), text.size());
        found.emplace(text.substr(at, end - at));
        at = end;
    }
    return found;
}

// "&&" is an ampersand; any other is before the access key.
int accessKeys(std::string_view text) {
    int count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size() && text[++i] != '&' && !isBlank(text[i])) {
            ++count;
        }
    }
    return count;
}

// Why `value` can't stand for `defaut`; empty when it can.
std::string misfit(const std::string& value, const std::string& defaut) {
    if (value.empty() || defaut.empty()) {
        return value.empty() == defaut.empty() ? "" : "is empty";
    }
    // More blanks than French needs are a matter of the language ("n°5", "no. 5").
    if ((isBlank(defaut.front()) && !isBlank(value.front())) ||
        (isBlank(defaut.back()) && !isBlank(value.back()))) {
        return "lacks a blank at its beginning or end";
    }
    // Word order may need a colon where French goes straight on.
    const std::string end = ending(value);
    if (end != ending(defaut) && !(end == ":" && ending(defaut).empty())) {
        return "ends with other punctuation";
    }
    if (numbers(value) != numbers(defaut)) {
        return "holds other numbers";
    }
    if (accessKeys(value) != accessKeys(defaut)) {
        return "has other access keys";
    }
    return "";
}

void checkLines(std::string_view content, Faults& faults) {
    std::set<std::string> seen;
    std::string section;
    int number = 0;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        const std::string_view line = trimmed(content.substr(0, end));
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
        ++number;
        const std::string place = "line " + std::to_string(number) + ": ";
        const std::size_t equals = line.find('=');
        if (line.empty() || line[0] == ';') {
            continue;
        }
        if (line[0] == '[' && line.back() == ']') {
            section = line.substr(1, line.size() - 2);
            if (!seen.insert(folded(section, "")).second) {
                faults.push_back(place + "the section stands twice");
            }
        } else if (equals == std::string_view::npos || line.back() == '\r') {
            faults.push_back(place + "neither a section nor a key");
        } else if (const std::string cle(trimmed(line.substr(0, equals)));
                   !seen.insert(folded(section, cle)).second) {
            faults.push_back(place + cle + " stands twice");
        } else if (const std::string_view value = trimmed(line.substr(equals + 1));
                   value.size() > 1 && value.front() == value.back() &&
                   (value.front() == '"' || value.front() == '\'') && !isBlank(value[1]) &&
                   !isBlank(value[value.size() - 2])) {
            faults.push_back(place + "its quotes would be taken off");
        }
    }
}

void checkKeys(const Profile& profile, const std::vector<SourceText>& texts, Faults& faults) {
    const auto asked = byKey(texts);
    for (const std::string& section : profile.sections()) {
        for (const std::string& cle : profile.keys(section)) {
            const auto found = asked.find(folded(section, cle));
            const std::string name = "[" + section + "] " + cle;
            if (found == asked.end()) {
                faults.push_back(name + ": nothing asks for it");
                continue;
            }
            const std::string value = profile.find(section, cle).value_or("");
            const std::string fault = misfit(value, found->second.front()->defaut);
            const bool fits =
                std::any_of(found->second.begin(), found->second.end(),
                            [&](const auto* text) { return misfit(value, text->defaut).empty(); });
            if (!fits) {
                faults.push_back(name + ": \"" + value + "\" " + fault + ", unlike \"" +
                                 found->second.front()->defaut + "\"");
            }
        }
    }
}

}  // namespace

std::vector<SourceText> lackingTexts(std::string_view content,
                                     const std::vector<SourceText>& texts) {
    const Profile profile = Profile::parse(content);
    std::vector<SourceText> lacking;
    for (const auto& [key, uses] : byKey(texts)) {
        if (!profile.find(uses.front()->section, uses.front()->cle)) {
            lacking.push_back(*uses.front());
        }
    }
    return lacking;
}

Faults faultsOf(std::string_view content, const std::vector<SourceText>& texts) {
    Faults faults;
    checkLines(content, faults);
    checkKeys(Profile::parse(content), texts, faults);
    return faults;
}

Faults faultsOf(const std::vector<SourceText>& texts) {
    Faults faults;
    for (const auto& [key, uses] : byKey(texts)) {
        for (const SourceText* text : uses) {
            const std::string name = text->place + ": [" + text->section + "] " + text->cle;
            if (text->section != uses.front()->section || text->cle != uses.front()->cle) {
                faults.push_back(name + " and " + uses.front()->cle + " differ by case only");
            }
            if (text->defaut.find_first_of("\r\n") != std::string::npos) {
                faults.push_back(name + " has a line break, which no language file can hold");
            }
        }
    }
    return faults;
}

}  // namespace quillmark::languages
