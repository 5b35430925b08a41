#include "ui/guard.h"

#include <QMessageBox>

#include "core/errors.h"
#include "ui/qt_text.h"

namespace quillmark {

void tellUnforeseen(const char* procedure, const char* window) {
    const ErrorFacts facts = currentErrorFacts();
    const std::string text = "Error " + std::to_string(static_cast<int>(facts.number)) + " (" +
                             facts.description + ") in procedure " + procedure + " of Feuille " +
                             window;
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Quillmark"), toQt(text));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace quillmark
