// Questions, messages and file choices as windows.
#pragma once

#include <QPointer>
#include <QWidget>
#include <filesystem>

#include "core/dialogues.h"
#include "core/translation.h"

namespace quillmark {

class QtDialogues : public Dialogues {
  public:
    explicit QtDialogues(const Traduction& traduction) : traduction_(traduction) {}

    // The window that boxes stand in front of while no other one is active.
    void setParent(QWidget* parent) { parent_ = parent; }
    // Where file dialogs begin until the user goes elsewhere.
    void setFolder(const std::filesystem::path& folder);

    Answer AfficheMessage(const std::string& message, MessageStyle style,
                          const std::string& titre) override;
    std::optional<std::string> chooseFileToOpen(const std::string& titre,
                                                const std::vector<FileFilter>& filters) override;
    std::optional<std::string> chooseFileToSave(const std::string& titre, const FileFilter& filter,
                                                const std::string& proposedName) override;
    std::optional<std::string> askText(const std::string& prompt, const std::string& titre,
                                       const std::string& initial) override;

  private:
    [[nodiscard]] QWidget* front() const;

    const Traduction& traduction_;
    QPointer<QWidget> parent_;
    QString folder_;
};

}  // namespace quillmark
