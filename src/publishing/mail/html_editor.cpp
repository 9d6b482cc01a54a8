#include "publishing/mail/html_editor.h"

#include "core/settings.h"
#include "platform/desktop/dialogs.h"
#include "publishing/mail/closed_document.h"
#include "publishing/mail/html_limits.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>

namespace mail {

namespace {

constexpr int kWidestShown = 480; // pixels; a larger picture is shown smaller and kept whole
constexpr Qt::Alignment kSides = Qt::AlignLeft | Qt::AlignRight | Qt::AlignHCenter;

const QString kPictureFilter =
    QStringLiteral("Pictures|*.jpg;*.jpeg;*.jif;*.png;*.gif;*.bmp;*.ico;*.wmf;*.emf|All files|*.*");

QSize shownSize(QSize size)
{
    return size.width() <= kWidestShown
               ? size
               : QSize(kWidestShown, std::max(1, size.height() * kWidestShown / size.width()));
}

// The whole link around a place without a selection.
void takeInLink(QTextCursor& cursor)
{
    const QString address = cursor.charFormat().anchorHref();
    if (cursor.hasSelection() || address.isEmpty()) {
        return;
    }
    const QTextBlock block = cursor.block();
    for (auto it = block.begin(); it != block.end(); ++it) {
        const QTextFragment part = it.fragment();
        if (part.charFormat().anchorHref() == address && part.position() <= cursor.position() &&
            cursor.position() <= part.position() + part.length()) {
            cursor.setPosition(part.position());
            cursor.setPosition(part.position() + part.length(), QTextCursor::KeepAnchor);
            return;
        }
    }
}

QTextCharFormat linkFormat(const QString& address, const QPalette& palette)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(address);
    format.setFontUnderline(true);
    format.setForeground(palette.link());
    return format;
}

// The text as it would stand there without the link.
QTextCharFormat withoutLink(QTextCharFormat format)
{
    for (const int property :
         {QTextFormat::IsAnchor, QTextFormat::AnchorHref, QTextFormat::FontUnderline,
          QTextFormat::TextUnderlineStyle, QTextFormat::ForegroundBrush}) {
        format.clearProperty(property);
    }
    return format;
}

bool hasText(const QMimeData& source)
{
    return source.hasHtml() || source.hasText();
}

// Without the toolkit's own format, which it would take first, and which nobody has measured.
std::unique_ptr<QMimeData> textOf(const QMimeData& source)
{
    auto text = std::make_unique<QMimeData>();
    if (source.hasHtml()) {
        text->setHtml(source.html());
    }
    if (source.hasText()) {
        text->setText(source.text());
    }
    return text;
}

} // namespace

struct HtmlEditor::Command {
    int number;
    void (HtmlEditor::*run)();
    std::optional<Qt::Key> key = std::nullopt; // with Ctrl; the others have none of their own
    bool (*isOn)(const HtmlEditor& editor) = nullptr; // null for what doesn't switch
};

const HtmlEditor::Command HtmlEditor::kCommands[] = {
    {DECMD_BOLD, &HtmlEditor::toggleBold, Qt::Key_B,
     [](const HtmlEditor& editor) { return editor.fontWeight() > QFont::Normal; }},
    {DECMD_COPY, &HtmlEditor::copy},
    {DECMD_CUT, &HtmlEditor::cut},
    {DECMD_FONT, &HtmlEditor::chooseFont},
    {DECMD_HYPERLINK, &HtmlEditor::editLink, Qt::Key_K},
    {DECMD_IMAGE, &HtmlEditor::choosePicture},
    {DECMD_ITALIC, &HtmlEditor::toggleItalic, Qt::Key_I,
     [](const HtmlEditor& editor) { return editor.fontItalic(); }},
    {DECMD_JUSTIFYCENTER, &HtmlEditor::justifyCentre, Qt::Key_E,
     [](const HtmlEditor& editor) { return (editor.alignment() & kSides) == Qt::AlignHCenter; }},
    {DECMD_JUSTIFYLEFT, &HtmlEditor::justifyLeft, Qt::Key_L,
     [](const HtmlEditor& editor) { return (editor.alignment() & kSides) == Qt::AlignLeft; }},
    {DECMD_JUSTIFYRIGHT, &HtmlEditor::justifyRight, Qt::Key_R,
     [](const HtmlEditor& editor) { return (editor.alignment() & kSides) == Qt::AlignRight; }},
    {DECMD_PASTE, &HtmlEditor::paste},
    {DECMD_UNDERLINE, &HtmlEditor::toggleUnderline, Qt::Key_U,
     [](const HtmlEditor& editor) { return editor.fontUnderline(); }},
};

HtmlEditor::HtmlEditor(QWidget* parent)
    : QTextEdit(parent)
{
    setDocument(new ClosedDocument(this));
    setTabChangesFocus(true);
    connect(this, &QTextEdit::currentCharFormatChanged, this, &HtmlEditor::stateChanged);
    connect(this, &QTextEdit::cursorPositionChanged, this, &HtmlEditor::stateChanged);
}

void HtmlEditor::newDocument()
{
    clear();
    textCursor().setBlockFormat({});
    setCurrentCharFormat({});
    document()->setModified(false);
}

bool HtmlEditor::setDocumentHtml(const QString& html)
{
    if (!isShowableHtml(html)) {
        return false;
    }
    setHtml(html);
    return true;
}

