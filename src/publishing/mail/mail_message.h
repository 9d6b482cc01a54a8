#pragma once

#include <QByteArray>
#include <QString>

namespace mail {

// A message as the composer has it.
struct MailDraft {
    QString from; // the From, To and Subject fields
    QString to;
    QString subject;
    QString html;
    QString picture; // path of the file that goes with it; empty: none. Plain sending has none.
};

// The text on one line: what some program on the way might take for the end of a line, and every
// other control character, is a blank. Head lines and commands are built from such texts only.
[[nodiscard]] QString onOneLine(const QString& text);

// Head and body in UTF-8, as the plain dialogue sends them: sender, recipient, subject, a head that
// marks the body as HTML, an empty line and the body with CR LF behind each line and a second "."
// at lines that begin with one. It ends with the line "." that ends the message, without its CR LF.
// A large one takes a while, so it is made piece by piece.
class PlainMessage {
public:
    explicit PlainMessage(const MailDraft& draft);

    // Adds about a megabyte; false once all is there.
    [[nodiscard]] bool goOn();
    [[nodiscard]] QByteArray take(); // what there is, with the end

private:
    void addPartOfLine();

    QString m_html;
    qsizetype m_at = 0;    // of m_html
    bool m_inLine = false; // its begin is there already
    QByteArray m_text;
};

[[nodiscard]] QByteArray mailMessageText(const MailDraft& draft);

} // namespace mail
