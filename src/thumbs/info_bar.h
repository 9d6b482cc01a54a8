#pragma once

#include "base/colours.h"

#include <QLabel>

namespace thumbs {

// One line of text in two colours. A line too long for the bar is set smaller, then cut.
class InfoBar : public QLabel {
    Q_OBJECT

public:
    explicit InfoBar(QWidget* parent = nullptr);

    void setColours(base::Colour background, base::Colour text);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    base::Colour m_background = 0;
    base::Colour m_text = 0;
};

} // namespace thumbs
