// What is wrong with a language file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "languages/source_texts.h"

namespace quillmark::languages {

// Texts without a key in the file.
std::vector<SourceText> lackingTexts(std::string_view content,
                                     const std::vector<SourceText>& texts);
// Keys that nothing asks for, and values that can't stand for their default, one line each.
std::vector<std::string> faultsOf(std::string_view content, const std::vector<SourceText>& texts);

// Keys that a language file can't tell apart, and defaults that it can't hold.
std::vector<std::string> faultsOf(const std::vector<SourceText>& texts);

}  // namespace quillmark::languages
