// What the button is set to: the setters, and the stored form of all properties.
#include "widgets/chameleon_button.h"
#include "widgets/pointer_shapes.h"

#include <array>

using widgets::ButtonState;
using widgets::ScaledPicture;

namespace {

struct StoredProperty {
    const char* key;
    QVariant (*read)(const chameleonButton&);
    void (*write)(chameleonButton&, const QVariant&);
    QVariant (*initial)(const chameleonButton&);
};

QVariant schemeFace(const chameleonButton& button)
{
    widgets::PaletteSource source;
    source.scheme = button.ColorScheme();
    return source.scheme == static_cast<int>(widgets::ColourScheme::Container)
               ? button.workingPalette().Face
               : widgets::derivePalette(source).Face;
}

QVariant schemeText(const chameleonButton& button)
{
    widgets::PaletteSource source;
    source.scheme = button.ColorScheme();
    return source.scheme == static_cast<int>(widgets::ColourScheme::Container)
               ? button.workingPalette().Text
               : widgets::derivePalette(source).Text;
}

QFont containerFont(const chameleonButton& button)
{
    return button.parentWidget() != nullptr ? button.parentWidget()->font() : QFont();
}

using Button = chameleonButton;

// The scheme stands before the colours, whose defaults depend on it.
const std::array kStoredProperties{
    StoredProperty{"BTYPE", [](const Button& b) -> QVariant { return b.ButtonType(); },
                   [](Button& b, const QVariant& v) { b.setButtonType(v.toInt()); },
                   [](const Button&) -> QVariant { return 2; }},
    StoredProperty{"COLTYPE", [](const Button& b) -> QVariant { return b.ColorScheme(); },
                   [](Button& b, const QVariant& v) { b.setColorScheme(v.toInt()); },
                   [](const Button&) -> QVariant { return 1; }},
    StoredProperty{"TX", [](const Button& b) -> QVariant { return b.Caption(); },
                   [](Button& b, const QVariant& v) { b.setCaption(v.toString()); },
                   [](const Button& b) -> QVariant { return b.objectName(); }},
    StoredProperty{"ENAB", [](const Button& b) -> QVariant { return b.Enabled(); },
                   [](Button& b, const QVariant& v) { b.setEnabled(v.toBool()); },
                   [](const Button&) -> QVariant { return true; }},
    StoredProperty{"FONT", [](const Button& b) -> QVariant { return b.Font(); },
                   [](Button& b, const QVariant& v) { b.setFont(v.value<QFont>()); },
                   [](const Button& b) -> QVariant { return containerFont(b); }},
    StoredProperty{"FOCUSR", [](const Button& b) -> QVariant { return b.ShowFocusRect(); },
                   [](Button& b, const QVariant& v) { b.setShowFocusRect(v.toBool()); },
                   [](const Button&) -> QVariant { return true; }},
    StoredProperty{"BCOL", [](const Button& b) -> QVariant { return b.BackColor(); },
                   [](Button& b, const QVariant& v) { b.setBackColor(v.toUInt()); }, schemeFace},
    StoredProperty{"BCOLO", [](const Button& b) -> QVariant { return b.BackOver(); },
                   [](Button& b, const QVariant& v) { b.setBackOver(v.toUInt()); }, schemeFace},
    StoredProperty{"FCOL", [](const Button& b) -> QVariant { return b.ForeColor(); },
                   [](Button& b, const QVariant& v) { b.setForeColor(v.toUInt()); }, schemeText},
    StoredProperty{"FCOLO", [](const Button& b) -> QVariant { return b.ForeOver(); },
                   [](Button& b, const QVariant& v) { b.setForeOver(v.toUInt()); }, schemeText},
    StoredProperty{"MCOL", [](const Button& b) -> QVariant { return b.MaskColor(); },
                   [](Button& b, const QVariant& v) { b.setMaskColor(v.toUInt()); },
                   [](const Button&) -> QVariant { return 0xC0C0C0U; }},
    StoredProperty{"UMCOL", [](const Button& b) -> QVariant { return b.UseMaskColor(); },
                   [](Button& b, const QVariant& v) { b.setUseMaskColor(v.toBool()); },
                   [](const Button&) -> QVariant { return true; }},
    StoredProperty{"MPTR", [](const Button& b) -> QVariant { return b.MousePointer(); },
                   [](Button& b, const QVariant& v) { b.setMousePointer(v.toInt()); },
                   [](const Button&) -> QVariant { return 0; }},
    StoredProperty{"MICON", [](const Button& b) -> QVariant { return b.MouseIcon(); },
                   [](Button& b, const QVariant& v) { b.setMouseIcon(v.value<QImage>()); },
                   [](const Button&) -> QVariant { return QImage(); }},
    StoredProperty{"HAND", [](const Button& b) -> QVariant { return b.HandPointer(); },
                   [](Button& b, const QVariant& v) { b.setHandPointer(v.toBool()); },
                   [](const Button&) -> QVariant { return false; }},
    StoredProperty{"SOFT", [](const Button& b) -> QVariant { return b.SoftBevel(); },
                   [](Button& b, const QVariant& v) { b.setSoftBevel(v.toBool()); },
                   [](const Button&) -> QVariant { return false; }},
    StoredProperty{"PICN",
                   [](const Button& b) -> QVariant { return b.PictureNormal().forRatio(1); },
                   [](Button& b, const QVariant& v) { b.setPictureNormal(v.value<QImage>()); },
                   [](const Button&) -> QVariant { return QImage(); }},
    StoredProperty{"PICH", [](const Button& b) -> QVariant { return b.PictureOver().forRatio(1); },
                   [](Button& b, const QVariant& v) { b.setPictureOver(v.value<QImage>()); },
                   [](const Button&) -> QVariant { return QImage(); }},
    StoredProperty{"PICPOS", [](const Button& b) -> QVariant { return b.PicturePosition(); },
                   [](Button& b, const QVariant& v) { b.setPicturePosition(v.toInt()); },
                   [](const Button&) -> QVariant { return 0; }},
    StoredProperty{"NGREY", [](const Button& b) -> QVariant { return b.UseGreyscale(); },
                   [](Button& b, const QVariant& v) { b.setUseGreyscale(v.toBool()); },
                   [](const Button&) -> QVariant { return false; }},
    StoredProperty{"FX", [](const Button& b) -> QVariant { return b.SpecialEffect(); },
                   [](Button& b, const QVariant& v) { b.setSpecialEffect(v.toInt()); },
                   [](const Button&) -> QVariant { return 0; }},
    StoredProperty{"CHECK", [](const Button& b) -> QVariant { return b.CheckBoxBehaviour(); },
                   [](Button& b, const QVariant& v) { b.setCheckBoxBehaviour(v.toBool()); },
                   [](const Button&) -> QVariant { return false; }},
    StoredProperty{"VALUE", [](const Button& b) -> QVariant { return b.Value(); },
                   [](Button& b, const QVariant& v) { b.setValue(v.toBool()); },
                   [](const Button&) -> QVariant { return false; }},
};

} // namespace

