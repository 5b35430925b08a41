#include "batch/commands.h"
#include "batch/wording.h"

namespace quillmark {

ExitStatus writeIcons(const BatchOptions& options, Console& console) {
    console.tell(options.output, JournalKind::error, wording::kNoPaint);
    return ExitStatus::errors;
}

}  // namespace quillmark
