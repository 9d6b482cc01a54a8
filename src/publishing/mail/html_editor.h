#pragma once

#include <QTextEdit>

namespace mail {

// The commands of the editor, by the numbers that they go by.
enum EditorCommand : int {
    DECMD_BOLD = 5000,
    DECMD_COPY = 5002,
    DECMD_CUT = 5003,
    DECMD_FONT = 5009,
    DECMD_HYPERLINK = 5016,
    DECMD_IMAGE = 5017,
    DECMD_ITALIC = 5023,
    DECMD_JUSTIFYCENTER = 5024,
    DECMD_JUSTIFYLEFT = 5025,
    DECMD_JUSTIFYRIGHT = 5026,
    DECMD_PASTE = 5032,
    DECMD_UNDERLINE = 5048,
};

// An editor for the HTML of a mail. Its document is closed: whatever is opened, pasted or dropped,
// nothing is loaded from a network or from files. Pictures that the user puts in are kept in the
// HTML itself. Nothing in it runs, and no link opens.
class HtmlEditor : public QTextEdit {
    Q_OBJECT

public:
    explicit HtmlEditor(QWidget* parent = nullptr);

    void newDocument();
    [[nodiscard]] QString documentHtml() const { return toHtml(); }
    // False, and the document stays, for one that would take too long to lay out.
    bool setDocumentHtml(const QString& html);

    // Other numbers do nothing. Font, picture and link ask the user first.
    void ExecCommand(int command);
    // Whether a command that switches is on where the cursor is.
    [[nodiscard]] bool isCommandOn(int command) const;

signals:
    void focused();
    void stateChanged(); // isCommandOn() may answer anew

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void toggleBold();
    void toggleItalic();
    void toggleUnderline();
    void justifyLeft();
    void justifyCentre();
    void justifyRight();
    void chooseFont();
    void choosePicture();
    void editLink();
    void setLink(const QString& address);
    void insertPicture(const QString& address, QSize size);

    struct Command;
    static const Command kCommands[];
};

} // namespace mail
