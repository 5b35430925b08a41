#include "batch/options.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "core/ascii.h"
#include "core/document.h"
#include "text/code_pages.h"
#include "views/icon_sheet.h"

namespace quillmark {
namespace {

struct CommandName {
    std::string_view name;
    Command command;
};
constexpr std::array kCommands{CommandName{"text", Command::text}, CommandName{"typ", Command::typ},
                               CommandName{"icons", Command::icons},
                               CommandName{"check", Command::check},
                               CommandName{"info", Command::info}};

constexpr std::array kKinds{std::pair{std::string_view("polygon"), ObjectKind::Polygone},
                            std::pair{std::string_view("polyline"), ObjectKind::Polyline},
                            std::pair{std::string_view("poi"), ObjectKind::POI},
                            std::pair{std::string_view("extrapoi"), ObjectKind::ExtraPOI}};
constexpr std::array kLabelModes{std::pair{std::string_view("none"), LabelMode::none},
                                 std::pair{std::string_view("text"), LabelMode::text},
                                 std::pair{std::string_view("type"), LabelMode::type},
                                 std::pair{std::string_view("both"), LabelMode::typeAndText}};
constexpr int kLastLanguage = 54;

std::optional<int> numberWithin(std::string_view text, int smallest, int largest) {
    const auto value = wholeNumber<int>(text);
    return value && *value >= smallest && *value <= largest ? value : std::nullopt;
}

class Parser {
  public:
    explicit Parser(std::span<const std::string> arguments) : arguments_(arguments) {}

    BatchOptions run() {
        if (arguments_.empty()) {
            throw WrongUsage{"a command is missing"};
        }
        while (position_ < arguments_.size()) {
            const std::string& argument = arguments_[position_++];
            if (onlyNames_ || argument.size() < 2 || argument[0] != '-') {
                name(argument);
            } else if (argument == "--") {
                onlyNames_ = true;
            } else if (option(argument)) {
                return options_;  // help and version answer at once
            }
        }
        finish();
        return options_;
    }

  private:
    void name(const std::string& argument) {
        if (commandSeen_) {
            options_.inputs.push_back(argument);
            return;
        }
        const auto* found = std::find_if(kCommands.begin(), kCommands.end(),
                                         [&](const auto& c) { return c.name == argument; });
        if (found == kCommands.end()) {
            throw WrongUsage{"there is no command '" + argument + "'"};
        }
        options_.command = found->command;
        commandSeen_ = true;
    }

    // True when the option ends the reading.
    bool option(const std::string& argument) {
        const std::size_t equals = argument.find('=');
        name_ = argument.substr(0, equals);
        value_.reset();
        if (equals != std::string::npos) {
            value_ = argument.substr(equals + 1);
        }
        if (name_ == "--help" || name_ == "-h") {
            options_.command = Command::help;
            return true;
        }
        if (name_ == "--version") {
            options_.command = Command::version;
            return true;
        }
        if (name_ == "--utf8") {
            flag(Command::text);
            options_.utf8 = true;
        } else if (name_ == "--no-true-colours") {
            flag(Command::text);
            options_.trueColours = false;
        } else if (name_ == "--no-header") {
            flag(Command::text);
            options_.headerComments = false;
        } else if (name_ == "--poi-code") {
            const std::string form = value(Command::text);
            if (form != "long" && form != "short") {
                throw WrongUsage{"--poi-code takes long or short"};
            }
            options_.longPoiCode = form == "long";
        } else if (name_ == "--header") {
            options_.headerSize = numberWithin(value(Command::typ), 0, 0xFFFF);
            if (!options_.headerSize || std::find(kHeaderSizes.begin(), kHeaderSizes.end(),
                                                  *options_.headerSize) == kHeaderSizes.end()) {
                throw WrongUsage{"--header takes 91, 110, 156, 164 or 174"};
            }
        } else if (name_ == "--fid") {
            options_.fid = number();
        } else if (name_ == "--product") {
            options_.productCode = number();
        } else if (name_ == "--codepage") {
            options_.codePage = number();
            if (!codePageExists(*options_.codePage)) {
                throw WrongUsage{"this system has no code page " +
                                 std::to_string(*options_.codePage)};
            }
        } else if (name_ == "--kind") {
            options_.kind = oneOf(kKinds, value(Command::icons));
        } else if (name_ == "--night") {
            flag(Command::icons);
            options_.night = true;
        } else if (name_ == "--zoom") {
            const auto zoom = numberWithin(value(Command::icons), 1, kLargestFactor);
            if (!zoom) {
                throw WrongUsage{"--zoom takes a whole number from 1 to 8"};
            }
            options_.zoom = *zoom;
        } else if (name_ == "--labels") {
            options_.labels = oneOf(kLabelModes, value(Command::icons));
        } else if (name_ == "--language") {
            language(anyValue());
        } else {
            throw WrongUsage{"there is no option " + name_};
        }
        return false;
    }

