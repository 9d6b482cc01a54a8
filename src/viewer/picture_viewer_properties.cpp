#include "viewer/picture_viewer.h"

#include <QVariant>
#include <vector>

namespace {

struct PropertyRow {
    QString name;
    QVariant standard;
    QVariant (*read)(const cpvPicViewer&);
    void (*write)(cpvPicViewer&, const QVariant&);
};

using Viewer = cpvPicViewer;

const std::vector<PropertyRow>& propertyRows()
{
    static const std::vector<PropertyRow> rows = {
        {"Appearance", 1, [](const Viewer& v) -> QVariant { return v.Appearance(); },
         [](Viewer& v, const QVariant& value) { v.setAppearance(value.toInt()); }},
        {"BackColor", 0x8000000FU, [](const Viewer& v) -> QVariant { return v.BackColor(); },
         [](Viewer& v, const QVariant& value) { v.setBackColor(value.toUInt()); }},
        {"BarsWidth", 15, [](const Viewer& v) -> QVariant { return v.BarsWidth(); },
         [](Viewer& v, const QVariant& value) { v.setBarsWidth(value.toInt()); }},
        {"BestFitMode", false, [](const Viewer& v) -> QVariant { return v.BestFitMode(); },
         [](Viewer& v, const QVariant& value) { v.setBestFitMode(value.toBool()); }},
        {"BorderStyle", 0, [](const Viewer& v) -> QVariant { return v.BorderStyle(); },
         [](Viewer& v, const QVariant& value) { v.setBorderStyle(value.toInt()); }},
        {"Enabled", true, [](const Viewer& v) -> QVariant { return v.Enabled(); },
         [](Viewer& v, const QVariant& value) { v.setEnabled(value.toBool()); }},
        {"MouseScrolling", true, [](const Viewer& v) -> QVariant { return v.MouseScrolling(); },
         [](Viewer& v, const QVariant& value) { v.setMouseScrolling(value.toBool()); }},
        {"ScrollBars", 0, [](const Viewer& v) -> QVariant { return v.ScrollBars(); },
         [](Viewer& v, const QVariant& value) { v.setScrollBars(value.toInt()); }},
    };
    return rows;
}

} // namespace

QVariantMap cpvPicViewer::saveProperties() const
{
    QVariantMap properties;
    for (const PropertyRow& row : propertyRows()) {
        const QVariant value = row.read(*this);
        if (value != row.standard) {
            properties.insert(row.name, value);
        }
    }
    return properties;
}

void cpvPicViewer::loadProperties(const QVariantMap& properties)
{
    for (const PropertyRow& row : propertyRows()) {
        row.write(*this, properties.value(row.name, row.standard));
    }
    if (m_host == nullptr && window() != this) {
        setHost(window());
    }
}
