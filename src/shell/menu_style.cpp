#include "shell/menu_style.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace shell {

namespace {

constexpr QRgb kBackground = 0xFFE0E0E0;
constexpr QRgb kBorder = 0xFF8C8C8C;
constexpr QRgb kText = 0xFF000000;
constexpr QRgb kDisabledText = 0xFF808080;
constexpr QRgb kChosenBackground = 0xFF2F6FB3;
constexpr QRgb kChosenText = 0xFFFFFFFF;

QPalette coloured(QPalette palette)
{
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QRgb text = group == QPalette::Disabled ? kDisabledText : kText;
        for (const QPalette::ColorRole role :
             {QPalette::Window, QPalette::Base, QPalette::Button}) {
            palette.setColor(group, role, QColor(kBackground));
        }
        for (const QPalette::ColorRole role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(group, role, QColor(text));
        }
        palette.setColor(group, QPalette::Highlight, QColor(kChosenBackground));
        palette.setColor(group, QPalette::HighlightedText, QColor(kChosenText));
    }
    return palette;
}

} // namespace

MenuStyle::MenuStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void MenuStyle::applyTo(QWidget& widget)
{
    widget.setStyle(this);
    widget.setPalette(coloured(widget.palette()));
    widget.setAutoFillBackground(true);
}

// The style below would lighten the background of a menu against that of the bar.
void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const
{
    if (element != PE_PanelMenu) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    painter->fillRect(option->rect, QColor(kBackground));
    painter->setPen(QColor(kBorder));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

} // namespace shell
