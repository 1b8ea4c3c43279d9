#pragma once

#include <QDialog>

class Accounts;
class QLatin1String;
class QListWidget;

/// The picker of a user or a group, of this machine or of another host. It is prepared by ShowUsers() or ShowGroups()
/// and then shown modally.
class BrowseUsers final : public QDialog
{
    Q_OBJECT

public:
    BrowseUsers(Accounts &accounts, QWidget *parent);

    /// Lists users. What cannot be read is not listed, without a word.
    /// @param host without "\\" in front; looked at only when isRemote
    void ShowUsers(const QString &host, bool isRemote);

    /// Lists local groups and behind them global ones, as ShowUsers() lists users. One that is both is listed twice.
    void ShowGroups(const QString &host, bool isRemote);

    /// The name that the user has confirmed; empty when there is none.
    [[nodiscard]] const QString &Selected() const { return m_selected; }

private:
    void setKind(QLatin1String kind, const QString &host, bool isRemote);
    void addNames(const QStringList &names);
    void takeSelection();

    Accounts &m_accounts;
    QListWidget *m_list;
    QString m_selected;
};
