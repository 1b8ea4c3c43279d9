#pragma once

#include "browse/DirectoryAccess.h"
#include "browse/LdapUrl.h"

#include <QDialog>
#include <QPointer>

#include <functional>

class EntryTree;
class PasswordScrambler;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QTreeWidgetItem;
class QVBoxLayout;

/// A picker of an entry of a directory server, and of what is to be monitored of it. Entries are read when their node
/// is expanded. While it waits for the server it says so, and Cancel ends the waiting.
class BrowseLDAP final : public QDialog
{
    Q_OBJECT

public:
    BrowseLDAP(Directory &directory, PasswordScrambler &scrambler, Messages &messages, QWidget *parent);

    /// What to begin with, to be called before the picker is shown: it connects as soon as it is, and opens the tree
    /// down to the entry. A text that is no LDAP URL leaves everything at its defaults, and nothing is connected.
    void SetItem(const QString &object);

    /// The LDAP URL of what has been chosen, once the picker has been accepted.
    [[nodiscard]] const QString &url() const { return m_url; }

    /// Ends the waiting for a server; without any, the picker.
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    // The window
    QLineEdit *addField(QGridLayout &layout, QLatin1String name, const QString &label, const QString &toolTip = {});
    QWidget *makeServerPart();
    QWidget *makeChoicePart();
    QWidget *makePropertiesPart();
    void connectControls();

    // Waiting
    [[nodiscard]] bool goOn();
    DirectoryStatus waitFor(const std::function<DirectoryStatus()> &operation);
    void showState(const QString &text);

    // The beginning
    void openStart();
    void showQuery(const LdapQuery &query);
    [[nodiscard]] bool connectToServer();
    void openTree(const QString &distinguishedName);
    [[nodiscard]] QTreeWidgetItem *attachContext(const QString &distinguishedName);

    // The tree
    void expand(QTreeWidgetItem &node);
    void readChildren(QTreeWidgetItem &node);
    void showEntry(const QTreeWidgetItem &node);
    void useAccount();

    [[nodiscard]] QString scrambledPassword();
    void takeResult();

    /// A stored password that could not be unscrambled, and whose it is. It is written again as it stood, unless the
    /// user gives another.
    struct UnreadPassword
    {
        QString userName;
        QString password;
    };

    PasswordScrambler &m_scrambler;
    Messages &m_messages;
    DirectoryAccess m_access;
    /// The entry to begin with.
    std::optional<QString> m_start;
    UnreadPassword m_unread;
    QString m_url;
    bool m_isWaiting = false;
    bool m_isCancelled = false;
    /// Nothing is shown of a node that the program selects.
    bool m_isOpening = false;
    /// Of the node whose entry was opened last.
    QString m_shownKey;

    QLineEdit *m_host = nullptr;
    QLineEdit *m_userName = nullptr;
    QLineEdit *m_password = nullptr;
    EntryTree *m_tree = nullptr;
    QLineEdit *m_object = nullptr;
    QComboBox *m_scope = nullptr;
    QLineEdit *m_filter = nullptr;
    QRadioButton *m_all = nullptr;
    QRadioButton *m_selected = nullptr;
    QListWidget *m_properties = nullptr;
    QLabel *m_state;
    /// Everything that cannot be used during waiting.
    QList<QWidget *> m_inputs;
    QPointer<QWidget> m_focusBefore;
};
