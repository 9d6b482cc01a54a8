#pragma once

#include <QString>

class QImage;

namespace files {

// Asks with the path in the question and, on yes, moves the file or folder to the trash. Where that
// fails it says so and the file stays. No text means nothing to delete. The question shows the
// miniature of a picture, null for what is none, and of a folder its icon and how many files it
// holds. Return answers it with No.
void deleteWithQuestion(const QString& path, const QImage& miniature);

} // namespace files
