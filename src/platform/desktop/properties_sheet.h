#pragma once

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

class QWidget;

namespace platform {

// What a properties sheet tells of a file or folder: rows of a label and its text. Empty for a path
// that doesn't exist.
std::vector<std::pair<QString, QString>> fileFacts(const QString& path);

// Opens a sheet with the facts and returns; the sheet goes away with its parent or when it is
// closed. Nothing for a path that doesn't exist.
void showPropertiesSheet(const QString& path, QWidget* parent);

} // namespace platform
