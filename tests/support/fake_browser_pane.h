#pragma once

#include "core/browser_pane.h"
#include "core/services.h"
#include "platform/os/file_list.h"

#include <QWidget>

namespace support {

// A pane that has a list of files and does nothing else. It is in place while it lives.
class FakeBrowserPane : public QWidget, public core::BrowserPane {
public:
    explicit FakeBrowserPane(QWidget* parent)
        : QWidget(parent)
    {
        core::services().browserPane = this;
    }
    ~FakeBrowserPane() override { core::services().browserPane = nullptr; }

    platform::FileList& File1() override { return files; }
    void applyPath(const QString& /*folder*/) override {}
    void ThumResize() override {}
    void setSplitterEnabled(bool /*enabled*/) override {}
    void rebuildThumbnails() override {}
    void stopThumbnails() override { ++stops; }
    void setThumbnailSize(int /*pixels*/) override {}
    void setColourPreset(int /*preset*/) override {}
    int thumbnailPagesNeeded() override { return 0; }
    int thumbnailsPerPage() override { return 0; }
    [[nodiscard]] bool isFirstFolderShown() const override { return true; }
    [[nodiscard]] int widthTwips() const override { return 0; }

    platform::FileList files;
    int stops = 0; // that were asked for
};

} // namespace support
