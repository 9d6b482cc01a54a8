#pragma once

#include "files/explorer/explorer_images.h"

#include <QString>
#include <QVariant>
#include <functional>

namespace files {

// What views ask the models for beside text, picture and check mark.
enum ModelRole {
    KeyRole = Qt::UserRole, // the key as a text
    PictureRole,            // the ImageRole as a number
    TagRole,                // the RowTag or NodeTag as a number
};

// The picture of what has a key and plays a role, as a view shows it.
using PictureSource = std::function<QVariant(ImageRole, const QString& key)>;

// A name in one line: the picture of a control character stands for it.
[[nodiscard]] QString shownText(QString name);

} // namespace files
