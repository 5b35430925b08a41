// Runs of the command line within the test, on files of a folder that is gone afterwards.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "batch/batch.h"
#include "core/files.h"
#include "support/test_files.h"

namespace quillmark::testing {

struct BatchRun {
    int status = 0;
    std::string out;
    std::string err;
};

inline BatchRun runBatch(const std::vector<std::string>& arguments, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const int status = quillmark::runBatch(arguments, in, out, err);
    return {status, out.str(), err.str()};
}

class BatchTest : public ::testing::Test {
  protected:
    BatchTest() {
        ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);  // 2001-09-09 01:46:40
        ::setenv("QUILLMARK_DATA", dataFolder().c_str(), 1);
    }
    ~BatchTest() override {
        ::unsetenv("SOURCE_DATE_EPOCH");
        ::unsetenv("QUILLMARK_DATA");
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return (folder_.path() / name).string();
    }
    std::string write(const std::string& name, std::string_view content) const {
        writePlain(path(name), testing::bytesOf(content));
        return path(name);
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        const Bytes bytes = readFile(path(name));
        return {bytes.begin(), bytes.end()};
    }
    // Compiles a text, which has to go well, and gives the name of the file.
    std::string compile(const std::string& name, std::string_view text,
                        const std::string& option = "--fid=7") const {
        const BatchRun run = runBatch({"typ", write(name + ".txt", text), path(name), option});
        EXPECT_EQ(run.status, 0) << run.err;
        return path(name);
    }
    // What `info` says of a file behind a label.
    [[nodiscard]] std::string info(const std::string& name, const std::string& label) const;

  private:
    TemporaryFolder folder_;
};

// A style with one object of each kind, its labels in UTF-8.
inline std::string smallStyle(const std::string& codePage = "1252",
                              const std::string& label = "Forêt") {
    return "[_id]\nProductCode=1\nFID=7\nCodePage=" + codePage +
           "\n[End]\n"
           "[_drawOrder]\nType=0x050,1\n[End]\n"
           "[_polygon]\nType=0x50\nString1=0x01," +
           label +
           "\nXpm=\"0 0 1 0\"\n\"1 c #107020\"\n[end]\n"
           "[_line]\nType=0x05\nUseOrientation=Y\nLineWidth=3\nXpm=\"0 0 1 0\"\n"
           "\"1 c #FF8000\"\n[end]\n"
           "[_point]\nType=0x02f06\nString1=0x04,Bank\nDayXpm=\"2 2 2 1\"\n\"a c #FF0000\"\n"
           "\"b c #00FF00\"\n\"ab\"\n\"ba\"\n[end]\n";
}

inline bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The value behind a label of `info`.
inline std::string infoValue(const std::string& info, const std::string& label) {
    const std::string key = "\n  " + label + ": ";
    const std::size_t start = info.find(key);
    if (start == std::string::npos) {
        return "no line " + label;
    }
    const std::size_t value = start + key.size();
    return info.substr(value, info.find('\n', value) - value);
}

inline std::string BatchTest::info(const std::string& name, const std::string& label) const {
    return infoValue(runBatch({"info", path(name)}).out, label);
}

}  // namespace quillmark::testing
