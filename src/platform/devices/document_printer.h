#pragma once

#include "platform/devices/pdf_pages.h"
#include "platform/devices/printed_paper.h"

#include <memory>
#include <optional>

namespace platform {

// What all printers share: their settings, and documents that are PDF files, wherever they go.
class DocumentPrinter : public Printer {
public:
    DocumentPrinter(QString name, const PrinterContact& contact);

    [[nodiscard]] QString name() const override { return m_name; }
    void setPaper(Paper paper, QSizeF customMillimetres) override;
    void setOrientation(PaperOrientation orientation) override;
    void setQuality(int dotsPerInch) override;
    [[nodiscard]] PaperMetrics metrics() override;
    [[nodiscard]] bool startDocument(const QString& title) override;
    void newPage() override;
    void draw(const QImage& picture, const QRectF& place, const QRectF& clip) override;
    void fill(const QRectF& place, base::Colour colour) override;
    bool endDocument(int copies) override;
    void abandonDocument() override;

protected:
    // By the size of the upright paper, in millimetres.
    [[nodiscard]] virtual PaperTraits traitsOf(QSizeF upright) = 0;
    // Where the document is written: open for writing, or null. What was opened before is dropped.
    [[nodiscard]] virtual QFileDevice* openTarget(const QString& title) = 0;
    // The document is whole in its target.
    [[nodiscard]] virtual bool deliver(int copies) = 0;
    virtual void dropTarget() = 0;

    void fail(PrintFailure why);
    [[nodiscard]] const PaperSetting& setting() const { return m_setting; }
    [[nodiscard]] const PrinterContact& contact() const { return m_contact; }

private:
    QString m_name;
    PrinterContact m_contact;
    PaperSetting m_setting;
    std::unique_ptr<PdfPages> m_pages; // while a document is open
};

} // namespace platform
