#pragma once

#include <QString>

class QWidget;

namespace quorval {

// Lets every control of a window be reached by Alt and a letter, which is underlined in its caption
// or label; where there is none, or all its letters are taken, by Alt and a number, which the tip
// tells.  So do entries of menus that have no letter of their own.  The captions stay as they are
// otherwise.  To be called again when controls were shown, hidden or renamed.
void GiveMnemonics(QWidget& window);

// A caption without its underlined letter; "&&" stays the character "&".
QString Unmarked(const QString& caption);

}  // namespace quorval
