#pragma once

#include <functional>

class Messages;
class QDialog;
class QString;
class QVBoxLayout;

/// Adds the row of cmdOK, cmdCancel and cmdApply at the end of a dialog's layout. cmdApply applies, cmdOK applies and
/// closes the dialog, cmdCancel rejects it. The Enter key presses cmdOK.
/// @param apply an error that it raises is shown, and the dialog stays open
void addOptionButtons(QDialog &dialog, QVBoxLayout &layout, Messages &messages, const QString &applyCaption,
                      const std::function<void()> &apply);
