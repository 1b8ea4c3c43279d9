#pragma once

class QDialog;
class QPushButton;
class QString;
class QVBoxLayout;

/// Adds OKButton, which the Enter key presses, and CancelButton, which rejects the dialog, at the end of its layout.
/// @return OKButton, which does nothing yet
[[nodiscard]] QPushButton *addDialogButtons(QDialog &dialog, QVBoxLayout &layout, const QString &okCaption,
                                            const QString &cancelCaption);
