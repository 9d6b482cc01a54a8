#pragma once

#include "platform/devices/printers.h"
#include "platform/pictures/picture.h"

#include <QRectF>
#include <QString>

namespace printing {

// The document that contact sheets are printed as, on the program's printer. It begins with the
// first thing that comes on paper; one that has begun is handed over when this goes. Without a
// printer, and once another one has been selected, nothing is printed.
class ContactSheetPaper {
public:
    ContactSheetPaper();
    ~ContactSheetPaper();
    ContactSheetPaper(const ContactSheetPaper&) = delete;
    ContactSheetPaper& operator=(const ContactSheetPaper&) = delete;

    // As the property PrintResolution has it; what is no number leaves the printer's own.
    void setQuality(const QString& dotsPerInch);
    // All 0 without a printer.
    [[nodiscard]] platform::PaperMetrics metrics();

    // Both may let events run where the document begins.
    void turnPage(const QString& title);
    void draw(const platform::Picture& picture, const QRectF& place, const QString& title);

    // The document couldn't begin, or the user wanted none.
    [[nodiscard]] bool isRefused() const { return m_state == State::Refused; }
    // False where none had begun, and when handing over has failed already.
    bool end();

private:
    enum class State { Blank, Open, Refused };

    [[nodiscard]] platform::Printer* printer() const;
    [[nodiscard]] bool begin(const QString& title);

    platform::Printer* m_printer;
    State m_state = State::Blank;
};

} // namespace printing
