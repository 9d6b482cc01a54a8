#pragma once

#include "platform/devices/scanners.h"
#include "widgets/strip_window.h"

#include <QPointer>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;

namespace acquire {

// Lists the scanners of the system, for one to be chosen. Where there is none a text in the place
// of the list says so.
class ScannerChooser : public widgets::StripWindow {
    Q_OBJECT

public:
    // With the scanner chosen before marked. The window, which may be null, owns it.
    ScannerChooser(QWidget* window, std::string before);

    // The scanner's name, once one was chosen.
    [[nodiscard]] const std::optional<std::string>& choice() const { return m_choice; }

private:
    void buildControls();
    void search();
    void take(const std::vector<platform::ScannerFacts>& scanners);
    void say(const QString& text);
    void choose();

    std::string m_before;
    std::optional<std::string> m_choice;
    QPointer<platform::ScannerSearch> m_search; // owned

    QStackedWidget* m_pages = nullptr; // children
    QListWidget* m_list = nullptr;
    QLabel* m_text = nullptr;
    QPushButton* m_select = nullptr;
    QPushButton* m_again = nullptr;
};

} // namespace acquire
