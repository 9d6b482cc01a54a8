#pragma once

#include "platform/desktop/dialogs.h"

#include <QDialog>
#include <QImage>
#include <QString>

class QHBoxLayout;
class QVBoxLayout;

namespace platform {

// A box with words and buttons, and beside the words an icon or a picture of what they are about.
// At least 320 pixels wide and as wide as its title needs; words wrap, inside a long path too.
// Yes and OK accept it, everything else rejects it. Used inside this folder only.
class MessageBox : public QDialog {
public:
    explicit MessageBox(QWidget* parent);

    // Each is called once at most, before the box is shown.
    void setWords(const QString& text, const QString& title);
    void setFacts(const QString& facts); // a second paragraph
    void setIcon(BoxIcon icon);
    void setPicture(const QImage& picture); // at its own device pixel ratio
    void addOk();
    void addYesNo(Answer preset);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addBeforeWords(const QPixmap& pixmap, const char* name);

    QVBoxLayout* m_column = nullptr;
    QHBoxLayout* m_row = nullptr;
    QVBoxLayout* m_words = nullptr;
};

} // namespace platform
