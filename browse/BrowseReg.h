#pragma once

#include "browse/KeyPaths.h"

#include <QDialog>
#include <QHash>

class Messages;
class PickerTree;
class QLineEdit;
class QTreeWidgetItem;
class Registry;

/// A picker of a key of the registry of this machine or of another host. Sub-keys are read when their node is expanded.
class BrowseReg final : public QDialog
{
    Q_OBJECT

public:
    /// @param host whose registry it is; empty for the local system
    /// @param isRemote whether the window and the tree name the host
    BrowseReg(Registry &registry, Messages &messages, const QString &host, bool isRemote, QWidget *parent);

    /// Opens the tree along a path, whose hive may have its short name; to be called before the picker is shown. When
    /// the host does not give the key, the user is told, and the local system takes its place for as long as the
    /// picker is open. An empty path leaves the tree as it is.
    void SetItem(const QString &path);

    /// The chosen key, its hive with its short name, once the picker has been accepted.
    [[nodiscard]] QString keyPath() const;

private:
    void addRoots();
    void updateTitle();
    QTreeWidgetItem *newNode(const QString &text, const QString &nodeKey);

    [[nodiscard]] bool canOpen(const QString &path) const;
    /// Looks for the key on the host, then here. @return whether it can be opened; the user is told when not
    [[nodiscard]] bool findHostOf(const QString &path, const QString &shownPath);
    /// Puts the host behind the name of the path's hive.
    void nameHost(const QString &path);
    void walk(const QString &path);
    void expand(QTreeWidgetItem &node);
    void readSubKeys(QTreeWidgetItem &node);
    void showPath(const QTreeWidgetItem *node);

    Registry &m_registry;
    Messages &m_messages;
    QString m_host;
    bool m_isRemote;
    KeyPaths m_paths;
    /// By the keys of their nodes; placeholders are not in it.
    QHash<QString, QTreeWidgetItem *> m_nodes;
    PickerTree *m_keyList;
    QLineEdit *m_objectName;
};
