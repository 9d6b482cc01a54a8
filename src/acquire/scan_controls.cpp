#include "acquire/scan_controls.h"

#include "widgets/form_builder.h"
#include "widgets/window_parts.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <cmath>

namespace acquire {

namespace {

using platform::ScanOption;
using platform::ScanRole;
using platform::ScanUnit;
using platform::ScanValue;

struct RoleLine {
    ScanRole role;
    const char* name;
    const char* caption;
};

constexpr RoleLine kLines[] = {
    {ScanRole::Source, "cboSource", "S&ource:"},
    {ScanRole::Mode, "cboMode", "&Mode:"},
    {ScanRole::Depth, "cboDepth", "&Depth:"},
    {ScanRole::Resolution, "cboResolution", "&Resolution:"},
    {ScanRole::Brightness, "txtBrightness", "&Brightness:"},
    {ScanRole::Contrast, "txtContrast", "Con&trast:"},
};

struct SideLine {
    const char* name;
    const char* caption;
};
constexpr std::array<SideLine, 4> kSides{{{"txtLeft", "&Left:"},
                                          {"txtTop", "To&p:"},
                                          {"txtWidth", "&Width:"},
                                          {"txtHeight", "&Height:"}}};

const RoleLine& lineOf(ScanRole role)
{
    return *std::find_if(std::begin(kLines), std::end(kLines),
                         [role](const RoleLine& line) { return line.role == role; });
}

QString spoken(const char* caption)
{
    return QString::fromLatin1(caption).remove(u'&').remove(u':');
}

double sideOf(QWidget* control)
{
    return static_cast<QDoubleSpinBox*>(control)->value();
}

// Unless it is being typed into.
void setNumber(QDoubleSpinBox& box, double number)
{
    const QSignalBlocker quiet(box);
    if (std::abs(box.value() - number) >= std::pow(10.0, -box.decimals()) / 2) {
        box.setValue(number);
    }
}

// Of what a choice keeps: a number, or the bytes of a word, which need be no UTF-8.
ScanValue valueOf(const QVariant& data)
{
    return data.typeId() == QMetaType::Double ? ScanValue{{}, data.toDouble()}
                                              : ScanValue{data.toByteArray().toStdString(), 0};
}

QString suffixOf(ScanUnit unit)
{
    return unit == ScanUnit::None ? QString() : numberText(2, unit).mid(1);
}

} // namespace

ScanControls::ScanControls(widgets::FormBuilder& form, QObject* parent)
    : QObject(parent)
{
    for (const ScanRole role :
         {ScanRole::Source, ScanRole::Mode, ScanRole::Depth, ScanRole::Resolution}) {
        addChoice(form, role);
    }
    for (const ScanRole role : {ScanRole::Brightness, ScanRole::Contrast}) {
        addNumber(form, role);
    }
    for (int side = 0; side < int(kSides.size()); ++side) {
        addSide(form, side);
    }
    show({});
}

void ScanControls::addChoice(widgets::FormBuilder& form, ScanRole role)
{
    const RoleLine& line = lineOf(role);
    auto* caption = new QLabel(QString::fromLatin1(line.caption));
    auto* box =
        form.addCaptioned(caption, new QComboBox, line.name, qPrintable(spoken(line.caption)));
    widgets::nameDropDown(*box, spoken(line.caption));
    connect(box, &QComboBox::activated, this,
            [this, role, box] { emit changed(role, valueOf(box->currentData())); });
    m_choices[role] = {caption, box};
}

void ScanControls::addNumber(widgets::FormBuilder& form, ScanRole role)
{
    const RoleLine& line = lineOf(role);
    auto* caption = new QLabel(QString::fromLatin1(line.caption));
    auto* box =
        form.addCaptioned(caption, new QDoubleSpinBox, line.name, qPrintable(spoken(line.caption)));
    box->setKeyboardTracking(false);
    connect(box, &QDoubleSpinBox::valueChanged, this, [this, role](double number) {
        emit changed(role, ScanValue{{}, number});
    });
    m_numbers[role] = {caption, box};
}

void ScanControls::addSide(widgets::FormBuilder& form, int side)
{
    const SideLine& line = kSides[std::size_t(side)];
    auto* caption = new QLabel(QString::fromLatin1(line.caption));
    auto* box =
        form.addCaptioned(caption, new QDoubleSpinBox, line.name,
                          qPrintable(spoken(line.caption) + QStringLiteral(" of the area")));
    box->setKeyboardTracking(false);
    connect(box, &QDoubleSpinBox::valueChanged, this, &ScanControls::tellArea);
    m_sides.push_back({caption, box});
}

void ScanControls::show(const ScanOptions& options)
{
    const auto setVisible = [](const Line& line, bool visible) {
        line.caption->setVisible(visible);
        line.control->setVisible(visible);
    };
    for (const auto& [role, line] : m_choices) {
        const ScanOption* option = optionOf(options, role);
        setVisible(line, option != nullptr);
        if (option != nullptr) {
            showChoice(static_cast<QComboBox&>(*line.control), *option);
        }
    }
    for (const auto& [role, line] : m_numbers) {
        const ScanOption* option = optionOf(options, role);
        const bool isRange = option != nullptr && option->words.empty() && option->numbers.empty();
        setVisible(line, isRange);
        if (isRange) {
            showNumber(static_cast<QDoubleSpinBox&>(*line.control), *option);
        }
    }
    for (const Line& line : m_sides) {
        setVisible(line, !bedOf(options).isEmpty());
    }
    showBed(options);
}

void ScanControls::showChoice(QComboBox& box, const ScanOption& option)
{
    const QSignalBlocker quiet(box);
    box.clear();
    for (const std::string& word : option.words) {
        box.addItem(QString::fromStdString(word), QByteArray::fromStdString(word));
    }
    if (!option.words.empty()) {
        const int current = box.findData(QByteArray::fromStdString(option.value.word));
        box.setCurrentIndex(std::max(0, current));
        return;
    }
    const ScanUnit unit = option.role == ScanRole::Depth ? ScanUnit::Bits : option.unit;
    for (const double number : numbersToOffer(option)) {
        box.addItem(numberText(number, unit), number);
    }
    box.setCurrentIndex(box.findData(option.value.number));
}

void ScanControls::showNumber(QDoubleSpinBox& box, const ScanOption& option)
{
    const QSignalBlocker quiet(box);
    box.setDecimals(option.step == std::floor(option.step) && option.step > 0 ? 0 : 1);
    box.setRange(option.least, option.most);
    box.setSingleStep(option.step > 0 ? option.step : 1);
    box.setSuffix(suffixOf(option.unit));
    setNumber(box, option.value.number);
}

void ScanControls::showBed(const ScanOptions& options)
{
    const QRectF bed = bedOf(options);
    if (bed.isEmpty()) {
        return;
    }
    const ScanUnit unit = optionOf(options, ScanRole::Left)->unit;
    const double ranges[][2] = {
        {bed.left(), bed.right()}, {bed.top(), bed.bottom()}, {0, bed.width()}, {0, bed.height()}};
    for (std::size_t side = 0; side < m_sides.size(); ++side) {
        auto& box = static_cast<QDoubleSpinBox&>(*m_sides[side].control);
        const QSignalBlocker quiet(box);
        box.setDecimals(unit == ScanUnit::Millimetres ? 1 : 0);
        box.setRange(ranges[side][0], ranges[side][1]);
        box.setSuffix(suffixOf(unit));
    }
}

void ScanControls::showArea(const QRectF& area)
{
    const double numbers[] = {area.left(), area.top(), area.width(), area.height()};
    for (std::size_t side = 0; side < m_sides.size(); ++side) {
        setNumber(static_cast<QDoubleSpinBox&>(*m_sides[side].control), numbers[side]);
    }
}

void ScanControls::tellArea()
{
    emit areaTyped({sideOf(m_sides[0].control), sideOf(m_sides[1].control),
                    sideOf(m_sides[2].control), sideOf(m_sides[3].control)});
}

void ScanControls::setEnabled(bool enabled)
{
    for (const auto* lines : {&m_choices, &m_numbers}) {
        for (const auto& [role, line] : *lines) {
            line.control->setEnabled(enabled);
        }
    }
    for (const Line& line : m_sides) {
        line.control->setEnabled(enabled);
    }
}

} // namespace acquire
