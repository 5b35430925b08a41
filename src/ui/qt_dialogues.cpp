#include "ui/qt_dialogues.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "core/paths.h"
#include "ui/file_pattern.h"
#include "ui/frm_inputbox.h"
#include "ui/frm_msgbox.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

// The description stands as it is; the pattern behind it is hidden by the dialog.
QString filterOf(const FileFilter& filter) {
    QStringList patterns;
    for (const std::string& suffix : filter.suffixes) {
        patterns << filePattern(toQt(suffix));
    }
    return toQt(filter.description) + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
           QLatin1Char(')');
}

}  // namespace

QWidget* QtDialogues::front() const {
    QWidget* active = QApplication::activeModalWidget();
    return active != nullptr ? active : parent_.data();
}

void QtDialogues::setFolder(const std::filesystem::path& folder) {
    if (!folder.empty()) {
        folder_ = toQt(utf8FromPath(folder));
    }
}

Answer QtDialogues::AfficheMessage(const std::string& message, MessageStyle style,
                                   const std::string& titre) {
    frmMsgBox box(front(), traduction_, message, style, titre);
    box.exec();
    return box.Retour();
}

std::optional<std::string> QtDialogues::chooseFileToOpen(const std::string& titre,
                                                         const std::vector<FileFilter>& filters) {
    QFileDialog dialog(front(), toQt(titre), folder_);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    QStringList shown;
    for (const FileFilter& filter : filters) {
        shown << filterOf(filter);
    }
    dialog.setNameFilters(shown);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    const QString file = dialog.selectedFiles().constFirst();
    folder_ = QFileInfo(file).absolutePath();
    return fromQt(file);
}

std::optional<std::string> QtDialogues::chooseFileToSave(const std::string& titre,
                                                         const FileFilter& filter,
                                                         const std::string& proposedName) {
    QFileDialog dialog(front(), toQt(titre), folder_);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The program asks itself, once it has added the suffix.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters({filterOf(filter)});
    if (!proposedName.empty()) {
        dialog.selectFile(QDir(folder_).filePath(toQt(proposedName)));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    const QString file = dialog.selectedFiles().constFirst();
    folder_ = QFileInfo(file).absolutePath();
    return fromQt(file);
}

std::optional<std::string> QtDialogues::askText(const std::string& prompt, const std::string& titre,
                                                const std::string& initial) {
    frmInputBox box(front(), traduction_, prompt, titre, initial);
    if (box.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return box.text();
}

}  // namespace quillmark
