#include "shell/toolbars.h"

#include "shell/command_table.h"
#include "widgets/chameleon_button.h"
#include "widgets/window_parts.h"

#include <QHBoxLayout>

namespace shell {

namespace {

constexpr int kButtonSize = 32; // pixels
constexpr int kKeyButtonSize = 28;
constexpr int kGroupGap = 8;
constexpr int kColoursOfParent = 4;
constexpr int kSlideShowButton = 7; // stays down while the show runs
constexpr int kBehindCaption = 4;   // without a caption: in the middle

chameleonButton* makeButton(QWidget* parent, const QString& picture, const QString& tip, int size)
{
    auto* button = new chameleonButton(parent);
    widgets::dressToolButton(*button, picture, tip);
    button->setColorScheme(kColoursOfParent);
    button->setUseMaskColor(false);
    button->setPicturePosition(kBehindCaption);
    button->setFixedSize(size, size);
    return button;
}

QHBoxLayout* makeRow(QWidget* band)
{
    auto* row = new QHBoxLayout(band);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    return row;
}

} // namespace

Toolbars::Toolbars(QWidget& parent, Trigger trigger, KeyTrigger keyTrigger)
    : m_commands(new QWidget(&parent))
    , m_keys(new QWidget(&parent))
{
    m_commands->setObjectName(QStringLiteral("Band1"));
    m_keys->setObjectName(QStringLiteral("Band3"));
    QHBoxLayout* commandRow = makeRow(m_commands);
    for (const ButtonRow& row : buttonRows()) {
        if (row.gapBefore) {
            commandRow->addSpacing(kGroupGap);
        }
        chameleonButton* button = makeButton(m_commands, QString::fromLatin1(row.picture),
                                             QString::fromLatin1(row.tip), kButtonSize);
        button->setObjectName(QStringLiteral("Tbmenu_%1").arg(row.index));
        QObject::connect(button, &chameleonButton::clicked, button,
                         [&row, trigger] { trigger(row); });
        button->setCheckBoxBehaviour(row.index == kSlideShowButton);
        commandRow->addWidget(button);
        m_buttons.insert(row.index, button);
    }
    QHBoxLayout* keyRow = makeRow(m_keys);
    for (const KeyButtonRow& row : keyButtonRows()) {
        const QString key = QString::fromLatin1(row.key);
        chameleonButton* button = makeButton(m_keys, QString::fromLatin1(row.picture),
                                             QString::fromLatin1(row.tip), kKeyButtonSize);
        button->setObjectName(QStringLiteral("KeyButton_") + key);
        if (row.run != nullptr) {
            QObject::connect(button, &chameleonButton::clicked, button,
                             [&row, keyTrigger] { keyTrigger(row); });
        }
        keyRow->addWidget(button);
        m_keyButtons.insert(key, button);
    }
}

} // namespace shell
