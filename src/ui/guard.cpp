#include "ui/guard.h"

#include <QMessageBox>

#include "core/errors.h"
#include "ui/qt_text.h"

namespace quillmark {

namespace {

void tell(const char* procedure, const std::string& place) {
    const ErrorFacts facts = currentErrorFacts();
    const std::string text = "Error " + std::to_string(static_cast<int>(facts.number)) + " (" +
                             facts.description + ") in procedure " + procedure + " of " + place;
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Quillmark"), toQt(text));
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
