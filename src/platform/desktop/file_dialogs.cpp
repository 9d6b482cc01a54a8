#include "platform/desktop/qt_dialogs.h"

#include "platform/desktop/file_filters.h"
#include "platform/desktop/modal_dialog.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QDateTime>
#include <QFileDialog>
#include <QHeaderView>
#include <QLocale>
#include <QScreen>
#include <QTreeView>
#include <algorithm>

namespace platform {

namespace {

constexpr QSize kDialogSize{820, 500};
constexpr int kCellMargins = 16;
const QDateTime kLongDate(QDate(2000, 12, 28), QTime(23, 58, 58));

// A name filter as Qt takes it: the part in the last brackets holds the patterns and isn't shown.
QStringList nameFilters(const QString& filters)
{
    QStringList names;
    for (const FileFilter& filter : parseFileFilters(filters)) {
        names.append(filter.text + QStringLiteral(" (") + filter.patterns.join(u' ') + u')');
    }
    return names;
}

// Room for what the columns beside the name usually hold, so that the name gets all the rest.
void widenNames(QFileDialog& dialog)
{
    auto* const list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (list == nullptr) {
        return;
    }
    QHeaderView& header = *list->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(QHeaderView::Interactive);
    const QFontMetrics metrics = list->fontMetrics();
    const QString texts[] = {QStringLiteral("1023.99 MiB"), QStringLiteral("Windows BMP image"),
                             QLocale().toString(kLongDate, QLocale::ShortFormat)};
    int section = 1;
    for (const QString& text : texts) {
        header.resizeSection(section++, metrics.horizontalAdvance(text) + kCellMargins);
    }
    header.setSectionResizeMode(0, QHeaderView::Stretch);
}

// One-based; a dialog without filters gives 1.
int filterNumber(const QString& filters, const QString& shownText)
{
    const std::vector<FileFilter> parsed = parseFileFilters(filters);
    const auto found = std::find_if(parsed.begin(), parsed.end(), [&](const FileFilter& filter) {
        return filter.text == shownText;
    });
    return found == parsed.end() ? 1 : int(found - parsed.begin()) + 1;
}

QString startFolder(const FileRequest& request, const QString& lastFolder)
{
    for (const QString& folder : {request.folder, lastFolder}) {
        if (isFolder(folder)) {
            return folder;
        }
    }
    return picturesFolder();
}

void prepare(QFileDialog& dialog, const FileRequest& request, const QString& folder)
{
    // Its own dialog, because those of other desktops add extensions and ask before replacing.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontResolveSymlinks);
    dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.askBeforeReplacing);
    dialog.setWindowTitle(request.title);
    dialog.setDirectory(folder);
    dialog.resize(kDialogSize.boundedTo(dialog.screen()->availableSize()));
    widenNames(dialog);
    const QStringList filters = nameFilters(request.filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
    }
    if (!request.fileName.isEmpty()) {
        dialog.selectFile(request.fileName);
    }
}

} // namespace

QStringList QtDialogs::openFiles(const FileRequest& request)
{
    ModalDialog<QFileDialog> dialog;
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(request.severalFiles ? QFileDialog::ExistingFiles
                                             : QFileDialog::ExistingFile);
    prepare(*dialog, request, startFolder(request, m_lastFolder));
    if (dialog.run() != QDialog::Accepted) {
        return {};
    }
    const QStringList files = dialog->selectedFiles();
    if (!files.isEmpty()) {
        m_lastFolder = folderOf(files.first());
    }
    return files;
}

std::optional<SaveChoice> QtDialogs::saveFile(const FileRequest& request)
{
    ModalDialog<QFileDialog> dialog;
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    prepare(*dialog, request, startFolder(request, m_lastFolder));
    if (dialog.run() != QDialog::Accepted || dialog->selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    SaveChoice choice;
    choice.path = dialog->selectedFiles().first();
    choice.filterIndex = filterNumber(request.filter, dialog->selectedNameFilter());
    m_lastFolder = folderOf(choice.path);
    return choice;
}

} // namespace platform
