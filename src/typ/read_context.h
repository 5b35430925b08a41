// What all steps of reading a TYP file share: the bytes, the journal with the object that is being
// read, and a bound on what a file may cost.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/bytes.h"
#include "core/journal.h"
#include "core/records.h"
#include "core/translation.h"

namespace quillmark {

// The object named in messages; its text is made only when there is something to say.
struct ReadObject {
    ObjectKind kind = ObjectKind::none;
    std::uint16_t identity = 0;
};

class ReadContext {
  public:
    ReadContext(ByteView file, const Traduction& traduction, Journal& journal);

    [[nodiscard]] ByteView file() const noexcept { return file_; }
    void setObject(ReadObject object) noexcept { object_ = object; }
    // Entries lead to this Extra POI group until it is none; their words stay as they are.
    void setGroup(std::optional<std::uint32_t> BrandID) noexcept { group_ = BrandID; }
    [[nodiscard]] std::string Trad(std::string_view section, std::string_view defaut,
                                   std::string_view cle) const {
        return traduction_.Trad(section, defaut, cle);
    }

    // Runs one step: a failure becomes one entry of the journal, and what comes next goes on.
    template <typename Step>
    bool guarded(Step&& step) {
        try {
            std::forward<Step>(step)();
            return true;
        } catch (...) {
            error(currentErrorFacts());
            return false;
        }
    }
    void error(const ErrorFacts& facts);
    void error(ErrorNumber number, std::string description) {
        error(ErrorFacts{number, std::move(description)});
    }
    void errors(const std::vector<ErrorFacts>& failures) {
        for (const ErrorFacts& facts : failures) {
            error(facts);
        }
    }
    // "Attention: ", the complaint, four blanks.
    void warning(const std::string& complaint);
    void add(JournalKind kind, std::string text);
    // False once the journal takes no more: long texts needn't be composed then.
    [[nodiscard]] bool journalOpen() const noexcept { return journalCost_ <= journalLimit_; }

    // Bytes kept from the file. Records may overlap, so their sum isn't bounded by the file.
    void charge(std::size_t bytes) noexcept { cost_ += bytes; }
    // False when so many missing bytes have been made up that these can't be too.
    [[nodiscard]] bool pad(std::size_t bytes);
    // True when the file has cost all it may; told once.
    [[nodiscard]] bool exhausted();

    // "Erreur dans la lecture du polygone 0x00a/00"; empty without object.
    [[nodiscard]] std::string contextMessage() const;

  private:
    ByteView file_;
    const Traduction& traduction_;
    Journal& journal_;
    ReadObject object_;
    std::optional<std::uint32_t> group_;
    std::size_t cost_ = 0;
    std::size_t padding_ = 0;
    std::size_t costLimit_;
    std::size_t journalCost_ = 0;
    std::size_t journalLimit_;
    bool exhaustionTold_ = false;
    std::array<bool, 2> closingTold_{};  // by JournalKind
};

// " 0x00a/00"
[[nodiscard]] std::string identityText(std::uint16_t identity);

}  // namespace quillmark
