#pragma once

#include "core/file_field.h"
#include "core/main_menus.h"
#include "core/picture_display.h"
#include "core/progress_strip.h"
#include "core/services.h"
#include "core/status_bar.h"
#include "core/viewer.h"
#include "core/work_area.h"
#include "platform/pictures/picture_box.h"

#include <QPoint>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

// Stand-ins for the main window and what hangs on it, for tests of the folders below the shell.
// Every call that does something is written to a log by its name.
namespace support {

class FakeViewer : public core::Viewer {
public:
    explicit FakeViewer(QStringList& log)
        : m_log(log)
    {
    }

    [[nodiscard]] platform::Picture Picture() const override { return picture; }
    void setPicture(const platform::Picture& newPicture) override
    {
        m_log.append(newPicture.isNothing() ? QStringLiteral("viewer emptied")
                                            : QStringLiteral("viewer picture %1x%2")
                                                  .arg(newPicture.width())
                                                  .arg(newPicture.height()));
        picture = newPicture;
        pictureExists = true;
    }
    [[nodiscard]] bool PictureExists() const override { return pictureExists; }
    [[nodiscard]] int PictureWidth() const override { return picture.width(); }
    [[nodiscard]] int PictureHeight() const override { return picture.height(); }
    void Clear() override
    {
        m_log.append(QStringLiteral("viewer Clear"));
        picture = {};
    }
    void Refresh() override { m_log.append(QStringLiteral("viewer Refresh")); }
    void PanViewRefresh() override { m_log.append(QStringLiteral("PanViewRefresh")); }
    void PanViewHide() override { m_log.append(QStringLiteral("PanViewHide")); }
    [[nodiscard]] base::Colour BackColor() const override { return backColor; }
    void setBackColor(base::Colour colour) override { backColor = colour; }
    [[nodiscard]] int ZoomFactor() const override { return zoomFactor; }
    void setZoomFactor(int factor) override { zoomFactor = factor; }
    void ZoomIn() override { ++zoomFactor; }
    void ZoomOut() override { --zoomFactor; }
    void ZoomReal() override { zoomFactor = 1; }
    void giveFocus() override { m_log.append(QStringLiteral("viewer focus")); }

    platform::Picture picture;
    bool pictureExists = false;
    int zoomFactor = 1;
    base::Colour backColor = 0;

private:
    QStringList& m_log;
};

class FakeStatusBar : public core::StatusBar {
public:
    void setPanel(core::Panel panel, const QString& text) override { panels[panel] = text; }
    [[nodiscard]] QString panel(core::Panel panel) const override
    {
        const auto found = panels.find(panel);
        return found == panels.end() ? QString() : found->second;
    }

    std::map<core::Panel, QString> panels;
};

class FakeProgressStrip : public core::ProgressStrip {
public:
    void showStrip(bool visible) override { shown = visible; }
    void setBackground(base::Colour colour) override { background = colour; }
    void fill(double fraction, base::Colour colour) override
    {
        fractions.push_back(fraction);
        fillColour = colour;
    }

    bool shown = false;
    base::Colour background = 0;
    base::Colour fillColour = 0;
    std::vector<double> fractions;
};

// It is in place by all its roles while it lives.
class FakeMainWindow : public core::PictureDisplay,
                       public core::FileField,
                       public core::MainMenus,
                       public core::WorkArea {
public:
    FakeMainWindow()
    {
        core::Services& services = core::services();
        services.display = this;
        services.field = this;
        services.menus = this;
        services.progress = &gradient;
        services.workArea = this;
    }
    ~FakeMainWindow() override
    {
        core::Services& services = core::services();
        services.display = nullptr;
        services.field = nullptr;
        services.menus = nullptr;
        services.progress = nullptr;
        services.workArea = nullptr;
    }

    void form1paint() override { note("form1paint"); }
    void ThumbNailSize(int menuIndex) override { note("ThumbNailSize", menuIndex); }
    void ThumbNailColor(int menuIndex) override { note("ThumbNailColor", menuIndex); }
    void closePanView() override
    {
        note("closePanView");
        if (onClosePanView) {
            onClosePanView();
        }
    }
    void addRecentPath(const QString& path) override
    {
        log.append(QStringLiteral("addRecentPath ") + path);
    }
    void refillRecentPaths() override { note("refillRecentPaths"); }
    void refillListMenus() override { note("refillListMenus"); }
    void setMenuState(bool enabled) override { note("setMenuState", enabled ? 1 : 0); }
    void popUpFolderTools(const QPoint& /*screenPosition*/) override { note("popUpFolderTools"); }
    void pressSlideButton(bool pressed) override { slideButton = pressed; }
    void setDir2(const QString& folder) override { dir2 = folder; }
    void rebuildSizeText() override { note("rebuildSizeText"); }
    void zoomToolClosed() override { note("zoomToolClosed"); }
    [[nodiscard]] QString Xiala() const override { return xiala; }
    void setXiala(const QString& text) override { xiala = text; }
    platform::PictureBox& Image1() override { return image1; }
    platform::PictureBox& orgPicture() override { return original; }
    core::Viewer& viewer() override { return fakeViewer; }
    core::StatusBar& StateBar() override { return statusBar; }
    QWidget* window() override { return parentWindow; }
    [[nodiscard]] int viewerHeightTwips() const override { return viewerHeight; }
    [[nodiscard]] std::int16_t pictureCount() const override { return counted; }

    void note(const char* name) { log.append(QString::fromLatin1(name)); }
    void note(const char* name, int value)
    {
        log.append(QString::fromLatin1(name) + QLatin1Char(' ') + QString::number(value));
    }

    QStringList log;
    QString xiala;
    QString dir2;
    FakeViewer fakeViewer{log};
    FakeStatusBar statusBar;
    FakeProgressStrip gradient;
    platform::PictureBox image1{1, 1};
    platform::PictureBox original{1, 1};
    QWidget* parentWindow = nullptr;
    std::function<void()> onClosePanView;
    int viewerHeight = 12000;
    std::int16_t counted = 0;
    bool slideButton = false;
};

} // namespace support
