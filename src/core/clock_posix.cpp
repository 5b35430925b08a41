#include "core/clock.h"

namespace quillmark {

std::tm localTime(std::time_t moment) {
    std::tm parts{};
    localtime_r(&moment, &parts);
    return parts;
}

}  // namespace quillmark