// A change of anything that shows sets the colours again and draws.
template<class Held>
void chameleonButton::changeLook(Held& member, const Held& value, const char* notice)
{
    if (member == value) {
        return;
    }
    member = value;
    setColours();
    Redraw(ButtonState::Normal, true);
    emit PropertyChanged(QString::fromLatin1(notice));
}

void chameleonButton::setButtonType(int type)
{
    if (type < widgets::kFirstButtonType || type > widgets::kLastButtonType) {
        return;
    }
    changeLook(m_buttonType, type, "BTYPE");
    applyShape();
}

void chameleonButton::setColorScheme(int scheme)
{
    changeLook(m_source.scheme, scheme, "COLTYPE");
}

void chameleonButton::setCaption(const QString& caption)
{
    if (caption == m_caption) {
        return;
    }
    setText(caption); // what a screen reader says
    const QChar key = widgets::accessKeyOf(caption);
    setShortcut(key.isNull() ? QKeySequence() : QKeySequence(QStringLiteral("Alt+") + key));
    updateGeometry();
    changeLook(m_caption, caption, "TX");
}

void chameleonButton::setFontBold(bool on)
{
    QFont changed = font();
    changed.setBold(on);
    setFont(changed);
}

void chameleonButton::setFontItalic(bool on)
{
    QFont changed = font();
    changed.setItalic(on);
    setFont(changed);
}

