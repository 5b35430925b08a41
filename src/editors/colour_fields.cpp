#include "editors/colour_fields.h"

#include <algorithm>

#include "bitmap/garmin_palette.h"
#include "bitmap/sixteen_bits.h"

namespace quillmark {
namespace {

bool isRgb(ChooserField field) {
    return field <= ChooserField::txtBlue;
}

int numberOf(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) {
        number = number * 10 + (digit - '0');
    }
    return number;
}

}  // namespace

int maximumOf(ChooserField field) {
    return !isRgb(field)                     ? kHlsFieldMax
           : field == ChooserField::txtGreen ? kSixBitsMax
                                             : kFiveBitsMax;
}

int ColourFields::value(ChooserField field) const {
    return numberOf(texts_[static_cast<std::size_t>(field)]);
}

void ColourFields::set(ChooserField field, int value) {
    texts_[static_cast<std::size_t>(field)] = std::to_string(value);
}

Hls ColourFields::hls() const {
    return hlsFromFields(
        {value(ChooserField::txtHue), value(ChooserField::txtSat), value(ChooserField::txtLum)});
}

void ColourFields::show(Couleur colour) {
    const Composantes parts = SeparerCouleur(colour);
    set(ChooserField::txtRed, levelOfByte(parts.red, kFiveBitsMax));
    set(ChooserField::txtGreen, levelOfByte(parts.green, kSixBitsMax));
    set(ChooserField::txtBlue, levelOfByte(parts.blue, kFiveBitsMax));
    showHls(colour);
}

void ColourFields::showHls(Couleur colour) {
    const HlsFields hls = fieldsFromHls(hlsOf(colour));
    set(ChooserField::txtHue, hls.hue);
    set(ChooserField::txtSat, hls.sat);
    set(ChooserField::txtLum, hls.lum);
}

std::optional<Couleur> ColourFields::change(ChooserField field, std::string_view typed) {
    std::string digits;
    std::copy_if(typed.begin(), typed.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    digits.resize(std::min(digits.size(), kFieldDigits));
    const int before = value(field);
    const int number = std::min(numberOf(digits), maximumOf(field));
    texts_[static_cast<std::size_t>(field)] =
        numberOf(digits) == number ? digits : std::to_string(number);
    if (number == before) {
        return std::nullopt;
    }
    const Couleur colour = typedColour(field);
    if (isRgb(field)) {
        showHls(colour);
    } else {
        // This way cuts bits off, where showing a colour scales: people know the numbers of both.
        set(ChooserField::txtRed, redOf(colour) >> 3);
        set(ChooserField::txtGreen, greenOf(colour) >> 2);
        set(ChooserField::txtBlue, blueOf(colour) >> 3);
    }
    return colour;
}

Couleur ColourFields::typedColour(ChooserField field) const {
    if (!isRgb(field)) {
        return couleurFromHls(hls());
    }
    return couleurFromRgb(byteOfLevel(value(ChooserField::txtRed), kFiveBitsMax),
                          byteOfLevel(value(ChooserField::txtGreen), kSixBitsMax),
                          byteOfLevel(value(ChooserField::txtBlue), kFiveBitsMax));
}

void ColourFields::leave(ChooserField field) {
    set(field, value(field));
}

}  // namespace quillmark
