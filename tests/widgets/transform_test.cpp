#include "widgets/transform.h"

#include "platform/pictures/picture_box.h"
#include "support/fake_dialogs.h"

#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr base::Colour kClear = base::rgb(255, 0, 255);

// Transparent but for a rectangle from (10, 5), 20 by 10.
class SpottedForm : public QWidget {
public:
    SpottedForm() { resize(60, 40); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(255, 0, 255));
        painter.fillRect(10, 5, 20, 10, Qt::darkGreen);
    }
};

} // namespace

TEST(TransForm, RefusesBothTargetsOrNone)
{
    support::FakeDialogs dialogs;
    const support::FakeDialogs::Box box{
        "Must pass in the name of either a Form OR a "
        "PictureBox.  TransForm received NONE or BOTH.  Function failed.",
        "ShapeMe Subroutine", platform::BoxIcon::None};
    clsTransForm shaper;
    SpottedForm form;
    const platform::PictureBox picture(4, 4);
    shaper.ShapeMe(kClear, true, nullptr, nullptr);
    shaper.ShapeMe(kClear, true, &form, &picture);
    EXPECT_EQ(dialogs.boxes, (std::vector{box, box}));
    EXPECT_TRUE(form.mask().isEmpty());
    EXPECT_TRUE(shaper.region().isEmpty());
}

TEST(TransForm, CutsAFormToItsPicture)
{
    for (const bool horizontal : {true, false}) {
        SpottedForm form;
        clsTransForm shaper;
        shaper.ShapeMe(kClear, horizontal, &form, nullptr);
        EXPECT_EQ(form.mask(), QRegion(10, 5, 20, 10));
        shaper.ShapeMe(kClear, horizontal, &form, nullptr);
        EXPECT_EQ(form.mask(), QRegion(10, 5, 20, 10));
    }
}

TEST(TransForm, LeavesNothingOfAClearFormAndAllOfASolidOne)
{
    SpottedForm form;
    clsTransForm shaper;
    shaper.ShapeMe(base::rgb(9, 9, 9), true, &form, nullptr);
    EXPECT_EQ(form.mask(), QRegion(0, 0, 60, 40));
    form.resize(8, 4);
    shaper.ShapeMe(kClear, true, &form, nullptr);
    EXPECT_TRUE(shaper.region().isEmpty());
    EXPECT_TRUE((form.mask() & form.rect()).isEmpty());
    EXPECT_FALSE(form.mask().isEmpty());
}

TEST(TransForm, KeepsTheShapeOfAPictureBox)
{
    platform::PictureBox box(10, 10);
    box.setBackColor(kClear);
    box.fillBox(2, 3, 5, 6, 0x00FF00);
    clsTransForm shaper;
    shaper.ShapeMe(kClear, false, nullptr, &box);
    EXPECT_EQ(shaper.region(), QRegion(2, 3, 4, 4));
}

TEST(TransForm, DragsByTheLeftButtonOnly)
{
    QWidget form(nullptr, Qt::FramelessWindowHint);
    form.setGeometry(100, 100, 200, 100);
    form.show();
    const clsTransForm shaper;
    const QPoint before = form.pos();
    const QPoint press = form.mapToGlobal(QPoint(30, 30));
    QCursor::setPos(press);
    const auto drag = [&](int button) {
        shaper.DragForm(form, button);
        QMouseEvent move(QEvent::MouseMove, QPoint(50, 40), press + QPoint(20, 10), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&form, &move);
    };
    drag(2);
    EXPECT_EQ(form.pos(), before);
    drag(1);
    EXPECT_EQ(form.pos(), before + QPoint(20, 10));
    QTest::mouseRelease(&form, Qt::LeftButton);
}
