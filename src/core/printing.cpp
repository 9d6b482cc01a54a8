#include "core/printing.h"

#include "core/settings.h"
#include "platform/desktop/dialogs.h"
#include "platform/os/paths.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <array>
#include <memory>

namespace core {

namespace {

constexpr QLatin1String kFilter{"PDF (*.pdf)|*.pdf"};
constexpr QLatin1String kExtension{".pdf"};
constexpr QLatin1String kNoTitle{"Document"};
constexpr const char* kReplaceText = "“%1” already exists. Replace it?";
constexpr qsizetype kMostNameBytes = 200; // leaves room for an ending

struct FailureText {
    platform::PrintFailure why;
    const char* text;
};
constexpr std::array kFailureTexts{
    FailureText{platform::PrintFailure::Gone,
                "The printer “%1” can't be reached. It may have been removed or switched off."},
    FailureText{platform::PrintFailure::Refused, "The printer “%1” doesn't accept the document."},
    FailureText{platform::PrintFailure::NotSaved,
                "The document for “%1” couldn't be written. The disk may be full, or the folder "
                "can't be written to."},
};

// A title may be anything, also what names no file, one in another folder, or one too long.
QString fileNameFor(const QString& title)
{
    QString name = title.trimmed();
    name.replace(QLatin1Char('/'), QLatin1Char('-'));
    name.remove(QChar(u'\0'));
    while (name.toUtf8().size() > kMostNameBytes) {
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    }
    return (name.isEmpty() ? QString(kNoTitle) : name) + kExtension;
}

bool mayReplace(const QString& path)
{
    const QFileInfo file(path);
    return !file.exists() || platform::dialogs().askYesNo(
                                 QString::fromUtf8(kReplaceText).arg(file.fileName()), kPdfPrinter,
                                 {.picture = {}, .facts = {}, .preset = platform::Answer::No});
}

// The dialog asks before a file is replaced, but of a name without its ending it knows nothing.
QString askFile(const QString& title)
{
    platform::FileRequest request{.title = kPdfPrinter,
                                  .filter = kFilter,
                                  .folder = {},
                                  .fileName = fileNameFor(title),
                                  .askBeforeReplacing = true};
    while (const auto choice = platform::dialogs().saveFile(request)) {
        const QString& path = choice->path;
        if (path.isEmpty() || path.endsWith(kExtension, Qt::CaseInsensitive)) {
            return path;
        }
        if (mayReplace(path + kExtension)) {
            return path + kExtension;
        }
        request.folder = platform::folderOf(path);
        request.fileName = platform::fileNameOf(path) + kExtension;
    }
    return {};
}

void tellFailure(const QString& printer, platform::PrintFailure why)
{
    if (setting(kClassic)) {
        return;
    }
    const auto* const row = std::find_if(kFailureTexts.begin(), kFailureTexts.end(),
                                         [why](const auto& each) { return each.why == why; });
    platform::dialogs().showMessage(QString::fromUtf8(row->text).arg(printer),
                                    QStringLiteral("Printing"), platform::BoxIcon::Exclamation);
}

std::unique_ptr<platform::Printer> opened(const QString& name)
{
    const platform::PrinterContact contact{
        askFile, [name](platform::PrintFailure why) {
            // A box lets events run, which is no good from inside of the printer.
            QTimer::singleShot(0, qApp, [name, why] { tellFailure(name, why); });
        }};
    platform::Printers& all = platform::printers();
    return name == kPdfPrinter && !setting(kClassic) ? all.openPdf(name, contact)
                                                     : all.open(name, contact);
}

const platform::PrinterFacts* defaultOf(const std::vector<platform::PrinterFacts>& choices)
{
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [](const auto& each) { return each.isDefault; });
    return found != choices.end() ? &*found : nullptr;
}

} // namespace

void tellPrinterGone(const QString& name)
{
    tellFailure(name, platform::PrintFailure::Gone);
}

std::vector<platform::PrinterFacts> printerChoices()
{
    std::vector<platform::PrinterFacts> choices = platform::printers().list();
    if (!setting(kClassic)) {
        choices.push_back({kPdfPrinter, defaultOf(choices) == nullptr});
    }
    return choices;
}

QString presetPrinter(const std::vector<platform::PrinterFacts>& choices)
{
    const platform::PrinterFacts* const preset = defaultOf(choices);
    return preset == nullptr || setting(kClassic) ? QString() : preset->name;
}

platform::Printer* currentPrinter()
{
    platform::Printers& all = platform::printers();
    if (all.selected() == nullptr) {
        const auto choices = printerChoices();
        if (const auto* const preset = defaultOf(choices)) {
            all.select(opened(preset->name));
        }
    }
    return all.selected();
}

bool selectPrinter(const QString& name)
{
    platform::Printers& all = platform::printers();
    if (all.selected() != nullptr && all.selected()->name() == name) {
        return true;
    }
    const auto choices = printerChoices();
    const bool isThere = std::any_of(choices.begin(), choices.end(),
                                     [&name](const auto& each) { return each.name == name; });
    if (isThere) {
        all.select(opened(name));
    }
    return isThere;
}

} // namespace core
