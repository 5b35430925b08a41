#include "ui/guard.h"

#include <QMessageBox>

#include "core/errors.h"
#include "ui/qt_text.h"

namespace quillmark {

namespace {

Dialogues* failureDialogues = nullptr;

void tell(const char* procedure, const std::string& place) {
    if (failureDialogues != nullptr) {
        failureDialogues->AfficheMessage(unforeseenText(currentErrorFacts(), procedure, place),
                                         MessageStyle::ok | MessageStyle::critical, {});
        return;
    }
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Quillmark"),
                    toQt(unforeseenText(currentErrorFacts(), procedure, place)));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace

FailureDialogues::FailureDialogues(Dialogues& dialogues) {
    failureDialogues = &dialogues;
}

FailureDialogues::~FailureDialogues() {
    failureDialogues = nullptr;
}

void tellUnforeseen(const char* procedure, const char* window) {
    tell(procedure, std::string("Feuille ") + window);
}

void tellUnforeseenOfModule(const char* procedure, const char* module) {
    tell(procedure, std::string("Module ") + module);
}

}  // namespace quillmark
