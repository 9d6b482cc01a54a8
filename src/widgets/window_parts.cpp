#include "widgets/window_parts.h"

#include "platform/os/paths.h"
#include "widgets/chameleon_button.h"
#include "widgets/focus_ring.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QScrollBar>

namespace widgets {

namespace {

constexpr int kFlatType = 8; // until the pointer is over it

} // namespace

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

void dressToolButton(chameleonButton& button, const QString& picture, const QString& tip)
{
    button.setCaption(QString());
    button.setButtonType(kFlatType);
    button.setShowFocusRect(false); // it would run through the picture
    button.setPictureNormal(ScaledPicture::fromFile(
        platform::appFile(QStringLiteral("Images/toolbar/%1.png").arg(picture))));
    button.setToolTip(tip);
    button.setAccessibleName(tip);
    button.setFocusPolicy(Qt::TabFocus);
    pressOnReturn(button);
    new FocusRing(button); // a child of the button
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
