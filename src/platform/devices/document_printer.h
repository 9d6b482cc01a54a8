#pragma once

#include "platform/devices/pdf_pages.h"
#include "platform/devices/printed_paper.h"

#include <memory>
#include <optional>

namespace platform {

// Where one document goes. One that goes before it is delivered leaves nothing.
class PrintTarget {
public:
    virtual ~PrintTarget() = default;

    [[nodiscard]] virtual QFileDevice& file() = 0; // open for writing
    // The document is whole in its file. What went wrong, if anything.
    [[nodiscard]] virtual std::optional<PrintFailure> deliver(int copies) = 0;
};

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
    // Null without one: either nobody wants it or it has failed, which is told.
    [[nodiscard]] virtual std::unique_ptr<PrintTarget> openTarget(const QString& title) = 0;

    void fail(PrintFailure why);
    [[nodiscard]] const PaperSetting& setting() const { return m_setting; }
    // That of the document that is begun.
    [[nodiscard]] const PrinterContact& contact() const { return m_contact; }

private:
    QString m_name;
    PrinterContact m_given;
    PrinterContact m_contact; // of the document begun last, which may fail after its end
    PaperSetting m_setting;
    // While a document is open; its pages write into the target.
    std::unique_ptr<PrintTarget> m_target;
    std::unique_ptr<PdfPages> m_pages;
};

} // namespace platform
