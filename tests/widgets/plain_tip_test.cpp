#include "widgets/plain_tip.h"

#include "widgets/elided_label.h"

#include <QAccessible>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace {

constexpr const char* kOddNames[] = {
    "Tom & Jerry.jpg", "a<b>c.png", "\"so\" it's.gif", "&amp;.bmp", "<i>.bmp", "two  blanks.bmp",
};

// What a tip shows that holds this.
QString shownBy(const QString& tip)
{
    QTextDocument document;
    if (Qt::mightBeRichText(tip)) {
        document.setHtml(tip);
    } else {
        document.setPlainText(tip);
    }
    return document.toPlainText();
}

} // namespace

TEST(PlainTip, ShowsEveryTextAsItIs)
{
    for (const char* name : kOddNames) {
        EXPECT_EQ(shownBy(widgets::plainTip(name)), QString(name)) << name;
    }
}

TEST(PlainTip, IsThatOfAnElidedLabel)
{
    for (const char* name : kOddNames) {
        widgets::ElidedLabel label{QString(name)};
        EXPECT_EQ(shownBy(label.toolTip()), QString(name)) << name;
        const auto* heard = QAccessible::queryAccessibleInterface(&label);
        EXPECT_EQ(heard->text(QAccessible::Name), QString(name));
        EXPECT_EQ(heard->text(QAccessible::Description), QString(name));
    }
}
