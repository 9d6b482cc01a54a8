#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

// Where the parts of the main window stand on the screen, all from its inside rectangle.
namespace smoke {

class WindowParts {
public:
    explicit WindowParts(const QRect& inside);

    [[nodiscard]] QRect field() const { return m_field; } // the file name field's text
    [[nodiscard]] QPoint toolbarButton(int index) const;  // the middle of Tbmenu's button
    [[nodiscard]] QRect workArea() const;                 // between toolbars and status bar
    [[nodiscard]] QRect statusBar() const;
    // In browse mode: where the tiles are, and where a picture is that isn't larger than the
    // viewer.
    [[nodiscard]] QRect tiles() const;
    [[nodiscard]] QRect viewer() const;

private:
    QRect m_inside;
    int m_barTop; // of the toolbar row
    QRect m_field;
};

} // namespace smoke
