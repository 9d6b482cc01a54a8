#pragma once

#include <QString>
#include <functional>
#include <initializer_list>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QWidget;

namespace widgets {

class StripWindow;

// The keys that press a button of a window while no other button has the focus.
enum class PressedBy { HandAlone, Return, Escape, ReturnAndEscape };

struct FormButton {
    const char* name;
    const char* caption;
    std::function<void()> press;
    PressedBy keys = PressedBy::HandAlone;
};

// Puts a small window together, from top to bottom. Each part gets its objectName and a name that a
// screen reader can say (a button its caption, if it has one), and belongs to the window; Tab goes
// through them in the order in which they came.
class FormBuilder {
public:
    explicit FormBuilder(StripWindow& window);

    // Parts beside each other or below each other, at this place. A stretch shares spare room.
    [[nodiscard]] FormBuilder addRow(int stretch = 0);
    [[nodiscard]] FormBuilder addColumn(int stretch = 0);
    void addStretch();

    // A page of a stack, from top to bottom.
    [[nodiscard]] FormBuilder addPage(QStackedWidget& pages, const char* name,
                                      const char* spokenName);

    template<typename Part>
    Part* add(Part* part, const char* name, const char* spokenName = "", int stretch = 0)
    {
        own(part, name, spokenName);
        place(*part, stretch);
        return part;
    }
    void addText(const QString& text);
    void addHeading(const QString& text);
    // A text that is as wide as told, on as many lines as it takes.
    void addNote(const QString& text, int width);
    // A field that is marked while it has the focus.
    QLineEdit* addField(const char* name, const char* spokenName);

    // A line of a table, which goes on with the next: the caption at the left leads to the part.
    template<typename Part>
    Part* addCaptioned(QLabel* caption, Part* part, const char* name, const char* spokenName = "")
    {
        placeCaptioned(*caption, *own(part, name, spokenName));
        return part;
    }

    // A row with the buttons at its right. Gives the one that Return presses, null without one;
    // where Escape presses none, it closes the window.
    QPushButton* addButtons(std::initializer_list<FormButton> buttons);

    // Without a place.
    template<typename Part> Part* own(Part* part, const char* name, const char* spokenName = "")
    {
        adopt(*part, name, spokenName);
        return part;
    }

private:
    FormBuilder(StripWindow& window, QBoxLayout& layout);

    void adopt(QWidget& part, const char* name, const char* spokenName);
    void place(QWidget& part, int stretch);
    void placeCaptioned(QLabel& caption, QWidget& part);

    StripWindow& m_window;
    QBoxLayout& m_layout;
    QGridLayout* m_table = nullptr; // while lines come one after the other
};

} // namespace widgets
