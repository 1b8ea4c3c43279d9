#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

/// What has to hold for every form, whatever it is for.

/// The controls that a user gives something in or presses, without those that the toolkit makes for itself.
[[nodiscard]] QList<QWidget *> inputsOf(const QWidget &form);

/// The letter that, with Alt, reaches a control with that text; null when there is none.
[[nodiscard]] QChar mnemonicOf(const QString &text);

/// The texts of a form that a key with Alt may reach, by control.
[[nodiscard]] QMap<QString, QString> mnemonicTexts(const QWidget &form);

/// The pairs of controls that one key with Alt would reach.
[[nodiscard]] QStringList sharedMnemonics(const QMap<QString, QString> &texts);

/// Every input has a name of its own and a label; every label, frame and set of pages has a name.
void expectNamedAndLabelled(const QWidget &form);

/// The controls that the Tab key passes through, from the one that has the focus until it comes round.
[[nodiscard]] QStringList tabRound(QWidget &form);

/// The Tab key reaches every input that is visible and enabled. @param round as tabRound() gives it
void expectReachableByTab(const QWidget &form, const QStringList &round);

/// The Tab key goes through what stands side by side as it is read: from top to bottom, and within a line to the right.
/// Check boxes may be read down their columns. @param round as tabRound() gives it
void expectReadInOrder(const QWidget &form, const QStringList &round);

/// Runs check and, where the form has pages, on each of them.
void onEachPage(const QWidget &form, const std::function<void()> &check);
