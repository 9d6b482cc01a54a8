#include "platform/desktop/properties_sheet.h"

#include "platform/desktop/modal_dialog.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QMimeDatabase>
#include <QVBoxLayout>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

QString typeText(const QString& path, const struct stat& facts)
{
    if (S_ISDIR(facts.st_mode)) {
        return QStringLiteral("Folder");
    }
    if (!S_ISREG(facts.st_mode)) {
        return QStringLiteral("Special file");
    }
    const QMimeDatabase types;
    const auto file = openForReading(path);
    const QMimeType type =
        file ? types.mimeTypeForFileNameAndData(fileNameOf(path), file.get())
             : types.mimeTypeForFile(fileNameOf(path), QMimeDatabase::MatchExtension);
    return type.comment().isEmpty() ? type.name() : type.comment();
}

QString sizeText(qint64 bytes)
{
    const QString exact = QLocale().toString(bytes) + QStringLiteral(" bytes");
    return bytes < 1024 ? exact : QLocale().formattedDataSize(bytes) + " (" + exact + ")";
}

QString timeText(const timespec& time)
{
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(time.tv_sec), QLocale::LongFormat);
}

QString permissionText(mode_t mode)
{
    QString text;
    constexpr char kLetters[] = {'r', 'w', 'x'};
    for (unsigned bit = 0; bit < 9; ++bit) {
        const bool isSet = (mode & (0400U >> bit)) != 0;
        text += QLatin1Char(isSet ? kLetters[bit % 3] : '-');
    }
    return text;
}

QString ownerText(const struct stat& facts)
{
    const passwd* const user = ::getpwuid(facts.st_uid);
    const group* const group = ::getgrgid(facts.st_gid);
    const QString userName =
        user != nullptr ? fromNative(user->pw_name) : QString::number(facts.st_uid);
    const QString groupName =
        group != nullptr ? fromNative(group->gr_name) : QString::number(facts.st_gid);
    return userName + QStringLiteral(", group ") + groupName;
}

QLabel* makeFact(const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

} // namespace

std::vector<std::pair<QString, QString>> fileFacts(const QString& path)
{
    struct stat facts = {};
    if (path.contains(QChar(u'\0')) || ::stat(toNative(path).c_str(), &facts) != 0) {
        return {};
    }
    std::vector<std::pair<QString, QString>> rows = {
        {QStringLiteral("Name:"), fileNameOf(path)},
        {QStringLiteral("Folder:"), folderOf(path)},
        {QStringLiteral("Type:"), typeText(path, facts)},
    };
    if (S_ISREG(facts.st_mode)) {
        rows.emplace_back(QStringLiteral("Size:"), sizeText(facts.st_size));
    }
    rows.emplace_back(QStringLiteral("Modified:"), timeText(facts.st_mtim));
    rows.emplace_back(QStringLiteral("Accessed:"), timeText(facts.st_atim));
    rows.emplace_back(QStringLiteral("Permissions:"), permissionText(facts.st_mode));
    rows.emplace_back(QStringLiteral("Owner:"), ownerText(facts));
    return rows;
}

void showPropertiesSheet(const QString& path, QWidget* parent)
{
    const auto rows = fileFacts(path);
    if (rows.empty()) {
        return;
    }
    auto* const sheet = new QDialog(parent);
    sheet->setObjectName(QStringLiteral("PropertiesSheet"));
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowTitle(fileNameOf(path) + QStringLiteral(" Properties"));
    auto* const layout = new QVBoxLayout(sheet);
    auto* const form = new QFormLayout;
    for (const auto& [label, text] : rows) {
        form->addRow(label, makeFact(text, sheet));
    }
    layout->addLayout(form);
    layout->addStretch();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, sheet);
    QObject::connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::close);
    layout->addWidget(buttons);
    simplifyDialog(*sheet);
    sheet->setMinimumWidth(380);
    sheet->show();
}

} // namespace platform
