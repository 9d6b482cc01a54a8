#pragma once

#include <QImage>
#include <QString>
#include <QTextDocument>
#include <optional>

namespace mail {

// A document that has all it shows within itself. Pictures come from "data:" addresses; for any
// other address a frame stands in its place. Nothing is ever fetched from a network or a file.
class ClosedDocument : public QTextDocument {
    Q_OBJECT

public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};

// The address that holds a picture whole: the file as it is where every mail program shows its
// kind, else the picture as PNG. Nothing for a file that can't be shown.
struct HeldPicture {
    QString address;
    QSize size; // pixels
};
[[nodiscard]] std::optional<HeldPicture> heldPicture(const QString& path);
[[nodiscard]] std::optional<HeldPicture> heldPicture(const QImage& picture);

} // namespace mail
