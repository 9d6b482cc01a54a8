#include "shell/display_host.h"

#include "core/browser_pane.h"
#include "core/services.h"
#include "core/viewer.h"
#include "platform/os/file_list.h"
#include "shell/main_window.h"
#include "viewer/display_pipeline.h"
#include "viewer/picture_viewer.h"

#include <QApplication>

namespace shell {

namespace {

class FormDisplayHost : public viewer::DisplayHost {
public:
    explicit FormDisplayHost(Form1& form)
        : m_form(form)
    {
    }

    platform::FileList* File1() override
    {
        core::BrowserPane* pane = core::services().browserPane;
        return pane != nullptr ? &pane->File1() : nullptr;
    }
    [[nodiscard]] std::int16_t PictureCount() const override { return m_form.PictureCount; }
    [[nodiscard]] QString Xiala() const override { return m_form.Xiala(); }
    void setXiala(const QString& text) override { m_form.setXiala(text); }
    void clickXiala() override { m_form.clickXiala(); }
    void copyImage1ToOrgPicture() override
    {
        m_form.orgPicture().setPicture(m_form.Image1().picture());
    }
    void focusViewer() override { m_form.viewer().giveFocus(); }
    void pressSlideButton(bool pressed) override { m_form.pressSlideButton(pressed); }
    [[nodiscard]] bool isWindowMinimised() const override { return m_form.isMinimized(); }
    [[nodiscard]] bool isModalWindowOpen() const override
    {
        return QApplication::activeModalWidget() != nullptr;
    }
    // In the pane keys walk through folders and tiles, as they write in a field of text.
    [[nodiscard]] bool isUserTyping() const override
    {
        const QWidget* focus = m_form.focusWidget();
        const auto* pane = dynamic_cast<const QWidget*>(core::services().browserPane);
        return focus != nullptr && (focus->testAttribute(Qt::WA_InputMethodEnabled) ||
                                    (pane != nullptr && pane->isAncestorOf(focus)));
    }

private:
    Form1& m_form;
};

} // namespace

std::unique_ptr<viewer::DisplayHost> makeDisplayHost(Form1& form)
{
    return std::make_unique<FormDisplayHost>(form);
}

} // namespace shell
