#include "ui/toolkit_texts.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>

#include "core/paths.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

// "qtbase_de.qm" for "Deutsch": language files carry the name their speakers give the language;
// the toolkit may add the country.
QString fileFor(const QString& folder, const QString& language) {
    for (const QString& file : QDir(folder).entryList({QStringLiteral("qtbase_*.qm")})) {
        const QLocale locale(file.section(QLatin1Char('_'), 1).section(QLatin1Char('.'), 0, 0));
        if (locale.nativeLanguageName().startsWith(language, Qt::CaseInsensitive)) {
            return folder + QLatin1Char('/') + file;
        }
    }
    return {};
}

}  // namespace

ToolkitTexts::ToolkitTexts(AppContext& context)
    : context_(context), language_(context.languageChanged.connect([this] { load(); })) {
    load();
}

ToolkitTexts::~ToolkitTexts() {
    QCoreApplication::removeTranslator(&translator_);
}

void ToolkitTexts::load() {
    QCoreApplication::removeTranslator(&translator_);
    const std::string& Langue = context_.traduction.Langue();
    const QString language = Langue == kFrancais ? QStringLiteral("français") : toQt(Langue);
    const QString beside =
        toQt(utf8FromPath(context_.folders.program)) + QStringLiteral("/translations");
    for (const QString& folder : {QLibraryInfo::path(QLibraryInfo::TranslationsPath), beside}) {
        if (translator_.load(fileFor(folder, language))) {
            QCoreApplication::installTranslator(&translator_);
            return;
        }
    }
}

}  // namespace quillmark
