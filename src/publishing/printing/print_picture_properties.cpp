#include "publishing/printing/print_picture.h"

#include <variant>

struct AAPrintPicture::PropertyRow {
    const char* name;
    std::variant<QString Values::*, base::Colour Values::*, bool Values::*, std::int16_t Values::*,
                 std::int32_t Values::*>
        field;
};

const std::array<AAPrintPicture::PropertyRow, 10> AAPrintPicture::kPropertyRows{{
    {"Align", &Values::Align},
    {"BackColor", &Values::BackColor},
    {"BorderColor", &Values::BorderColor},
    {"ShowBorder", &Values::ShowBorder},
    {"Printer", &Values::Printer},
    {"PaperSize", &Values::PaperSize},
    {"PaperWidth", &Values::PaperWidth},
    {"PaperHeight", &Values::PaperHeight},
    {"Stretch", &Values::Stretch},
    {"Copies", &Values::Copies},
}};

namespace {

const char* const kPictureName = "Picture";

} // namespace

void AAPrintPicture::WriteProperties(core::PropertyBag& bag) const
{
    const Values fresh;
    for (const PropertyRow& row : kPropertyRows) {
        std::visit(
            [&](auto field) {
                bag.write(row.name, core::kept(m_values.*field), core::kept(fresh.*field));
            },
            row.field);
    }
    bag.write(kPictureName, m_picture.image(), QImage());
}

void AAPrintPicture::ReadProperties(const core::PropertyBag& bag)
{
    m_values = {};
    for (const PropertyRow& row : kPropertyRows) {
        std::visit(
            [&](auto field) {
                core::assign(bag.read(row.name, core::kept(m_values.*field)), m_values.*field);
            },
            row.field);
    }
    const QImage picture = bag.read(kPictureName, QImage()).value<QImage>();
    m_picture = picture.isNull() ? platform::Picture() : platform::Picture(picture);
}
