#pragma once

#include <QString>

namespace core {
class FileField;
class PictureDisplay;
class StatusBar;
} // namespace core

// The ways that a path takes into the program: the file name field's button, its drop-down, and the
// routing that also knows the players.
namespace files {

// The Go button of the file name field.
void goEnter(core::PictureDisplay& display, core::FileField& field, const QString& path);

// The click in the field's drop-down, which stepping and the slide show run too: an own format is
// shown over an empty viewer.
void clickXiala(core::PictureDisplay& display, core::FileField& field, const QString& path);

// Sends a path to viewer, player or web window. The pointer is the default one afterwards.
void routePath(core::PictureDisplay& display, core::FileField& field, const QString& path);

// Panels of the status bar: 1 name and 8 size, each with five blanks behind it; showFileFacts adds
// 6 width and 7 height, taken from the work surface Image1.
void showNameAndSize(core::StatusBar& bar, const QString& path);
void showFileFacts(core::PictureDisplay& display, const QString& path);

} // namespace files
