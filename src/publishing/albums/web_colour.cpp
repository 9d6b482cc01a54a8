#include "publishing/albums/web_colour.h"

#include "base/web_colour.h"

QString Convert_Decimal_To_Hex(base::Colour color)
{
    return QString::fromStdString(base::webColour(base::translated(color)));
}

QString albums::withNumberSign(const QString& digits)
{
    return digits.startsWith(QLatin1Char('#')) ? digits : QLatin1Char('#') + digits;
}
