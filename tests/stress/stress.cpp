// Opens files cut short and damaged at random, shows some as text and saves them. None may crash,
// take longer than a second (and one for each 10 MB of text), or more memory than 64 MiB and ten
// times the file (and the text).
//   quillmark_stress [--cuts N] [--damages N] [--seed N] FILE...
// `--cuts 0` (the default) cuts at every length. A text also runs as the TYP file made from it.
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <new>
#include <random>
#include <string>

#include "core/files.h"
#include "session/open.h"
#include "text/generator.h"
#include "typ/writer.h"

namespace {

// Bytes that the program holds by operator new, now and at most.
std::size_t held = 0;
std::size_t mostHeld = 0;

void* allocateOrNull(std::size_t size) noexcept {
    void* memory = std::malloc(size);
    held += malloc_usable_size(memory);
    mostHeld = std::max(mostHeld, held);
    return memory;
}

void* allocate(std::size_t size) {
    void* memory = allocateOrNull(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void release(void* memory) noexcept {
    if (memory != nullptr) {
        held -= malloc_usable_size(memory);
        std::free(memory);
    }
}

}  // namespace

// All of them, since the standard library asks for memory in each way.
void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocateOrNull(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    release(memory);
}
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    release(memory);
}
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept {
    release(memory);
}

namespace quillmark {
namespace {

namespace fs = std::filesystem;

struct Options {
    std::size_t cuts = 0;
    std::size_t damages = 10000;
    unsigned seed = 1;
    std::vector<fs::path> files;
};

class Stress {
  public:
    explicit Stress(const Options& options) : options_(options), random_(options.seed) {}

    void run(const std::string& name, const Bytes& file, bool isText) {
        name_ = name;
        isText_ = isText;
        const std::size_t step =
            options_.cuts == 0 ? 1 : std::max<std::size_t>(1, file.size() / options_.cuts);
        for (std::size_t length = 0; length <= file.size(); length += step) {
            open(ByteView(file).first(length), "cut", length);
        }
        for (std::size_t i = 0; i < options_.damages; ++i) {
            open(damaged(file), "damage", i);
        }
        std::printf("%s: %zu runs, slowest %.0f ms, most memory %zu KiB above %zu times the file\n",
                    name.c_str(), runs_, slowest_ * 1000, mostAbove_ / 1024, kTimesFile);
        runs_ = mostAbove_ = 0;
        slowest_ = 0;
    }
    [[nodiscard]] int faults() const { return faults_; }

  private:
    static constexpr std::size_t kTimesFile = 10;
    static constexpr std::size_t kMemory = std::size_t{64} << 20U;
    static constexpr double kSeconds = 1;
    static constexpr double kTextPerSecond = 10e6;
    // Showing and saving cost more than opening, and find less.
    static constexpr std::size_t kSaveEvery = 16;

    void open(ByteView bytes, const char* what, std::size_t number) {
        const std::size_t before = held;
        mostHeld = held;
        const std::clock_t start = std::clock();
        // Records may share the bytes of a damaged file, so that their text outgrows it by far.
        std::size_t text = 0;
        try {
            OpenedFile opened =
                openBytes(bytes, isText_, TextFileEncoding::automatic, Traduction());
            judgeMemory(bytes.size(), before, what, number);
            if (runs_ % kSaveEvery == 0) {
                text = genererTexte(opened.document, {}, nullptr).text.size();
                (void)CreerTYP(std::move(opened.document), DateTime{});
            }
        } catch (const Failure&) {
            // Not every document that a damaged file makes can be saved.
        }
        judgeMemory(bytes.size() + text, before, what, number);
        // Processor time: a busy machine is no fault of the file.
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        slowest_ = std::max(slowest_, seconds);
        if (seconds >= kSeconds * (1 + static_cast<double>(text) / kTextPerSecond)) {
            ++faults_;
            std::printf("FAULT %s: %s %zu, seed %u: %.1f s for %zu bytes\n", name_.c_str(), what,
                        number, options_.seed, seconds, bytes.size());
        }
        ++runs_;
    }

    void judgeMemory(std::size_t size, std::size_t before, const char* what, std::size_t number) {
        const std::size_t taken = mostHeld - before;
        const std::size_t above = taken - std::min(taken, kTimesFile * size);
        mostAbove_ = std::max(mostAbove_, above);
        if (above > kMemory) {
            ++faults_;
            std::printf("FAULT %s: %s %zu, seed %u: %zu bytes of memory for %zu bytes\n",
                        name_.c_str(), what, number, options_.seed, taken, size);
        }
    }

    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

    // One to eight faults: bytes changed, extreme numbers, pieces lost, doubled or foreign.
    Bytes damaged(const Bytes& file) {
        Bytes bytes = file;
        for (std::size_t faults = 1 + below(8); faults > 0; --faults) {
            // Headers and prefixes matter more than pixels.
            const std::size_t reach =
                below(2) == 0 ? std::min<std::size_t>(bytes.size(), 200) : bytes.size();
            const std::size_t at = below(reach);
            const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(at);
            const auto piece = static_cast<std::ptrdiff_t>(below(bytes.size() - at) % 300);
            switch (below(6)) {
                case 0:
                case 1:
                    if (!bytes.empty()) {
                        *place = static_cast<std::uint8_t>(random_());
                    }
                    break;
                case 2:
                    for (std::size_t i = at; i < std::min(at + 4, bytes.size()); ++i) {
                        bytes[i] = below(4) == 0 ? 0x7F : 0xFF;
                    }
                    break;
                case 3:
                    bytes.erase(place, place + piece);
                    break;
                case 4: {
                    const Bytes copy(place, place + piece);
                    bytes.insert(place, copy.begin(), copy.end());
                    break;
                }
                default:
                    bytes.insert(place, below(300), static_cast<std::uint8_t>(random_()));
            }
        }
        return bytes;
    }

    Options options_;
    std::mt19937 random_;
    std::string name_;
    bool isText_ = false;
    std::size_t runs_ = 0;
    double slowest_ = 0;
    std::size_t mostAbove_ = 0;
    int faults_ = 0;
};

bool saysText(const fs::path& file, const Bytes& bytes) {
    const std::string magic(bytes.begin() + 2,
                            bytes.begin() + std::min<std::ptrdiff_t>(12, std::ssize(bytes)));
    return magic != "GARMIN TYP" && file.parent_path().filename() != "bin";
}

int run(const Options& options) {
    Stress stress(options);
    for (const fs::path& file : options.files) {
        const Bytes bytes = readFile(file);
        const bool isText = bytes.size() > 2 && saysText(file, bytes);
        stress.run(file.filename().string(), bytes, isText);
        if (isText) {
            Document document =
                openBytes(bytes, true, TextFileEncoding::automatic, Traduction()).document;
            document.FID = document.ProductCode = "1";
            document.TailleEntete = smallestHeader(document);
            stress.run(file.filename().string() + " as TYP",
                       CreerTYP(std::move(document), DateTime{}).file, false);
        }
    }
    return stress.faults() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
    quillmark::Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const auto number = [&] { return std::strtoul(++i < argc ? argv[i] : "", nullptr, 10); };
        if (argument == "--cuts") {
            options.cuts = number();
        } else if (argument == "--damages") {
            options.damages = number();
        } else if (argument == "--seed") {
            options.seed = static_cast<unsigned>(number());
        } else {
            options.files.emplace_back(argument);
        }
    }
    if (options.files.empty()) {
        std::fputs("quillmark_stress [--cuts N] [--damages N] [--seed N] FILE...\n", stderr);
        return 3;
    }
    try {
        return quillmark::run(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
