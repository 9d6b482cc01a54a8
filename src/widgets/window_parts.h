#pragma once

#include <QString>

class QAbstractScrollArea;
class QComboBox;
class chameleonButton;

// Finishing touches for the parts of windows.
namespace widgets {

// Names for a screen reader where the toolkit makes the parts: the bars of a list or tree, and the
// list that a combo box drops down.
void nameScrollBars(QAbstractScrollArea& area);
void nameDropDown(QComboBox& box, const QString& accessibleName);

// Makes the button one of a toolbar: flat until the pointer is over it, with a delivered picture
// ("copy" is Images/toolbar/copy.png) and no caption, a tip that is its name too, and no focus by a
// press.
void dressToolButton(chameleonButton& button, const QString& picture, const QString& tip);

// On a toolbar Return presses the button that has the focus, as Space does everywhere.
void pressOnReturn(chameleonButton& button);

} // namespace widgets
