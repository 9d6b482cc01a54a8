#include "files/transfer_window.h"

#include "core/file_field.h"
#include "core/help.h"
#include "core/picture_display.h"
#include "core/services.h"
#include "core/state.h"
#include "core/viewer.h"
#include "core/window_names.h"
#include "files/explorer/ctl_explorer.h"
#include "files/explorer/model_roles.h"
#include "files/explorer/role_icons.h"
#include "files/folder_list.h"
#include "files/transfer_run.h"
#include "platform/desktop/pump.h"
#include "platform/os/files.h"
#include "platform/os/paths.h"
#include "platform/pictures/delivered_icon.h"
#include "platform/pictures/picture_loader.h"
#include "widgets/elided_label.h"
#include "widgets/focus_field.h"
#include "widgets/form_builder.h"
#include "widgets/scaled_picture.h"
#include "widgets/title_strip.h"
#include "widgets/window_parts.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>

namespace {

constexpr QSize kPreviewSize{112, 84}; // pixels, as all that follow
constexpr QSize kFoldersSize{210, 180};
constexpr QSize kFilesSize{420, 220};
constexpr int kNameColumn = 190;
constexpr const char* kTargetName = "Folder to go to";

QSize fitted(QSize picture, QSize box)
{
    const bool fits = picture.width() <= box.width() && picture.height() <= box.height();
    return fits ? picture : picture.scaled(box, Qt::KeepAspectRatio).expandedTo({1, 1});
}

// Decoded anew each time: the working file that stands for an own format is another picture soon.
QPixmap previewOf(const QString& path, double ratio)
{
    const QSize box = (QSizeF(kPreviewSize) * ratio).toSize();
    const auto tile = platform::loadTilePicture(path, box, &fitted);
    if (!tile) {
        return platform::deliveredIcon(QStringLiteral("file")).pixmap(kPreviewSize, ratio);
    }
    const QImage image = tile->picture.image();
    QImage small =
        image.scaled(fitted(image.size(), box), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    small.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(small);
}

core::PropertyBag explorerBag(const QString& folder)
{
    files::ExplorerProperties properties;
    properties.Style = 1;
    properties.View = files::kReportView;
    properties.Path = folder;
    properties.FullRowSelect = true;
    properties.LabelEdit = 1;
    core::PropertyBag bag;
    files::writeProperties(properties, bag);
    return bag;
}

// What is typed stands as it is: nothing is completed, or chosen because it is equal.
QComboBox* freeTextBox()
{
    auto* box = new QComboBox;
    box->setEditable(true);
    box->setLineEdit(new widgets::FocusField);
    box->setCompleter(nullptr);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QObject::disconnect(box->lineEdit(), &QLineEdit::editingFinished, box, nullptr);
    return box;
}

void emptyViewer()
{
    if (core::PictureDisplay* display = core::services().display) {
        display->viewer().setPicture({});
    }
}

// A part below its caption, which leads to it.
template<typename Part>
Part* addBelow(widgets::FormBuilder& column, const char* caption, Part* part, const char* name,
               const char* spokenName, int stretch = 0)
{
    auto* label = new QLabel(QString::fromLatin1(caption));
    column.add(label, "");
    column.add(part, name, spokenName, stretch);
    QWidget* const proxy = part->focusProxy();
    label->setBuddy(proxy != nullptr ? proxy : part);
    return part;
}

} // namespace

Movefile::Movefile(const files::Places& places)
    : StripWindow(QString())
    , m_places(places)
{
    setObjectName(core::windowName(core::Window::Movefile));
    strip().closeBox()->setObjectName(QStringLiteral("Close"));
    const core::FileField* field = core::services().field;
    m_path = field != nullptr ? field->Xiala() : QString();

    widgets::FormBuilder form(*this);
    addHead(form);
    addTarget(form);
    addPlaces(form);
    addButtons(form);
    fillDrives();
    connectParts();
    const QString folder = platform::folderOf(m_path); // which the explorer has listed by now
    m_target->setEditText(folder);
    showFolder(folder);
    m_target->setFocus();
}

void Movefile::addHead(widgets::FormBuilder& form)
{
    widgets::FormBuilder head = form.addRow();
    m_preview = head.add(new QLabel, "Image1", "Preview");
    m_preview->setFixedSize(kPreviewSize);
    m_preview->setAlignment(Qt::AlignCenter);
    m_picture = head.add(new QLabel, "Image2", "");
    head.addStretch();
}

void Movefile::addTarget(widgets::FormBuilder& form)
{
    form.addCaptioned(new QLabel("File:"), new widgets::ElidedLabel(m_path), "Source");
    m_target = form.addCaptioned(new QLabel("&To folder:"), freeTextBox(), "Cb1", kTargetName);
    m_target->lineEdit()->setAccessibleName(QString::fromLatin1(kTargetName));
    widgets::nameDropDown(*m_target, QStringLiteral("Your folders"));
    QStringList folders{platform::folderOf(m_path), platform::homeFolder(), m_places.favorites(),
                        m_places.documents()};
    folders.removeDuplicates();
    folders.removeAll(QString());
    m_target->addItems(folders);
}

void Movefile::addPlaces(widgets::FormBuilder& form)
{
    widgets::FormBuilder row = form.addRow(1);
    widgets::FormBuilder folders = row.addColumn();
    widgets::FormBuilder contents = row.addColumn(1);

    m_drives = addBelow(folders, "&Drive:", new QComboBox, "Drive1", "Drive");
    m_drives->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    widgets::nameDropDown(*m_drives, QStringLiteral("Drives"));
    m_folders = addBelow(folders, "&Folders:", new files::FolderList, "Dir1", "Folders", 1);
    m_folders->setMinimumSize(kFoldersSize);

    auto* explorer = new ctlExplorer(nullptr, explorerBag(platform::folderOf(m_path)), m_places);
    explorer->setFocusProxy(explorer->findChild<QWidget*>(QStringLiteral("ListView1")));
    m_explorer =
        addBelow(contents, "&Already there:", explorer, "ctlExplorer1", "Already there", 1);
    m_explorer->setMinimumSize(kFilesSize);
    static_cast<void>(m_explorer->setColumnWidth(1, kNameColumn));
}

void Movefile::addButtons(widgets::FormBuilder& form)
{
    m_go =
        form.addButtons({{"Command1", "", [this] { go(); }, widgets::PressedBy::Return},
                         {"Command2", "&Help", [] { core::openHelp(); }},
                         {"Command3", "Clos&e", [this] { close(); }, widgets::PressedBy::Escape}});
    setMode();
}

void Movefile::setMode()
{
    const bool moves = core::state().MoveNotCopy;
    m_go->setText(moves ? QStringLiteral("&Move") : QStringLiteral("&Copy"));
    m_go->setAccessibleName(moves ? QStringLiteral("Move") : QStringLiteral("Copy"));
}

void Movefile::fillDrives()
{
    files::RoleIcons icons;
    for (const platform::Drive& drive : m_places.drives()) {
        const files::PlaceRow place = files::drivePlace(drive);
        m_drives->addItem(icons.icon(place.image), files::shownText(place.text), drive.path);
    }
}

void Movefile::connectParts()
{
    connect(m_target, &QComboBox::activated, this,
            [this](int place) { goTo(m_target->itemText(place)); });
    connect(m_target->lineEdit(), &QLineEdit::editingFinished, this, &Movefile::followText);
    connect(m_drives, &QComboBox::activated, this,
            [this](int place) { goTo(m_drives->itemData(place).toString()); });
    connect(m_folders, &files::FolderList::folderChosen, this, &Movefile::goTo);
    connect(m_explorer, &ctlExplorer::Change, this, &Movefile::followExplorer);
    connect(m_explorer, &ctlExplorer::FolderClick, this, &Movefile::choose);
    connect(m_explorer, &ctlExplorer::FileClick, this, [this] { choose(m_folders->folder()); });
    connect(m_explorer, &ctlExplorer::FolderDblClick, this, &Movefile::goTo);
}

void Movefile::setTransfer(const files::Transfer& transfer)
{
    setCaption(transfer.title);
    setMode();
    const double ratio = devicePixelRatioF();
    m_picture->setPixmap(
        QPixmap::fromImage(widgets::ScaledPicture::fromFile(transfer.picture).forRatio(ratio)));
    m_preview->setPixmap(previewOf(transfer.preview, ratio));
}

void Movefile::goTo(const QString& folder)
{
    m_target->setEditText(folder);
    follow(folder);
}

// All but the field, whose text stands.
void Movefile::follow(const QString& folder)
{
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    showFolder(folder);
    m_explorer->setPath(folder);
}

void Movefile::showFolder(const QString& folder)
{
    m_drives->setCurrentIndex(driveOf(folder));
    m_folders->showFolder(m_drives->currentData().toString(), folder);
}

// A folder that was typed shows what it holds as soon as the field is left.
void Movefile::followText()
{
    const QString folder = platform::withoutSeparator(m_target->currentText());
    if (folder != m_folders->folder() && folder.startsWith(u'/') && platform::isFolder(folder)) {
        follow(folder);
    }
}

void Movefile::followExplorer()
{
    if (!m_isFollowing) {
        goTo(m_explorer->path());
    }
}

// The folder to go to, without a look into it.
void Movefile::choose(const QString& folder)
{
    if (!m_isFollowing) {
        m_target->setEditText(folder);
    }
}

// The drive that holds a folder; of several, one within another, the innermost.
int Movefile::driveOf(const QString& folder) const
{
    int found = 0;
    for (int place = 1; place < m_drives->count(); ++place) {
        const QString path = m_drives->itemData(place).toString();
        const bool isInner = path.size() > m_drives->itemData(found).toString().size();
        if (isInner && platform::holdsPath(path, folder)) {
            found = place;
        }
    }
    return found;
}

// The transfer is told to stop first, and closes the window when it has.
void Movefile::closeEvent(QCloseEvent* event)
{
    m_isWanted = false;
    event->setAccepted(!m_isRunning);
}

void Movefile::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || !openSelectedFolder()) {
        StripWindow::keyPressEvent(event);
    }
}