void chameleonButton::setFontUnderline(bool on)
{
    QFont changed = font();
    changed.setUnderline(on);
    setFont(changed);
}

void chameleonButton::setFontSize(double points)
{
    if (points <= 0) {
        return;
    }
    QFont changed = font();
    changed.setPointSizeF(points);
    setFont(changed);
}

void chameleonButton::setFontName(const QString& name)
{
    QFont changed = font();
    changed.setFamily(name);
    setFont(changed);
}

void chameleonButton::setShowFocusRect(bool on)
{
    changeLook(m_showFocusRect, on, "FOCUSR");
}

void chameleonButton::setBackColor(base::Colour colour)
{
    changeLook(m_source.BackColor, colour, "BCOL");
}

void chameleonButton::setBackOver(base::Colour colour)
{
    changeLook(m_source.BackOver, colour, "BCOLO");
}

void chameleonButton::setForeColor(base::Colour colour)
{
    changeLook(m_source.ForeColor, colour, "FCOL");
}

void chameleonButton::setForeOver(base::Colour colour)
{
    changeLook(m_source.ForeOver, colour, "FCOLO");
}

void chameleonButton::setMaskColor(base::Colour colour)
{
    changeLook(m_source.MaskColor, colour, "MCOL");
}

void chameleonButton::setUseMaskColor(bool on)
{
    changeLook(m_useMaskColor, on, "UMCOL");
}

void chameleonButton::setSoftBevel(bool on)
{
    changeLook(m_source.softBevel, on, "SOFT");
}

void chameleonButton::setMousePointer(int shape)
{
    changeLook(m_mousePointer, shape, "MPTR");
    applyPointer();
}

void chameleonButton::setMouseIcon(const QImage& icon)
{
    changeLook(m_mouseIcon, icon, "MICON");
    applyPointer();
}

void chameleonButton::setHandPointer(bool on)
{
    if (on == m_handPointer) {
        return;
    }
    m_mousePointer = on ? widgets::kCustomPointer : 0;
    m_mouseIcon = QImage();
    changeLook(m_handPointer, on, "HAND");
    applyPointer();
}

void chameleonButton::applyPointer()
{
    if (m_handPointer) {
        setCursor(Qt::PointingHandCursor);
    } else if (const auto shape = widgets::pointerShape(m_mousePointer, m_mouseIcon)) {
        setCursor(*shape);
    } else {
        unsetCursor();
    }
}

void chameleonButton::setPictureNormal(const ScaledPicture& picture)
{
    changeLook(m_pictureNormal, picture, "PICN");
    updateGeometry();
}

void chameleonButton::setPictureOver(const ScaledPicture& picture)
{
    changeLook(m_pictureOver, picture, "PICO");
}

void chameleonButton::setPicturePosition(int position)
{
    if (position < 0 || position > static_cast<int>(widgets::PicturePlace::Behind)) {
        return;
    }
    changeLook(m_picturePosition, position, "PICPOS");
    updateGeometry();
}

void chameleonButton::setUseGreyscale(bool on)
{
    changeLook(m_useGreyscale, on, "NGREY");
}

void chameleonButton::setSpecialEffect(int effect)
{
    changeLook(m_specialEffect, effect, "FX");
}

void chameleonButton::setCheckBoxBehaviour(bool on)
{
    setCheckable(on);
    changeLook(m_checkBoxBehaviour, on, "CHECK");
    setChecked(on && m_value);
}

void chameleonButton::setValue(bool value)
{
    changeLook(m_value, value, "VALUE");
    setChecked(m_checkBoxBehaviour && value);
}

void chameleonButton::setDisplayedAsDefault(bool on)
{
    if (on != m_displayedAsDefault) {
        m_displayedAsDefault = on;
        Redraw(ButtonState::Normal, true);
    }
}

QVariantMap chameleonButton::WriteProperties() const
{
    QVariantMap bag;
    for (const StoredProperty& property : kStoredProperties) {
        bag[QString::fromLatin1(property.key)] = property.read(*this);
    }
    return bag;
}

void chameleonButton::ReadProperties(const QVariantMap& bag)
{
    for (const StoredProperty& property : kStoredProperties) {
        const auto stored = bag.constFind(QString::fromLatin1(property.key));
        property.write(*this, stored != bag.constEnd() ? *stored : property.initial(*this));
    }
}
