// A user who answers by a script and fails the test on a question that isn't in it.
#pragma once

#include <gtest/gtest.h>

#include <deque>

#include "core/dialogues.h"

namespace quillmark::testing {

class ScriptedDialogues : public Dialogues {
  public:
    struct Shown {
        std::string message;
        MessageStyle style;
        std::string titre;
    };

    std::deque<Answer> answers;
    std::deque<std::optional<std::string>> files;
    std::vector<Shown> shown;                      // every box, in order
    std::vector<std::string> proposed;             // names proposed by save dialogs
    std::vector<std::vector<FileFilter>> offered;  // filters of open dialogs
    std::deque<std::optional<std::string>> texts;  // answers to `askText`

    ~ScriptedDialogues() override {
        EXPECT_TRUE(answers.empty()) << answers.size() << " answers were never asked for";
        EXPECT_TRUE(files.empty()) << files.size() << " file names were never asked for";
    }

    Answer AfficheMessage(const std::string& message, MessageStyle style,
                          const std::string& titre) override {
        shown.push_back({message, style, titre});
        if (buttonsOf(style) == MessageStyle::ok) {
            return Answer::ok;
        }
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << message;
            return Answer::cancel;
        }
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> chooseFileToOpen(const std::string& /*titre*/,
                                                const std::vector<FileFilter>& filters) override {
        offered.push_back(filters);
        return nextFile();
    }
    std::optional<std::string> chooseFileToSave(const std::string& /*titre*/,
                                                const FileFilter& /*filter*/,
                                                const std::string& proposedName) override {
        proposed.push_back(proposedName);
        return nextFile();
    }

    std::optional<std::string> askText(const std::string& prompt, const std::string& titre,
                                       const std::string& /*initial*/) override {
        shown.push_back({prompt, MessageStyle::okCancel, titre});
        if (texts.empty()) {
            ADD_FAILURE() << "unexpected question for a text: " << prompt;
            return std::nullopt;
        }
        auto text = texts.front();
        texts.pop_front();
        return text;
    }

  private:
    std::optional<std::string> nextFile() {
        if (files.empty()) {
            ADD_FAILURE() << "unexpected question for a file";
            return std::nullopt;
        }
        auto file = files.front();
        files.pop_front();
        return file;
    }
};

}  // namespace quillmark::testing
