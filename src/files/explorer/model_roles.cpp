#include "files/explorer/model_roles.h"

namespace files {

namespace {

constexpr char16_t kControlPictures = 0x2400; // that of NUL, the others behind it
constexpr char16_t kDelete = 0x7F;
constexpr char16_t kDeletePicture = 0x2421;
constexpr char16_t kFirstPlain = 0x20;

} // namespace

QString shownText(QString name)
{
    for (QChar& character : name) {
        const char16_t code = character.unicode();
        if (code < kFirstPlain) {
            character = QChar(static_cast<char16_t>(kControlPictures + code));
        } else if (code == kDelete) {
            character = QChar(kDeletePicture);
        } else if (character == QChar::LineSeparator || character == QChar::ParagraphSeparator) {
            character = QChar(QChar::Space);
        }
    }
    return name;
}

} // namespace files
