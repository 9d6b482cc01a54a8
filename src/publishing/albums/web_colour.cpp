#include "publishing/albums/web_colour.h"

QString Convert_Decimal_To_Hex(base::Colour color)
{
    const base::Colour shown = base::translated(color);
    const base::Colour redFirst =
        base::rgb(base::blueOf(shown), base::greenOf(shown), base::redOf(shown));
    return QStringLiteral("%1").arg(redFirst, 6, 16, QLatin1Char('0')).toUpper();
}

QString albums::withNumberSign(const QString& digits)
{
    return digits.startsWith(QLatin1Char('#')) ? digits : QLatin1Char('#') + digits;
}
