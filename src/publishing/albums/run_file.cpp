#include "publishing/albums/run_file.h"

#include "core/constants.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/dialogs.h"

namespace {

// In every language.
const QString kNotOpened = QStringLiteral("Fout met openen van de browser !!");

} // namespace

void RunFile(const QString& file)
{
    if (!platform::desktop().openDocument(file)) {
        platform::dialogs().showMessage(kNotOpened, core::kProgramName, platform::BoxIcon::None);
    }
}
