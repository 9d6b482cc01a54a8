#include "widgets/chameleon_button.h"

#include "widgets/colour_conversion.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

using widgets::ButtonState;

namespace {

constexpr int kOverTimerInterval = 50; // milliseconds
constexpr QSize kRoomAround{14, 10};

} // namespace

chameleonButton::chameleonButton(QWidget* parent, const QString& name)
    : QAbstractButton(parent)
{
    setObjectName(name);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setColours();
    m_source.BackColor = m_palette.Face;
    m_source.BackOver = m_palette.Face;
    m_source.ForeColor = m_palette.Text;
    m_source.ForeOver = m_palette.Text;
    m_overTimer.setInterval(kOverTimerInterval);
    connect(&m_overTimer, &QTimer::timeout, this, &chameleonButton::checkPointer);
    connect(this, &QAbstractButton::toggled, this, &chameleonButton::followAccessibleToggle);
    setCaption(name);
}

void chameleonButton::DisableRefresh()
{
    m_refreshDisabled = true;
}

void chameleonButton::Refresh()
{
    m_refreshDisabled = false;
    setColours();
    Redraw(ButtonState::Normal, true);
}

void chameleonButton::Redraw(ButtonState state, bool force)
{
    if (m_checkBoxBehaviour && m_value) {
        state = ButtonState::Pressed;
    }
    if (!force && m_caption == m_lastCaption && state == m_lastState) {
        return;
    }
    if (height() <= 0 || m_refreshDisabled || !m_wasShown) {
        return;
    }
    m_lastCaption = m_caption;
    m_lastState = state;
    m_face = composeFace(isEnabled() ? state : ButtonState::Disabled);
    ++m_redrawCount;
    update();
}

widgets::ButtonFace chameleonButton::composeFace(ButtonState state) const
{
    widgets::ButtonFace face;
    face.type = m_buttonType;
    face.size = size();
    face.palette = m_palette;
    face.state = state;
    face.isOver = m_mouseIsOver;
    face.paintsFaceOver =
        m_mouseIsOver && m_source.scheme == static_cast<int>(widgets::ColourScheme::Custom);
    face.isChosen = m_hasFocus || m_displayedAsDefault;
    face.showsFocusBox = m_hasFocus && m_showFocusRect;
    face.caption = m_caption;
    face.font = font();
    face.picture = currentPicture();
    face.picturePlace = static_cast<widgets::PicturePlace>(m_picturePosition);
    face.usesMask = m_useMaskColor;
    face.isGreyUntilOver = m_useGreyscale;
    face.specialEffect = m_specialEffect;
    return face;
}

const widgets::ScaledPicture& chameleonButton::currentPicture() const
{
    return m_mouseIsOver && !m_pictureOver.isNull() ? m_pictureOver : m_pictureNormal;
}

void chameleonButton::setColours()
{
    m_source.scalesBlue = m_buttonType == widgets::kGradientType;
    if (const QWidget* container = parentWidget()) {
        const QPalette& colours = container->palette();
        m_source.containerBack = widgets::fromQColor(colours.color(container->backgroundRole()));
        m_source.containerFore = widgets::fromQColor(colours.color(container->foregroundRole()));
    }
    m_palette = widgets::derivePalette(m_source);
}

void chameleonButton::applyShape()
{
    const QRegion shape = widgets::shapeRegion(m_buttonType, size());
    if (shape == QRegion(rect())) {
        clearMask();
    } else {
        setMask(shape);
    }
}

QSize chameleonButton::sizeHint() const
{
    const QSize picture = m_pictureNormal.size();
    const QSize caption = widgets::captionSize(m_caption, font(), QWIDGETSIZE_MAX);
    const QSize both = picture.expandedTo(caption) + kRoomAround;
    if (picture.isEmpty() || caption.isEmpty()) {
        return both;
    }
    switch (static_cast<widgets::PicturePlace>(m_picturePosition)) {
    case widgets::PicturePlace::Left:
    case widgets::PicturePlace::Right:
        return {both.width() + std::min(picture.width(), caption.width()) + 4, both.height()};
    case widgets::PicturePlace::Above:
    case widgets::PicturePlace::Below:
        return {both.width(), both.height() + std::min(picture.height(), caption.height()) + 2};
    case widgets::PicturePlace::Behind:
        break;
    }
    return both;
}

QSize chameleonButton::minimumSizeHint() const
{
    return m_pictureNormal.size() + QSize(6, 6);
}

void chameleonButton::paintEvent(QPaintEvent* /*event*/)
{
    if (!m_wasShown) {
        m_wasShown = true;
        Redraw(ButtonState::Normal, true);
    }
    QPainter painter(this);
    widgets::paintButton(painter, m_face);
}

void chameleonButton::resizeEvent(QResizeEvent* /*event*/)
{
    applyShape();
    Redraw(m_lastState, true);
}

void chameleonButton::showEvent(QShowEvent* event)
{
    QAbstractButton::showEvent(event);
    m_wasShown = true;
    setColours();
    Redraw(ButtonState::Normal, true);
}

void chameleonButton::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::ParentChange:
        setColours();
        Redraw(ButtonState::Normal, true);
        break;
    default:
        break;
    }
}

bool chameleonButton::hitButton(const QPoint& point) const
{
    return widgets::shapeContains(m_buttonType, size(), point);
}
