// Speed of opening, saving, generating and parsing, beside the cost of copying the same bytes in
// memory and of reading and writing them as a file, all measured in one run.
//   quillmark_bench [benchmark options] [FILE.typ] [FILE.txt]
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "bench/large_document.h"
#include "core/files.h"
#include "session/open.h"
#include "text/generator.h"
#include "text/parser.h"
#include "typ/reader.h"
#include "typ/writer.h"

namespace quillmark::bench {
namespace {

namespace fs = std::filesystem;

// One document in the three forms that are measured.
struct Subject {
    std::string name;
    Document document;
    Bytes typ;
    std::string text;
};

std::unique_ptr<Subject> subjectFrom(std::string name, Document document) {
    auto subject = std::make_unique<Subject>();
    subject->name = std::move(name);
    if (document.FID.empty()) {
        document.FID = document.ProductCode = "1";
    }
    WrittenTyp written = CreerTYP(std::move(document), DateTime{});
    subject->document = std::move(written.document);
    subject->typ = std::move(written.file);
    subject->text = genererTexte(subject->document, {}, nullptr).text;
    return subject;
}

// Work is measured by the time of the processor, which other programs don't lengthen; files also
// by the time spent waiting for the disk.
enum class Clock { processor, wall };

template <typename Step>
void measure(const Subject& subject, const std::string& what, std::size_t bytes, Step step,
             Clock clock = Clock::processor) {
    auto* registered = benchmark::RegisterBenchmark(
        (subject.name + '/' + what).c_str(), [bytes, step](benchmark::State& state) {
            for (auto _ : state) {
                step();
            }
            state.SetBytesProcessed(static_cast<std::int64_t>(bytes) *
                                    static_cast<std::int64_t>(state.iterations()));
        });
    registered->Unit(benchmark::kMicrosecond);
    if (clock == Clock::wall) {
        registered->UseRealTime();
    }
}

ByteView bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

void baselines(const Subject& subject, const std::string& form, ByteView bytes,
               const fs::path& folder) {
    const auto copy = std::make_shared<Bytes>(bytes.size());
    measure(subject, "copy_" + form, bytes.size(), [bytes, copy] {
        std::memcpy(copy->data(), bytes.data(), bytes.size());
        benchmark::DoNotOptimize(copy->data());
        benchmark::ClobberMemory();
    });
    const fs::path file = folder / (subject.name + '.' + form);
    replaceFile(file, bytes);
    measure(
        subject, "read_" + form, bytes.size(), [file] { benchmark::DoNotOptimize(readFile(file)); },
        Clock::wall);
    measure(
        subject, "write_" + form, bytes.size(), [file, bytes] { replaceFile(file, bytes); },
        Clock::wall);
}

void measureAll(const Subject& s, const fs::path& folder) {
    baselines(s, "typ", s.typ, folder);
    baselines(s, "txt", bytesOf(s.text), folder);
    measure(s, "open", s.typ.size(),
            [&s] { benchmark::DoNotOptimize(ouvrir(s.typ, Traduction())); });
    measure(s, "save", s.typ.size(),
            [&s] { benchmark::DoNotOptimize(CreerTYP(s.document, DateTime{})); });
    measure(s, "generate", s.text.size(),
            [&s] { benchmark::DoNotOptimize(genererTexte(s.document, {}, nullptr)); });
    measure(s, "parse", s.text.size(), [&s] {
        benchmark::DoNotOptimize(ouvrirtxt(s.text, Document{}, {}, nullptr, Traduction()));
    });
}

// Prints as usual and keeps the speeds.
class Collector : public benchmark::ConsoleReporter {
  public:
    Collector() : ConsoleReporter(OO_None) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const auto speed = run.counters.find("bytes_per_second");
            if (speed != run.counters.end()) {
                std::string name = run.run_name.function_name;
                speeds_[name] = speed->second.value / 1e6;
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }
    void summary(const Subject& subject) const {
        std::printf("\n%s: %zu bytes of TYP, %zu bytes of text\n", subject.name.c_str(),
                    subject.typ.size(), subject.text.size());
        std::printf("%-10s %10s %14s %14s %14s\n", "", "MB/s", "x copying", "x reading",
                    "x writing");
        for (const auto& [what, form] : {std::pair{"open", "typ"}, std::pair{"save", "typ"},
                                         std::pair{"generate", "txt"}, std::pair{"parse", "txt"}}) {
            const double own = speed(subject, what);
            // clang 14 captures no structured bindings by themselves.
            const auto times = [&, form = form](const char* baseline) {
                return speed(subject, std::string(baseline) + form) / own;
            };
            std::printf("%-10s %10.0f %14.1f %14.2f %14.2f\n", what, own, times("copy_"),
                        times("read_"), times("write_"));
        }
    }

  private:
    [[nodiscard]] double speed(const Subject& subject, const std::string& what) const {
        const auto found = speeds_.find(subject.name + '/' + what);
        return found == speeds_.end() ? 0 : found->second;
    }
    std::map<std::string, double> speeds_;  // MB/s
};

std::vector<fs::path> inputs(int argc, char** argv) {
    std::vector<fs::path> files(argv + 1, argv + argc);
    if (files.empty()) {
        for (const auto& entry : fs::directory_iterator(QUILLMARK_EXAMPLES)) {
            if (entry.path().extension() == ".txt") {
                files.push_back(entry.path());
            }
        }
    }
    return files;
}

int run(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const fs::path folder = fs::temp_directory_path() / "quillmark-bench";
    fs::create_directories(folder);
    std::vector<std::unique_ptr<Subject>> subjects;
    for (const fs::path& file : inputs(argc, argv)) {
        OpenedFile opened = openFile(file, TextFileEncoding::automatic, Traduction());
        subjects.push_back(subjectFrom(file.filename().string(), std::move(opened.document)));
        if (opened.OuvertEnTexte) {
            // As its author wrote it, not as it is generated.
            subjects.back()->text =
                decodeTextFile(readFile(file), TextFileEncoding::automatic).text;
        }
    }
    subjects.push_back(subjectFrom("largest", largeDocument(kMaxObjects)));
    for (const auto& subject : subjects) {
        measureAll(*subject, folder);
    }
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    std::printf(
        "\nTimes are given as multiples: 3 x copying takes three times as long as copying "
        "the same bytes.\n");
    for (const auto& subject : subjects) {
        collector.summary(*subject);
    }
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return 0;
}

}  // namespace
}  // namespace quillmark::bench

int main(int argc, char** argv) {
    try {
        return quillmark::bench::run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
