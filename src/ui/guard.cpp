#include "ui/guard.h"

#include <QMessageBox>

#include "core/errors.h"
#include "ui/qt_text.h"

namespace quillmark {

namespace {

void tell(const char* procedure, const std::string& place) {
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Quillmark"),
                    toQt(unforeseenText(currentErrorFacts(), procedure, place)));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace

void tellUnforeseen(const char* procedure, const char* window) {
    tell(procedure, std::string("Feuille ") + window);
}

void tellUnforeseenOfModule(const char* procedure, const char* module) {
    tell(procedure, std::string("Module ") + module);
}

}  // namespace quillmark
