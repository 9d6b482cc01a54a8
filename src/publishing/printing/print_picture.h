#pragma once

#include "base/colours.h"
#include "core/property_bag.h"
#include "platform/pictures/picture.h"
#include "platform/pictures/picture_box.h"
#include "publishing/printing/print_picture_layout.h"

#include <QObject>
#include <array>
#include <cstdint>

namespace platform {
class Printer;
}

// Prints one picture on one page. GetPreview() shows the page in pixels of 96 to the inch; on paper
// everything lies at the same place, and the picture keeps all of its pixels.
class AAPrintPicture : public QObject {
    Q_OBJECT

public:
    explicit AAPrintPicture(QObject* parent = nullptr);

    [[nodiscard]] std::int32_t Align() const { return m_values.Align; }
    void setAlign(std::int32_t align) { m_values.Align = align; }
    [[nodiscard]] const platform::Picture& Picture() const { return m_picture; }
    void setPicture(const platform::Picture& picture) { m_picture = picture; }
    [[nodiscard]] base::Colour BackColor() const { return m_values.BackColor; }
    void setBackColor(base::Colour colour) { m_values.BackColor = colour; }
    [[nodiscard]] base::Colour BorderColor() const { return m_values.BorderColor; }
    void setBorderColor(base::Colour colour) { m_values.BorderColor = colour; }
    [[nodiscard]] bool ShowBorder() const { return m_values.ShowBorder; }
    void setShowBorder(bool show) { m_values.ShowBorder = show; }
    [[nodiscard]] const QString& DefultPrinter() const { return m_values.Printer; }
    void setDefultPrinter(const QString& name) { m_values.Printer = name; }
    [[nodiscard]] std::int32_t PaperSize() const { return m_values.PaperSize; }
    void setPaperSize(std::int32_t size) { m_values.PaperSize = size; }
    [[nodiscard]] std::int16_t PaperWidth() const { return m_values.PaperWidth; }
    void setPaperWidth(std::int16_t millimetres) { m_values.PaperWidth = millimetres; }
    [[nodiscard]] std::int16_t PaperHeight() const { return m_values.PaperHeight; }
    void setPaperHeight(std::int16_t millimetres) { m_values.PaperHeight = millimetres; }
    [[nodiscard]] bool Stretch() const { return m_values.Stretch; }
    void setStretch(bool stretch) { m_values.Stretch = stretch; }
    [[nodiscard]] std::int16_t Copies() const { return m_values.Copies; }
    void setCopies(std::int16_t copies) { m_values.Copies = copies; }

    // A picture that is larger than the page is reduced to it; not kept.
    [[nodiscard]] bool shrinksToFit() const { return m_shrinksToFit; }
    void setShrinksToFit(bool shrinks) { m_shrinksToFit = shrinks; }
    // What the print job and the file of a print to a file are called.
    void setDocumentTitle(const QString& title) { m_documentTitle = title; }

    void WriteProperties(core::PropertyBag& bag) const;
    // Missing values, and values that don't fit their property, read as the default.
    void ReadProperties(const core::PropertyBag& bag);

    // Selects the printer and measures its margins for the paper. A name that no printer has leaves
    // the one of the program that is selected.
    void GetPrinterMargin();
    // The paper in millimetres, upright however it lies in the printer.
    void GetPaperWH(std::int16_t& width, std::int16_t& height) const;
    // The page, or Nothing where the paper has no room or is too large for a picture of it.
    [[nodiscard]] platform::Picture GetPreview();
    // A document for each copy. Nothing is printed of no picture, on a page without room, or,
    // outside classic mode, in place of a printer that is gone, which is told. A file is asked for
    // meanwhile, so events may run.
    void PrintPicture();
    // Whether the printer lays the paper on its side.
    void Hvprinter(bool landscape);

signals:
    // After each measurement, in pixels of the printer.
    void MarginsMeasured(int left, int top, int right, int bottom);

private:
    struct Values {
        std::int32_t Align = 4;
        base::Colour BackColor = 0xFFFFFF;
        base::Colour BorderColor = 0;
        bool ShowBorder = true;
        QString Printer;
        std::int32_t PaperSize = 2;
        std::int16_t PaperWidth = 210; // millimetres
        std::int16_t PaperHeight = 297;
        bool Stretch = false;
        std::int16_t Copies = 1;
    };
    struct PropertyRow;
    // In pixels of the page.
    struct Composition {
        QSize page;
        QRect picture;
        std::array<QRect, 4> border; // its sides, as far as they are seen
    };

    static const std::array<PropertyRow, 10> kPropertyRows;

    void setPaper(platform::Printer& printer) const;
    void setOrientation(platform::Printer& printer) const;
    [[nodiscard]] Composition compose();
    [[nodiscard]] QSize pageSize() const;
    [[nodiscard]] bool isElsewhere(const platform::Printer* printer) const;
    void drawOn(platform::Printer& printer, const Composition& composition) const;

    Values m_values;
    platform::Picture m_picture; // picPicture
    bool m_shrinksToFit = false;
    QString m_documentTitle;
    bool m_isLandscape = false;
    bool m_pageFollowsPaper = false; // lies on its side when the paper does
    printing::Margins m_margins;
    platform::PictureBox m_picPrint; // the page
};
