#pragma once

#include <QString>

class frmMain;

/// Writes a picture of the main window, as a PNG file, once its documents are shown: for the documentation, and for
/// whoever starts the program where nobody sees its window. The file's text "Documents" has a line for each document:
/// its caption, a tab, and how many rows it shows.
void writePictureWhenShown(frmMain &window, const QString &path);
