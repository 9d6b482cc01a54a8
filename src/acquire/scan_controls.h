#pragma once

#include "acquire/scan_settings.h"

#include <QObject>
#include <map>

class QComboBox;
class QDoubleSpinBox;
class QLabel;

namespace widgets {
class FormBuilder;
}

namespace acquire {

// The controls for a scanner's options, a line for each. Only lines of options that the scanner has
// now are seen.
class ScanControls : public QObject {
    Q_OBJECT

public:
    // The controls belong to the builder's window, this to the parent.
    ScanControls(widgets::FormBuilder& form, QObject* parent);

    // Shows options as they stand; says nothing.
    void show(const ScanOptions& options);
    void showArea(const QRectF& area);
    void setEnabled(bool enabled);

signals:
    // By hand.
    void changed(platform::ScanRole role, const platform::ScanValue& value);
    void areaTyped(const QRectF& area);

private:
    struct Line {
        QLabel* caption = nullptr;
        QWidget* control = nullptr;
    };

    void addChoice(widgets::FormBuilder& form, platform::ScanRole role);
    void addNumber(widgets::FormBuilder& form, platform::ScanRole role);
    void addSide(widgets::FormBuilder& form, int side);
    void showChoice(QComboBox& box, const platform::ScanOption& option);
    void showNumber(QDoubleSpinBox& box, const platform::ScanOption& option);
    void showBed(const ScanOptions& options);
    void tellArea();

    std::map<platform::ScanRole, Line> m_choices;
    std::map<platform::ScanRole, Line> m_numbers;
    std::vector<Line> m_sides; // left, top, width, height
};

} // namespace acquire
