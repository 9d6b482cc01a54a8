#include "thumbs/accessible_tiles.h"

#include "platform/os/paths.h"
#include "thumbs/page_viewport.h"
#include "thumbs/thumbnail_list.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <algorithm>
#include <map>

namespace thumbs {

namespace {

class AccessibleTile : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleTile(ThumbNailList& list, int row)
        : m_list(&list)
        , m_row(row)
    {
    }

    [[nodiscard]] bool isValid() const override { return tile() != nullptr; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_list.data());
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override
    {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override
    {
        return -1;
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const TileRow* row = tile();
        return kind == QAccessible::Name && row != nullptr ? platform::fileNameOf(row->path)
                                                           : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    [[nodiscard]] QRect rect() const override
    {
        const TileRow* row = tile();
        if (row == nullptr) {
            return {};
        }
        const PageViewport& viewport = m_list->surface().viewport;
        const QRect place = viewport.tilePlace(row->page, row->box);
        return {viewport.mapToGlobal(place.topLeft()), place.size()};
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = 1U;
            return state;
        }
        const bool isSelected = m_list->selectedTile() == m_row;
        state.focusable = 1U;
        state.selectable = 1U;
        state.selected = isSelected ? 1U : 0U;
        state.focused = isSelected && m_list->hasFocus() ? 1U : 0U;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction() && isValid()) {
            m_list->pressTile(m_row);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override
    {
        return {};
    }

private:
    [[nodiscard]] const TileRow* tile() const
    {
        return m_list == nullptr ? nullptr : m_list->tile(m_row);
    }

    QPointer<ThumbNailList> m_list;
    int m_row;
};

// Which of the tiles a row has; as many as there are for a row without one.
int tileIndex(std::span<const int> tiles, int row)
{
    const auto found = std::find(tiles.begin(), tiles.end(), row);
    return static_cast<int>(found - tiles.begin());
}

// The tiles come behind the widgets of the control.
class AccessibleThumbnails : public QAccessibleWidget {
public:
    explicit AccessibleThumbnails(ThumbNailList* list)
        : QAccessibleWidget(list, QAccessible::List)
    {
    }
    ~AccessibleThumbnails() override
    {
        for (const auto& [row, id] : m_tiles) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
    AccessibleThumbnails(const AccessibleThumbnails&) = delete;
    AccessibleThumbnails& operator=(const AccessibleThumbnails&) = delete;

    [[nodiscard]] int widgetCount() const { return QAccessibleWidget::childCount(); }
    [[nodiscard]] int childCount() const override { return widgetCount() + tileCount(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        const int place = index - widgetCount();
        if (place < 0) {
            return QAccessibleWidget::child(index);
        }
        return place < tileCount() ? tile(list().tiles()[static_cast<std::size_t>(place)])
                                   : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (const auto& [row, id] : m_tiles) {
            if (QAccessible::accessibleInterface(id) == child) {
                const int index = tileIndex(list().tiles(), row);
                return index < tileCount() ? widgetCount() + index : -1;
            }
        }
        return QAccessibleWidget::indexOfChild(child);
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        return list().hasFocus() && list().selectedTile() >= 0 ? tile(list().selectedTile())
                                                               : QAccessibleWidget::focusChild();
    }

private:
    [[nodiscard]] ThumbNailList& list() const { return *static_cast<ThumbNailList*>(widget()); }
    [[nodiscard]] int tileCount() const { return static_cast<int>(list().tiles().size()); }

    // Made when they are asked for and kept by the toolkit, which goes by their number.
    [[nodiscard]] QAccessibleInterface* tile(int row) const
    {
        const auto found = m_tiles.find(row);
        if (found != m_tiles.end()) {
            return QAccessible::accessibleInterface(found->second);
        }
        auto* const made = new AccessibleTile(list(), row); // the toolkit owns it
        m_tiles[row] = QAccessible::registerAccessibleInterface(made);
        return made;
    }

    mutable std::map<int, QAccessible::Id> m_tiles;
};

QAccessibleInterface* makeThumbnails(const QString& /*className*/, QObject* object)
{
    auto* list = qobject_cast<ThumbNailList*>(object);
    return list != nullptr ? new AccessibleThumbnails(list) : nullptr; // the toolkit owns it
}

} // namespace

void installAccessibleTiles()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeThumbnails);
        return true;
    }();
    static_cast<void>(isInstalled);
}

void announceTile(ThumbNailList& list, int row)
{
    if (!QAccessible::isActive()) {
        return;
    }
    const auto* const reader = QAccessible::queryAccessibleInterface(&list);
    const std::span<const int> tiles = list.tiles();
    const int widgets = reader->childCount() - static_cast<int>(tiles.size());
    QAccessibleEvent event(&list, QAccessible::Focus);
    event.setChild(widgets + tileIndex(tiles, row));
    QAccessible::updateAccessibility(&event);
}

} // namespace thumbs
