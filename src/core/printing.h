#pragma once

#include "platform/devices/printers.h"

#include <QString>
#include <vector>

namespace core {

// The entry of the list that prints to a PDF file.
inline constexpr QLatin1String kPdfPrinter{"Print to a PDF file"};

// The printers that a user chooses from: those of the system, and outside classic mode the PDF file
// as the last. One is the default: the system's, else, where it is there, the PDF file. Takes two
// seconds at most.
[[nodiscard]] std::vector<platform::PrinterFacts> printerChoices();

// What is chosen in a window that lists them, before anybody chose: the default of the choices, in
// classic mode none ("").
[[nodiscard]] QString presetPrinter(const std::vector<platform::PrinterFacts>& choices);

// The one printer of the program, which everything prints on: the default until another one is
// selected. Null where there is no printer. It lasts until the next selectPrinter(), and keeps what
// was set on it.
//
// It asks for its files by a dialog. Outside classic mode a document that fails is told in one
// message; in classic mode nothing is told.
[[nodiscard]] platform::Printer* currentPrinter();

// False for a name that isn't among the choices: the current printer stays. Selecting the current
// one again leaves it as it is.
bool selectPrinter(const QString& name);

// Tells that a printer of that name can't be reached; nothing in classic mode.
void tellPrinterGone(const QString& name);

} // namespace core
