#include "widgets/window_parts.h"

#include "widgets/chameleon_button.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QScrollBar>

namespace widgets {

void nameScrollBars(QAbstractScrollArea& area)
{
    area.verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll up and down"));
    area.horizontalScrollBar()->setAccessibleName(QStringLiteral("Scroll sideways"));
}

void nameDropDown(QComboBox& box, const QString& accessibleName)
{
    box.view()->setAccessibleName(accessibleName);
    nameScrollBars(*box.view());
}

void pressOnReturn(chameleonButton& button)
{
    QObject::connect(&button, &chameleonButton::KeyDown, &button, [&button](int key) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            button.click();
        }
    });
}

} // namespace widgets
