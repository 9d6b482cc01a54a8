#pragma once

#include "platform/devices/printed_paper.h"
#include "platform/devices/printers.h"

#include <QStringList>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace support {

// What stands on a page, in the order of drawing.
struct PrintedThing {
    QImage picture; // null for a filled place
    QRectF place;
    QRectF clip;
    base::Colour colour = 0;
};

// A document that was handed over, as often as it was wanted.
struct PrintedDocument {
    QString printer;
    QString title;
    int copies = 0;
    platform::PaperMetrics paper; // as it was set at the start
    std::vector<std::vector<PrintedThing>> pages;
};

// Printers for tests: they keep what is printed, and are as bad as a test has them be. In place
// while they live; the printers that they open must not outlive them.
class FakePrinters : public platform::Printers {
public:
    std::vector<platform::PrinterFacts> system;

    // What the paper of all printers is, by the rim and quality or outright.
    platform::PaperTraits traits{{5, 6, 7, 8}, 200};
    std::optional<platform::PaperMetrics> metrics;

    std::function<void()> whileStarting;        // runs in each start, as a dialog's events do
    bool starts = true;                         // false: the user wants no document after all
    std::optional<platform::PrintFailure> fate; // of what is handed over

    // "paper 256 100x50", "orientation 2", "quality 200", "start Title", "page", "draw", "fill",
    // "end 5", "abandon"; all printers write into it.
    QStringList log;
    std::vector<PrintedDocument> documents;
    platform::PrinterContact lastContact;

    std::vector<platform::PrinterFacts> list() override
    {
        log.append(QStringLiteral("list"));
        return system;
    }
    std::unique_ptr<platform::Printer> open(const QString& name,
                                            const platform::PrinterContact& contact) override
    {
        lastContact = contact;
        log.append(QStringLiteral("open ") + name);
        return std::make_unique<FakePrinter>(*this, name, contact);
    }
    std::unique_ptr<platform::Printer> openPdf(const QString& name,
                                               const platform::PrinterContact& contact) override
    {
        lastContact = contact;
        log.append(QStringLiteral("open PDF ") + name);
        return std::make_unique<FakePrinter>(*this, name, contact);
    }

private:
    class FakePrinter : public platform::Printer {
    public:
        FakePrinter(FakePrinters& all, QString name, platform::PrinterContact contact)
            : m_all(all)
            , m_name(std::move(name))
            , m_contact(std::move(contact))
        {
        }

        QString name() const override { return m_name; }
        void setPaper(platform::Paper paper, QSizeF millimetres) override
        {
            m_setting.paper = paper;
            m_setting.customMillimetres = millimetres;
            write(QStringLiteral("paper %1 %2x%3")
                      .arg(int(paper))
                      .arg(millimetres.width())
                      .arg(millimetres.height()));
        }
        void setOrientation(platform::PaperOrientation orientation) override
        {
            m_setting.orientation = orientation;
            write(QStringLiteral("orientation %1").arg(int(orientation)));
        }
        void setQuality(int dotsPerInch) override
        {
            if (platform::isSensibleQuality(dotsPerInch)) {
                m_setting.dotsPerInch = dotsPerInch;
            }
            write(QStringLiteral("quality %1").arg(dotsPerInch));
        }
        platform::PaperMetrics metrics() override
        {
            return m_all.metrics.value_or(platform::metricsOf(m_setting, m_all.traits));
        }
        bool startDocument(const QString& title) override
        {
            m_open.reset();
            write(QStringLiteral("start ") + title);
            if (m_all.whileStarting) {
                m_all.whileStarting();
            }
            if (!m_all.starts || metrics().isEmpty()) {
                return false;
            }
            m_open = PrintedDocument{m_name, title, 0, metrics(), {{}}};
            return true;
        }
        void newPage() override
        {
            write(QStringLiteral("page"));
            if (m_open) {
                m_open->pages.emplace_back();
            }
        }
        void draw(const QImage& picture, const QRectF& place, const QRectF& clip) override
        {
            write(QStringLiteral("draw"));
            put({picture, place, clip});
        }
        void fill(const QRectF& place, base::Colour colour) override
        {
            write(QStringLiteral("fill"));
            put({{}, place, {}, colour});
        }
        bool endDocument(int copies) override
        {
            write(QStringLiteral("end %1").arg(copies));
            if (!m_open) {
                return false;
            }
            PrintedDocument document = *std::exchange(m_open, std::nullopt);
            if (m_all.fate) {
                m_contact.failed(*m_all.fate);
                return false;
            }
            document.copies = copies;
            m_all.documents.push_back(std::move(document));
            return true;
        }
        void abandonDocument() override
        {
            write(QStringLiteral("abandon"));
            m_open.reset();
        }

    private:
        void write(const QString& line) { m_all.log.append(line); }
        void put(const PrintedThing& thing)
        {
            if (m_open) {
                m_open->pages.back().push_back(thing);
            }
        }

        FakePrinters& m_all;
        QString m_name;
        platform::PrinterContact m_contact;
        platform::PaperSetting m_setting;
        std::optional<PrintedDocument> m_open;
    };

    platform::ScopedPrinters m_inPlace{*this};
};

} // namespace support
