// The six number fields of the colour chooser: two groups that show one colour.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "bitmap/colour.h"
#include "bitmap/colour_spaces.h"

namespace quillmark {

enum class ChooserField : std::uint8_t { txtRed, txtGreen, txtBlue, txtHue, txtSat, txtLum };
inline constexpr std::size_t kChooserFields = 6;
inline constexpr std::size_t kFieldDigits = 3;

[[nodiscard]] int maximumOf(ChooserField field);

class ColourFields {
  public:
    [[nodiscard]] const std::array<std::string, kChooserFields>& texts() const { return texts_; }
    // An empty field counts 0.
    [[nodiscard]] int value(ChooserField field) const;
    // What hue, saturation and lightness say.
    [[nodiscard]] Hls hls() const;

    // A colour that wasn't typed stands in all fields.
    void show(Couleur colour);
    // Keeps the digits of what was typed, three at most, and cuts them to the maximum. When the
    // number is another one, yields the colour that the field's group now says, which the other
    // group shows. The own group stays as typed: put back from the colour, its numbers would often
    // be one lower.
    std::optional<Couleur> change(ChooserField field, std::string_view typed);
    // An empty field shows its 0.
    void leave(ChooserField field);

  private:
    void set(ChooserField field, int value);
    void showHls(Couleur colour);
    [[nodiscard]] Couleur typedColour(ChooserField field) const;

    std::array<std::string, kChooserFields> texts_;
};

}  // namespace quillmark
