#pragma once

#include <QString>

// Opens a document with the program that the user prefers for it, and says so where that fails.
void RunFile(const QString& file);
