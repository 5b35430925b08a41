// Colours the lines of a text view that come into sight, and no others: a text of 300,000 lines
// costs as much as a short one.
#pragma once

#include <QObject>
#include <QTextBlock>

#include "ui/text_theme.h"

class QTextDocument;

namespace quillmark {

class TextHighlighter : public QObject {
  public:
    explicit TextHighlighter(QTextDocument& document);

    void setTheme(const TextTheme& theme);
    // Blocks that have been laid out and are about to be painted. Those that are coloured already
    // cost nothing.
    void colour(const QTextBlock& first, const QTextBlock& last);

  private:
    [[nodiscard]] bool colour(const QTextBlock& block) const;
    void forget(int position, int added) const;

    QTextDocument& document_;
    TextTheme theme_;
    int coloured_ = 0;  // the state of blocks that have the colours of this theme
};

}  // namespace quillmark
