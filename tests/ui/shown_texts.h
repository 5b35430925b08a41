// What a window says, and whether all of it can be read.
#pragma once

#include <QStringList>
#include <QWidget>
#include <map>

namespace quillmark::testing {

// Everything in words by "control.property": texts, tips, names for screen readers, menus; of
// hidden parts too. Rows of lists and texts of documents aren't among them.
std::map<QString, QString> shownTexts(QWidget& window);

// Visible texts without enough room, one line each.
QStringList cutTexts(QWidget& window);
// Controls that the keyboard reaches and that a screen reader has no name for.
QStringList namelessControls(QWidget& window);
// Access keys that stand twice in one menu, or on two controls of the window.
QStringList repeatedAccessKeys(QWidget& window);

}  // namespace quillmark::testing
