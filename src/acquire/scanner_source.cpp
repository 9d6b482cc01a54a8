#include "acquire/scanner_source.h"

#include "acquire/scan_dialog.h"
#include "acquire/scanner_chooser.h"
#include "platform/desktop/clipboard.h"
#include "platform/desktop/pointer.h"
#include "platform/desktop/pump.h"
#include "platform/os/registry.h"

#include <QByteArray>
#include <QEventLoop>
#include <QPointer>

namespace acquire {

namespace {

const QString kSection = QStringLiteral("Acquire");
const QString kScanner = QStringLiteral("Scanner");

// A dialog over a window, which goes when this does or the window goes before.
template<typename Dialog> class Shown {
public:
    explicit Shown(Dialog* dialog)
        : m_dialog(dialog)
    {
    }
    ~Shown()
    {
        if (m_dialog != nullptr) {
            m_dialog->hide();
            m_dialog->deleteLater();
        }
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

    // Until it is closed or the program closes. Null when it has gone.
    Dialog* run(QWidget* window)
    {
        const QPointer<QWidget> owner = window;
        const platform::PointerPause pause;
        m_dialog->setWindowModality(Qt::ApplicationModal);
        m_dialog->show();
        m_dialog->activateWindow();
        QEventLoop loop;
        while (m_dialog != nullptr && m_dialog->isVisible() && !platform::isClosing()) {
            loop.processEvents(QEventLoop::WaitForMoreEvents);
        }
        if (owner != nullptr && owner->isVisible() && !platform::isClosing()) {
            owner->activateWindow();
        }
        return m_dialog;
    }

private:
    QPointer<Dialog> m_dialog;
};

std::string rememberedScanner()
{
    return QByteArray::fromPercentEncoding(platform::getSetting(kSection, kScanner).toUtf8())
        .toStdString();
}

// Names of scanners are bytes, settings are text.
void rememberScanner(const std::string& name)
{
    const QByteArray bytes = QByteArray::fromStdString(name);
    const QString text = QString::fromUtf8(bytes);
    const bool isItself = text.toUtf8() == bytes && !bytes.contains('%');
    platform::saveSetting(kSection, kScanner,
                          isItself ? text : QString::fromLatin1(bytes.toPercentEncoding()));
}

} // namespace

int ScannerSource::selectImageSource(QWidget* window)
{
    Shown chooser(new ScannerChooser(window, rememberedScanner()));
    const ScannerChooser* closed = chooser.run(window);
    if (closed == nullptr || !closed->choice()) {
        return 0;
    }
    rememberScanner(*closed->choice());
    return 1;
}

int ScannerSource::acquireToClipboard(QWidget* window, std::int16_t /*pixelTypes*/)
{
    const QPointer<QWidget> owner = window;
    if (rememberedScanner().empty() && selectImageSource(window) == 0) {
        return 0;
    }
    if (platform::isClosing() || (window != nullptr && owner == nullptr)) {
        return 0;
    }
    const std::string scanner = rememberedScanner();
    Shown dialog(new ScanDialog(window, scanner, m_settings[scanner]));
    const ScanDialog* closed = dialog.run(window);
    return closed != nullptr && !closed->picture().isNothing() &&
                   platform::setClipboardPicture(closed->picture())
               ? 1
               : 0;
}

} // namespace acquire
