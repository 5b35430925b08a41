#include "batch/commands.h"
#include "paint/sheet_png.h"
#include "views/icon_sheet.h"

namespace quillmark {
namespace {

ObjectKind firstKind(const Document& document) {
    for (const ObjectKind kind :
         {ObjectKind::Polygone, ObjectKind::Polyline, ObjectKind::POI, ObjectKind::ExtraPOI}) {
        if (IconSheet::cellCount(document, kind) > 0) {
            return kind;
        }
    }
    return ObjectKind::Polygone;
}

}  // namespace

ExitStatus writeIcons(const BatchOptions& options, Console& console) {
    const std::string& name = options.inputs.front();
    const auto opened = console.open(name);
    if (!opened) {
        return ExitStatus::errors;
    }
    console.tell(name, opened->journal);
    SheetPngOptions shown;
    shown.kind = options.kind == ObjectKind::none ? firstKind(opened->document) : options.kind;
    shown.factor = options.zoom;
    shown.night = options.night;
    shown.labels = options.labels;
    shown.LangueLabels = options.labelLanguage;
    const Bytes picture = sheetPng(opened->document, console.traduction, shown);
    const bool fine = console.write(options.output, picture) && !opened->journal.ErreurFlag();
    return fine ? ExitStatus::fine : ExitStatus::errors;
}

}  // namespace quillmark
