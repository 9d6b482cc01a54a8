#pragma once

#include <QIcon>
#include <QString>

namespace platform {

// An icon of the delivered toolbar pictures, in all densities that there are, such as "folder"; an
// empty icon when the file is missing.
QIcon deliveredIcon(const QString& name);

} // namespace platform
