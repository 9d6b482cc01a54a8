#pragma once

#include <QString>

namespace core {

inline const QString kProgramName = QStringLiteral("Vistara");

// The one section of config.ini, and the text that a missing key reads as.
inline const QString kConfigSection = QStringLiteral("QUILLPOST");
inline const QString kMissingValue = QStringLiteral("ERROR");

// What the file lists of the pane and of the thumbnails show; both must list the same files in the
// same order.
inline const QString kPicturePattern = QStringLiteral(
    "*.lbm;*.bbm;*.iff;*.pcx;*.tif;*.TGA;*.psd;*.bmp;*.avi;*.did;*.rlf;*.emf;*.gif;*.icl;*.ico;"
    "*.cur;*.ani;*.jpg;*.jpeg;*.jif;*.mp3;*.mpeg;*.asf;*.vcd;*.dvd;*.htm;*.html;*.hta;*.wmf;*.swf");

// Panels of the status bar that are written; the number is the panel's place, from 1.
enum class Panel { FileName = 1, Message = 2, Zoom = 3, Width = 6, Height = 7, FileSize = 8 };

} // namespace core
