#pragma once

class QFileDialog;
class QString;

/// Has a file dialog offer filters, the first of them at first.
/// @param filters in the usual form of such dialogs: caption and pattern of each, with "|" between and perhaps behind
///     them: "Zentil Output (*.zof)|*.zof|All Files (*.*)|*.*". The pattern "*.*" stands for all names, as it does for
///     everybody who knows it, also for those without a dot.
void setFileFilters(QFileDialog &dialog, const QString &filters);