    void allowedFor(Command command) {
        if (!commandSeen_ || options_.command != command) {
            const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                            [&](const auto& c) { return c.command == command; });
            throw WrongUsage{name_ + " belongs behind the command '" + std::string(found->name) +
                             "'"};
        }
    }
    void flag(Command command) {
        allowedFor(command);
        if (value_) {
            throw WrongUsage{name_ + " takes no value"};
        }
    }
    std::string value(Command command) {
        allowedFor(command);
        return anyValue();
    }
    std::string anyValue() {
        if (!value_ && position_ < arguments_.size()) {
            value_ = arguments_[position_++];
        }
        if (!value_ || value_->empty()) {
            throw WrongUsage{name_ + " needs a value"};
        }
        return *value_;
    }
    int number() {
        const auto read = numberWithin(value(Command::typ), 1, 0xFFFF);
        if (!read) {
            throw WrongUsage{name_ + " takes a whole number from 1 to 65535"};
        }
        return *read;
    }

    template <typename Words>
    typename Words::value_type::second_type oneOf(const Words& words, const std::string& word) {
        std::string all;
        for (const auto& [name, meaning] : words) {
            if (name == word) {
                return meaning;
            }
            all += (all.empty() ? "" : ", ") + std::string(name);
        }
        throw WrongUsage{name_ + " takes one of: " + all};
    }
    // Behind `icons` a number is the language of the labels; a name is that of messages.
    void language(const std::string& value) {
        const bool digits = value.find_first_not_of("0123456789") == std::string::npos;
        if (!commandSeen_ || options_.command != Command::icons || !digits) {
            options_.language = value;
            return;
        }
        const auto number = numberWithin(value, 0, kLastLanguage);
        if (!number) {
            throw WrongUsage{"--language takes a number from 0 to 54 or the name of a file"};
        }
        options_.labelLanguage = *number;
    }

    void finish() {
        auto& names = options_.inputs;
        if (!commandSeen_) {
            throw WrongUsage{"a command is missing"};
        }
        if (options_.command <= Command::icons) {
            if (names.size() != 2) {
                throw WrongUsage{"name one input and one output"};
            }
            options_.output = names.back();
            names.pop_back();
        }
        if (names.empty()) {
            throw WrongUsage{"name at least one file"};
        }
        if (std::count(names.begin(), names.end(), kStandardStream) > 1) {
            throw WrongUsage{"standard input can be read only once"};
        }
        if (std::count(names.begin(), names.end(), "") > 0 ||
            (options_.output.empty() && options_.command <= Command::icons)) {
            throw WrongUsage{"a file name is empty"};
        }
    }

    std::span<const std::string> arguments_;
    std::size_t position_ = 0;
    bool commandSeen_ = false;
    bool onlyNames_ = false;
    std::string name_;                  // of the option at hand
    std::optional<std::string> value_;  // behind its "="
    BatchOptions options_;
};

}  // namespace

std::variant<BatchOptions, WrongUsage> parseOptions(const std::vector<std::string>& arguments) {
    try {
        return Parser(arguments).run();
    } catch (const WrongUsage& wrong) {
        return wrong;
    }
}

}  // namespace quillmark
