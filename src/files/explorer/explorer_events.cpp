#include "files/explorer/explorer_events.h"

#include <array>

namespace files {

namespace {

constexpr std::array kEvents{
    EventRow{"AfterRename", "qint16*,QString"},
    EventRow{"BeforeRename", "qint16*"},
    EventRow{"Change", ""},
    EventRow{"Click", ""},
    EventRow{"ColumnClick", "qint32"},
    EventRow{"DblClick", ""},
    EventRow{"DriveNotReady", ""},
    EventRow{"FolderCheck", "QString,bool"},
    EventRow{"FolderClick", "QString"},
    EventRow{"FolderDblClick", "QString"},
    EventRow{"FolderExpand", "QString"},
    EventRow{"FolderCollapse", "QString"},
    EventRow{"FileCheck", "QString,bool"},
    EventRow{"FileClick", "QString"},
    EventRow{"FileDblClick", "QString"},
    EventRow{"KeyDown", "qint16,qint16"},
    EventRow{"KeyPress", "qint16"},
    EventRow{"KeyUp", "qint16,qint16"},
    EventRow{"MouseDown", "qint16,qint16,float,float"},
    EventRow{"MouseMove", "qint16,qint16,float,float"},
    EventRow{"MouseUp", "qint16,qint16,float,float"},
    EventRow{"OLECompleteDrag", "qint32"},
    EventRow{"OLEDragDrop", "QMimeData*,qint32*,qint16,qint16,float,float"},
    EventRow{"OLEDragOver", "QMimeData*,qint32*,qint16,qint16,float,float,qint16"},
    EventRow{"OLEGiveFeedback", "qint32*,bool*"},
    EventRow{"OLESetData", "QMimeData*,qint16"},
    EventRow{"OLEStartDrag", "QMimeData*,qint32*"},
    EventRow{"Progress", "qint16"},
    EventRow{"RootClick", "qint16"},
    EventRow{"RootDblClick", "qint16"},
    EventRow{"RootCheck", "qint16,bool"},
    EventRow{"RootExpand", "qint16"},
    EventRow{"RootCollapse", "qint16"},
};

} // namespace

std::span<const EventRow> eventRows()
{
    return kEvents;
}

} // namespace files
