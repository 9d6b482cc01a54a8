#pragma once

#include <QProxyStyle>

namespace shell {

// How the menu bar and its menus look, on every desktop and in every theme: one flat background
// with dark text.
class MenuStyle : public QProxyStyle {
public:
    MenuStyle();

    // Gives a bar or a menu this style and its colours. The style must outlive the widget.
    void applyTo(QWidget& widget);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace shell
