// The rules on names and e-mail addresses that registration and profile share. Each applies them in an
// order of its own.
#pragma once

#include <QString>

// True when `text` holds one of the nine characters \ / : * ? " < > | that a folder name cannot hold.
bool ContainsIllegalChar(const QString& text);

// True when an e-mail address is refused: no "@" or no "." in it, a blank anywhere, or its first "@" or
// first "." in first or last place. This is the whole rule.
bool IsAddressRefused(const QString& address);
