#pragma once

#include "base/colours.h"

#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace platform {

// Papers by the numbers that printing systems know them by. Other numbers are A4.
enum class Paper { A3 = 8, A4 = 9, A5 = 11, Custom = 256 };
enum class PaperOrientation { Portrait = 1, Landscape = 2 };

// What a printer says of the paper that is set, in its own pixels and as the paper lies: in
// landscape it is the wider one that counts as the width. All 0 where there is no such paper, so
// that nothing can be printed.
struct PaperMetrics {
    int logPixelsX = 0; // pixels in an inch
    int logPixelsY = 0;
    int physicalWidth = 0; // the whole paper
    int physicalHeight = 0;
    int physicalOffsetX = 0; // of the printable part's corner in the paper
    int physicalOffsetY = 0;
    int innerWidth = 0; // the printable part
    int innerHeight = 0;

    [[nodiscard]] bool isEmpty() const { return innerWidth <= 0 || innerHeight <= 0; }
};

enum class PrintFailure {
    Gone,     // no such printer any more, or nobody answers
    Refused,  // the printer takes no jobs, or not from this user
    NotSaved, // the document couldn't be written: a full disk, a folder without rights
};

// A printer in use. Nothing of it is fatal, and no call waits long: what it knows of its paper is
// asked for once and within bounds, and documents are sent in the background, also after this and
// the whole program are gone.
class Printer {
public:
    virtual ~Printer() = default; // abandons a document that isn't ended

    [[nodiscard]] virtual QString name() const = 0;

    // What is set here stays for all later documents; a document that is open keeps what it began
    // with. At first: A4 in portrait, in the printer's own quality.
    virtual void setPaper(Paper paper, QSizeF customMillimetres = {}) = 0; // upright
    virtual void setOrientation(PaperOrientation orientation) = 0;
    // The pixels in an inch that metrics and places count in. Nonsense leaves it as it is.
    virtual void setQuality(int dotsPerInch) = 0;

    // Never null sizes in pixels for a sensible paper: a printer that doesn't answer has A4's usual
    // margins.
    [[nodiscard]] virtual PaperMetrics metrics() = 0;

    // Begins a document on its first page. False: nothing is to be printed, since the user chose no
    // file, the file can't be written, or there is no such paper; what is drawn then goes nowhere.
    // A file is asked for in here, in a modal dialog, so events run. The title names the job.
    [[nodiscard]] virtual bool startDocument(const QString& title) = 0;
    virtual void newPage() = 0;

    // Places are in printer pixels from the corner of the printable part, beyond which nothing
    // shows. The picture keeps its own pixels: the printer gets all of them, whatever the place's
    // size. A null clip cuts nothing.
    virtual void draw(const QImage& picture, const QRectF& place, const QRectF& clip = {}) = 0;
    virtual void fill(const QRectF& place, base::Colour colour) = 0;

    // Hands the document over, as a job of its own for each copy; of a file there is one. False
    // when that has failed already.
    virtual bool endDocument(int copies = 1) = 0;
    virtual void abandonDocument() = 0;
};

struct PrinterFacts {
    QString name;
    bool isDefault = false; // of the system; at most one is
};

// What whoever opens a printer is told and asked.
struct PrinterContact {
    // The file that a document becomes, by the document's title; "" when the user wants none.
    std::function<QString(const QString& title)> askFile;
    // Once at most for each document, from inside of a call or later from the event loop.
    std::function<void(PrintFailure why)> failed;
};

class Printers {
public:
    virtual ~Printers() = default;

    // The system's printers, as they were some seconds ago at most. They are asked for two seconds
    // at most; of a printing system that doesn't answer they are those that it told last.
    [[nodiscard]] virtual std::vector<PrinterFacts> list() = 0;

    // A printer may be gone since it was listed; its documents fail then. Never null.
    [[nodiscard]] virtual std::unique_ptr<Printer> open(const QString& name,
                                                        const PrinterContact& contact) = 0;
    // A printer whose documents are PDF files. All of its paper is printable.
    [[nodiscard]] virtual std::unique_ptr<Printer> openPdf(const QString& name,
                                                           const PrinterContact& contact) = 0;

    // The one that the program prints on; null until there is one.
    [[nodiscard]] Printer* selected() const { return m_selected.get(); }
    void select(std::unique_ptr<Printer> printer) { m_selected = std::move(printer); }

private:
    std::unique_ptr<Printer> m_selected;
};

// The real ones, or what a test put in their place.
[[nodiscard]] Printers& printers();

class ScopedPrinters {
public:
    explicit ScopedPrinters(Printers& replacement);
    ~ScopedPrinters();
    ScopedPrinters(const ScopedPrinters&) = delete;
    ScopedPrinters& operator=(const ScopedPrinters&) = delete;

private:
    Printers* m_previous;
};

} // namespace platform
