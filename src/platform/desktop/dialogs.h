#pragma once

#include "base/colours.h"

#include <QFont>
#include <QImage>
#include <QString>
#include <QStringList>
#include <optional>

namespace platform {

enum class BoxIcon { None, Information, Exclamation, Critical, Question };
enum class Answer { Yes, No };

// What a Yes/No box shows beside its words: what they are about.
struct Subject {
    QImage picture;                   // in place of the icon, at its own ratio; may be null
    QString facts;                    // a paragraph under the words; may be empty
    Answer preset = Answer::Yes;      // what Return answers
    BoxIcon icon = BoxIcon::Question; // without a picture
};

// What a file dialog is asked for. Filters are pairs of text and patterns separated by "|",
// patterns by ";", matched without regard to case: "BMP (*.BMP)|*.bmp|All|*.*".
struct FileRequest {
    QString title;
    QString filter;
    QString folder;                  // where it opens; empty: where the last one was
    QString fileName;                // proposed name
    bool severalFiles = false;       // open only
    bool askBeforeReplacing = false; // save only
};

struct SaveChoice {
    QString path;        // exactly as typed or chosen; no extension is added
    int filterIndex = 1; // one-based
};

// Message boxes and common dialogs. All are modal and stand under the default pointer, whatever it
// is before and afterwards; they end with the program.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    // A box with an OK button. An empty title stays empty.
    virtual void showMessage(const QString& text, const QString& title, BoxIcon icon) = 0;
    [[nodiscard]] virtual bool askYesNo(const QString& text, const QString& title,
                                        const Subject& subject = {}) = 0;

    // Nothing, or an empty list, when cancelled.
    [[nodiscard]] virtual QStringList openFiles(const FileRequest& request) = 0;
    [[nodiscard]] virtual std::optional<SaveChoice> saveFile(const FileRequest& request) = 0;
    [[nodiscard]] virtual std::optional<base::Colour> chooseColour(base::Colour initial) = 0;
    [[nodiscard]] virtual std::optional<QString> askText(const QString& label, const QString& title,
                                                         const QString& initial) = 0;
    // What is typed doesn't show.
    [[nodiscard]] virtual std::optional<QString> askPassword(const QString& label,
                                                             const QString& title) = 0;
    [[nodiscard]] virtual std::optional<QFont> chooseFont(const QFont& initial) = 0;
};

// The desktop's dialogs, or the ones that a test put in their place.
[[nodiscard]] Dialogs& dialogs();

// Puts other dialogs in place while it lives.
class ScopedDialogs {
public:
    explicit ScopedDialogs(Dialogs& replacement);
    ~ScopedDialogs();
    ScopedDialogs(const ScopedDialogs&) = delete;
    ScopedDialogs& operator=(const ScopedDialogs&) = delete;

private:
    Dialogs* m_previous;
};

} // namespace platform