// The list leaves Return with Alt to its window. On a folder it goes there too, as without Alt.
bool Movefile::openSelectedFolder()
{
    const bool isList = m_explorer->isAncestorOf(focusWidget());
    const QString folder = isList ? m_explorer->SelectedFolder() : QString();
    if (!folder.isEmpty()) {
        goTo(folder);
    }
    return !folder.isEmpty();
}

void Movefile::go()
{
    const QString folder = m_target->currentText();
    if (m_isRunning || !folder.startsWith(u'/')) {
        return;
    }
    const bool moves = core::state().MoveNotCopy;
    const QPointer<Movefile> alive(this);
    const bool isDone = transfer(moves, platform::joinPath(folder, platform::fileNameOf(m_path)));
    if (alive == nullptr || platform::isClosing()) {
        return;
    }
    if (isDone && moves) {
        emptyViewer();
    }
    if (isDone || !m_isWanted) {
        close();
    }
}

// The window may be gone afterwards, or the program about to end.
bool Movefile::transfer(bool moves, const QString& to)
{
    const QPointer<Movefile> alive(this);
    const QPointer<QWidget> focused = focusWidget();
    setRunning(true);
    const bool isDone =
        files::runTransfer(moves ? files::TransferKind::Move : files::TransferKind::Copy, m_path,
                           to, *this, [this] { return m_isWanted; });
    if (alive != nullptr) {
        setRunning(false);
        if (focused != nullptr) {
            focused->setFocus();
        }
    }
    return isDone;
}

// The focus goes to the window meanwhile, so that a second Return presses nothing.
void Movefile::setRunning(bool isRunning)
{
    m_isRunning = isRunning;
    m_isWanted = m_isWanted || isRunning;
    setFocus();
    QWidget* const parts[] = {m_target, m_drives, m_folders, m_explorer, m_go};
    for (QWidget* const part : parts) {
        part->setEnabled(!isRunning);
    }
}
