#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// The document file (".qpm") that keeps a message between sessions.
namespace mail {

struct MailDocument {
    QString to;
    QString from;
    QString subject;
    QString body; // HTML
};

// The bytes of the file, UTF-8, the three fields without blanks around them. The address of the
// recipient stands under the marker "[MailFrom]" and the sender's under "[MAILTO]"; so it is in
// every file there is.
[[nodiscard]] QByteArray documentBytes(const MailDocument& document);

// What was found in a file, in the order of its records. Reading stops at the first one that has no
// marker or no end: it and those behind it are nothing then. The marker line isn't looked at.
struct DocumentRecords {
    std::optional<QString> to; // the fields end at their first line end of any kind
    std::optional<QString> from;
    std::optional<QString> subject;
    std::optional<QString> body;
};
[[nodiscard]] DocumentRecords readDocument(const QByteArray& bytes);

} // namespace mail
