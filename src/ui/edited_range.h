// Tells whether a text differs from what it was, without looking at all of it after each key.
#pragma once

#include <QString>

class QTextDocument;

namespace quillmark {

class EditedRange {
  public:
    // The text as it is now, raw.
    void reset(QString original);
    // Another text to compare with, while the document stays as it is.
    void rebase(QString original);
    [[nodiscard]] const QString& original() const { return original_; }
    // What the document tells of a change.
    void changed(const QTextDocument& document, int position, int added);
    // Compares what lies between the first and the last change, if the lengths are the same.
    [[nodiscard]] bool differs(const QTextDocument& document);

  private:
    QString original_;
    // Characters at both ends that are the same; together they may be more than there are.
    qsizetype head_ = 0;
    qsizetype tail_ = 0;
};

}  // namespace quillmark
