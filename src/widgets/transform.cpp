#include "widgets/transform.h"

#include "platform/desktop/dialogs.h"
#include "platform/pictures/picture_box.h"
#include "widgets/transparent_runs.h"
#include "widgets/window_drag.h"

#include <QCursor>
#include <QPainter>
#include <QWidget>

namespace {

const QString kTargetMessage =
    QStringLiteral("Must pass in the name of either a Form OR a PictureBox.  TransForm received "
                   "NONE or BOTH.  Function failed.");
const QString kTargetTitle = QStringLiteral("ShapeMe Subroutine");

constexpr int kLeftButton = 1;

QImage paintedBy(QWidget& form)
{
    QImage image(form.size(), QImage::Format_RGB32);
    image.fill(form.palette().color(form.backgroundRole()));
    QPainter painter(&image);
    form.render(&painter, {}, {}, QWidget::DrawWindowBackground | QWidget::IgnoreMask);
    return image;
}

} // namespace

void clsTransForm::ShapeMe(base::Colour transparentColour, bool horizontal, QWidget* form,
                           const platform::PictureBox* pictureBox)
{
    if ((form == nullptr) == (pictureBox == nullptr)) {
        platform::dialogs().showMessage(kTargetMessage, kTargetTitle, platform::BoxIcon::None);
        return;
    }
    const QImage picture = form != nullptr ? paintedBy(*form) : pictureBox->surface();
    const auto direction =
        horizontal ? widgets::ScanDirection::Rows : widgets::ScanDirection::Columns;
    m_region = widgets::regionWithout(
        widgets::findRuns(picture, base::translated(transparentColour), direction), picture.size(),
        direction);
    if (form != nullptr) {
        // An empty mask would mean the whole window, so nothing of it is a pixel outside.
        form->setMask(m_region.isEmpty() ? QRegion(-1, -1, 1, 1) : m_region);
    }
}

void clsTransForm::DragForm(QWidget& form, int button) const
{
    if (button == kLeftButton) {
        widgets::beginDrag(form, QCursor::pos());
    }
}
