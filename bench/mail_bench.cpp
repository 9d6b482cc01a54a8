// mail_bench plain|starttls|tls PORT MEGABYTES AUTHORITY
//
// Sends a mail of that size from the mail window to a server on loopback; mail.sh starts one and
// calls this. In the clear the size is that of a picture in the text, else of an attached one.
// Tells the peak of the memory above what was in use before Send was pressed, and the longest time
// in which no event was handled, from that moment to the end of the sending.

#include "core/config_store.h"
#include "core/constants.h"
#include "core/file_field.h"
#include "core/services.h"
#include "platform/os/paths.h"
#include "publishing/mail/html_editor.h"
#include "publishing/mail/mail_window.h"
#include "publishing/mail/smtp_client.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <utility>

namespace {

constexpr double kBytesOfBase64 = 4.0 / 3; // each byte becomes
constexpr int kBytesOfPixel = 3;

class Settings : public core::ConfigStore {
public:
    Settings() { core::services().config = this; }
    [[nodiscard]] QString read(const QString& key) const override
    {
        const auto found = values.find(key);
        return found == values.end() ? core::kMissingValue : found->second;
    }
    void write(const QString& /*key*/, const QString& /*value*/) override {}
    std::map<QString, QString> values;
};

class Field : public core::FileField {
public:
    Field() { core::services().field = this; }
    [[nodiscard]] QString Xiala() const override { return text; }
    void setXiala(const QString& newText) override { text = newText; }
    void addRecentPath(const QString& /*path*/) override {}
    void refillRecentPaths() override {}
    QString text;
};

// Nothing makes it smaller, so its file is as large as its pixels.
QString noisePicture(const QString& folder, double bytes)
{
    const int side = int(std::sqrt(bytes / kBytesOfPixel));
    QImage noise(side, side, QImage::Format_RGB888);
    QRandomGenerator random(1);
    for (int y = 0; y < side; ++y) {
        uchar* const row = noise.scanLine(y);
        std::generate(row, row + kBytesOfPixel * side, [&] { return uchar(random.generate()); });
    }
    const QString path = folder + QStringLiteral("/noise.png");
    noise.save(path, "PNG");
    return path;
}

// A line of /proc/self/status, in megabytes.
double megabytes(const QByteArray& name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    static_cast<void>(status.open(QIODevice::ReadOnly));
    const QByteArray all = status.readAll();
    return all.mid(all.indexOf(name) + name.size() + 1).trimmed().split(' ').front().toDouble() /
           1024;
}

void forgetPeak()
{
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    static_cast<void>(peak.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    peak.write("5");
}

// The longest time between two looks at the clock that the event loop grants.
class Gaps {
public:
    Gaps()
    {
        m_clock.start();
        QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
        m_timer.start(1);
    }
    void look()
    {
        longest = std::max(longest, double(m_clock.nsecsElapsed()) / 1e6);
        m_clock.start();
    }
    // What was until now stands apart.
    void begin()
    {
        look();
        before = std::exchange(longest, 0);
    }
    double longest = 0; // milliseconds
    double before = 0;

private:
    QElapsedTimer m_clock;
    QTimer m_timer;
};

void trust(const QString& authority)
{
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.addCaCertificates(QSslCertificate::fromPath(authority));
    QSslConfiguration::setDefaultConfiguration(trusting);
}

void write(frmMailSender& window, const QString& picture, bool inText)
{
    window.findChild<QLineEdit*>(QStringLiteral("txtMail_0"))
        ->setText(QStringLiteral("a@example.org"));
    if (inText) {
        QFile file(picture);
        static_cast<void>(file.open(QIODevice::ReadOnly));
        const QString address = QStringLiteral("data:image/png;base64,") +
                                QString::fromLatin1(file.readAll().toBase64());
        static_cast<void>(window.findChild<mail::HtmlEditor*>()->setDocumentHtml(
            QStringLiteral("<p><img src=\"%1\" width=\"64\" height=\"64\"></p>").arg(address)));
    }
}

int send(frmMailSender& window, const char* mode)
{
    forgetPeak();
    const double before = megabytes("VmRSS:");
    QElapsedTimer clock;
    clock.start();
    Gaps gaps;
    QObject::connect(window.findChild<mail::SmtpClient*>(), &mail::SmtpClient::sendingChanged,
                     [&](bool begins) { begins ? gaps.begin() : gaps.look(); });
    window.findChild<QAbstractButton*>(QStringLiteral("Toolbar1_Button_0"))->click();
    const QString outcome = window.findChild<QLabel*>(QStringLiteral("lblStatus"))->text();
    std::printf("%s: %s; %.1f s, peak %.1f MB above %.0f, text taken in %.1f ms, longest "
                "gap then %.1f ms\n",
                mode, qPrintable(outcome), double(clock.elapsed()) / 1000,
                megabytes("VmHWM:") - before, before, gaps.before, gaps.longest);
    return outcome.contains(QStringLiteral("Send Complete")) ? 0 : 1;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 5) {
        std::fputs("mail_bench plain|starttls|tls PORT MEGABYTES AUTHORITY\n", stderr);
        return 2;
    }
    const QByteArray mode = arguments[1];
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("VISTARA_HOME", home.path().toLocal8Bit());
    QApplication application(count, arguments);
    platform::initialisePaths();
    QFile file(platform::appFile(QStringLiteral("config.ini")));
    static_cast<void>(file.open(QIODevice::WriteOnly)); // its being there says: no first run
    trust(QString::fromLocal8Bit(arguments[4]));
    Settings settings;
    settings.values = {{"Servername", "127.0.0.1"},
                       {"Serverport", arguments[2]},
                       {"Mailtext", "me@example.org"},
                       {"MailSecurity", mode == "plain" ? "0"
                                        : mode == "tls" ? "2"
                                                        : "1"}};
    const double bytes = QByteArray(arguments[3]).toDouble() * 1e6;
    Field field;
    field.text = noisePicture(home.path(), bytes / kBytesOfBase64);
    frmMailSender window;
    window.show();
    write(window, field.text, mode == "plain");
    QApplication::processEvents();
    return send(window, mode.constData());
}
