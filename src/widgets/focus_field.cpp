#include "widgets/focus_field.h"

#include "widgets/colour_conversion.h"

#include <QFocusEvent>

namespace widgets {

namespace {

constexpr base::Colour kFocusBackground = 0xD6BEB5;

} // namespace

FocusField::FocusField(QWidget* parent)
    : QLineEdit(parent)
{
}

void FocusField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (!m_isMarked) {
        m_restingPalette = palette();
        m_isMarked = true;
        QPalette marked = m_restingPalette;
        marked.setColor(QPalette::Base, toQColor(kFocusBackground));
        marked.setColor(QPalette::Text, legibleOn(toQColor(kFocusBackground)));
        setPalette(marked);
    }
    selectAll();
}

void FocusField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // An open context menu takes the focus for a moment only.
    if (event->reason() == Qt::PopupFocusReason || !m_isMarked) {
        return;
    }
    m_isMarked = false;
    setPalette(m_restingPalette);
}

} // namespace widgets
