#pragma once

class QComboBox;

/// Makes the opened list as wide as the widest of its entries in the list's font, and 30 pixels more. It stays at least
/// as wide as the closed list.
void WidenDropDown(QComboBox &list);
