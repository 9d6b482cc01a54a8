#pragma once

#include <QComboBox>
#include <QIcon>
#include <QStringList>

namespace shell {

// Xiala: the field with the path of the file shown, and the recent paths in its drop-down. Setting
// its text opens nothing; Return and a choice in the drop-down do, through the signals.
class FileNameField : public QComboBox {
    Q_OBJECT

public:
    explicit FileNameField(QWidget* parent);

    // The paths of the drop-down, the oldest first. The text of the field stays.
    void setRecentPaths(const QStringList& paths);

    void showPopup() override;

signals:
    void entered(); // Return was pressed
    void chosen();  // an entry of the drop-down was chosen; the field holds it

private:
    [[nodiscard]] int widestEntry() const; // pixels
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    QIcon m_light; // of each recent path
};

} // namespace shell