void HtmlEditor::ExecCommand(int command)
{
    const auto* const found =
        std::ranges::find_if(kCommands, [&](const Command& row) { return row.number == command; });
    if (found != std::end(kCommands)) {
        (this->*found->run)();
    }
}

bool HtmlEditor::isCommandOn(int command) const
{
    const auto* const found =
        std::ranges::find_if(kCommands, [&](const Command& row) { return row.number == command; });
    return found != std::end(kCommands) && found->isOn != nullptr && found->isOn(*this);
}

void HtmlEditor::focusInEvent(QFocusEvent* event)
{
    QTextEdit::focusInEvent(event);
    emit focused();
}

void HtmlEditor::keyPressEvent(QKeyEvent* event)
{
    const auto* const found = std::ranges::find_if(kCommands, [&](const Command& row) {
        return row.key == event->key() && event->modifiers() == Qt::ControlModifier;
    });
    if (found == std::end(kCommands)) {
        QTextEdit::keyPressEvent(event);
    } else {
        (this->*found->run)();
    }
}

// As text and HTML only: any other format would be made by opening the pictures that it names.
QMimeData* HtmlEditor::createMimeDataFromSelection() const
{
    const QTextDocumentFragment selected = textCursor().selection();
    auto taken = std::make_unique<QMimeData>();
    taken->setHtml(selected.toHtml());
    taken->setText(selected.toPlainText());
    return taken.release();
}

bool HtmlEditor::canInsertFromMimeData(const QMimeData* source) const
{
    return hasText(*source) || (source->hasImage() && !core::setting(core::kClassic));
}

// A picture alone goes in as one; beside a text the text is what is meant.
void HtmlEditor::insertFromMimeData(const QMimeData* source)
{
    if (hasText(*source)) {
        if (isShowableHtml(source->html()) && isShowableText(source->text())) {
            QTextEdit::insertFromMimeData(textOf(*source).get());
        }
    } else if (!canInsertFromMimeData(source)) {
        return;
    } else if (const auto picture = heldPicture(qvariant_cast<QImage>(source->imageData()))) {
        insertPicture(picture->address, picture->size);
    }
}

void HtmlEditor::toggleBold()
{
    setFontWeight(isCommandOn(DECMD_BOLD) ? QFont::Normal : QFont::Bold);
    emit stateChanged();
}

void HtmlEditor::toggleItalic()
{
    setFontItalic(!fontItalic());
    emit stateChanged();
}

void HtmlEditor::toggleUnderline()
{
    setFontUnderline(!fontUnderline());
    emit stateChanged();
}

void HtmlEditor::justifyLeft()
{
    setAlignment(Qt::AlignLeft);
    emit stateChanged();
}

void HtmlEditor::justifyCentre()
{
    setAlignment(Qt::AlignHCenter);
    emit stateChanged();
}

void HtmlEditor::justifyRight()
{
    setAlignment(Qt::AlignRight);
    emit stateChanged();
}

// The window may go while a dialog is open.
void HtmlEditor::chooseFont()
{
    const QPointer<HtmlEditor> alive = this;
    const std::optional<QFont> font = platform::dialogs().chooseFont(currentFont());
    if (font && alive != nullptr) {
        setCurrentFont(*font);
        emit stateChanged();
    }
}

void HtmlEditor::choosePicture()
{
    platform::FileRequest request;
    request.title = QStringLiteral("Insert Picture");
    request.filter = kPictureFilter;
    const QPointer<HtmlEditor> alive = this;
    const QStringList files = platform::dialogs().openFiles(request);
    if (files.isEmpty() || alive == nullptr) {
        return;
    }
    if (const auto picture = heldPicture(files.first())) {
        insertPicture(picture->address, picture->size);
    } else {
        platform::dialogs().showMessage(QStringLiteral("This file can't be shown as a picture."),
                                        QStringLiteral("Error"), platform::BoxIcon::Critical);
    }
}

void HtmlEditor::editLink()
{
    QTextCursor cursor = textCursor();
    takeInLink(cursor);
    const QString before = cursor.charFormat().anchorHref();
    const QPointer<HtmlEditor> alive = this;
    const std::optional<QString> address = platform::dialogs().askText(
        QStringLiteral("Address of the link:"), QStringLiteral("Hyperlink"), before);
    if (address && alive != nullptr) {
        setTextCursor(cursor);
        setLink(address->trimmed());
    }
}

// Around the selection, or as a text of its own; an empty address takes the link off.
void HtmlEditor::setLink(const QString& address)
{
    QTextCursor cursor = textCursor();
    const QTextCharFormat plain = withoutLink(cursor.charFormat());
    if (address.isEmpty()) {
        cursor.setCharFormat(plain);
        return;
    }
    if (cursor.hasSelection()) {
        cursor.mergeCharFormat(linkFormat(address, palette()));
        cursor.setPosition(cursor.selectionEnd());
    } else {
        QTextCharFormat format = plain;
        format.merge(linkFormat(address, palette()));
        cursor.insertText(address, format);
    }
    setTextCursor(cursor);
    setCurrentCharFormat(plain); // what is typed next isn't part of it
}

void HtmlEditor::insertPicture(const QString& address, QSize size)
{
    const QSize shown = shownSize(size);
    QTextImageFormat format;
    format.setName(address);
    format.setWidth(shown.width());
    format.setHeight(shown.height());
    textCursor().insertImage(format);
    ensureCursorVisible();
}

} // namespace mail
