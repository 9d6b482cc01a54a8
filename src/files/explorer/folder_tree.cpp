#include "files/explorer/folder_tree.h"

#include "files/explorer/folder_tree_widget.h"
#include "platform/os/paths.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>

namespace files {

struct FolderTree::State {
    QPointer<FolderTreeWidget> widget;
    QPointer<QEventLoop> loop;
};

FolderTree::FolderTree()
    : m_state(std::make_unique<State>())
{
}

FolderTree::~FolderTree()
{
    // The one of the process outlives the application, and then there is no widget to touch.
    if (QCoreApplication::instance() != nullptr) {
        close();
    }
}

void FolderTree::open(QWidget& host, const QString& start, SelectionHandler selected,
                      ShownTest isShown)
{
    if (isOpen()) {
        return;
    }
    QEventLoop loop;
    m_state->loop = &loop;
    m_state->widget = new FolderTreeWidget(&host);
    QObject::connect(m_state->widget, &QObject::destroyed, &loop, &QEventLoop::quit);
    m_state->widget->setGeometry(host.rect());
    m_state->widget->show();
    m_state->widget->onSelected(std::move(selected), std::move(isShown));
    for (const QString& folder : {start, platform::homeFolder(), QStringLiteral("/")}) {
        if (!isOpen() || m_state->widget->selectFolder(folder)) {
            break;
        }
    }
    // The handler may have closed the tree already.
    if (isOpen()) {
        loop.exec();
    }
    close();
}

void FolderTree::close()
{
    if (m_state->widget != nullptr) {
        FolderTreeWidget* const widget = m_state->widget;
        m_state->widget = nullptr;
        widget->onSelected({}, {});
        widget->hide();
        widget->setParent(nullptr);
        widget->deleteLater();
    }
    if (m_state->loop != nullptr) {
        m_state->loop->quit();
    }
}

bool FolderTree::isOpen() const
{
    return m_state->widget != nullptr;
}

void FolderTree::select(const QString& folder)
{
    if (isOpen()) {
        m_state->widget->selectFolder(folder);
    }
}

QString FolderTree::selected() const
{
    return isOpen() ? m_state->widget->selectedFolder() : QString();
}

void FolderTree::setGeometry(int x, int y, int width, int height)
{
    if (isOpen()) {
        m_state->widget->setGeometry(x, y, width, height);
    }
}

QWidget* FolderTree::widget() const
{
    return m_state->widget;
}

FolderTree& folderTree()
{
    static FolderTree instance;
    return instance;
}

} // namespace files
