#include "thumbs/pane_thumbnails.h"

#include "core/browser_pane.h"
#include "core/services.h"

namespace thumbs {

ThumbNailList* paneThumbnails()
{
    auto* pane = dynamic_cast<PaneThumbnails*>(core::services().browserPane);
    return pane == nullptr ? nullptr : &pane->ThumbNailList1();
}

} // namespace thumbs
