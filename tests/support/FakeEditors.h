#pragma once

#include "config/EditorFactory.h"
#include "config/ItemEditor.h"

#include <QList>
#include <QSet>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// An item editor that remembers what a document asked of it.
class FakeEditor final : public ItemEditor
{
public:
    FakeEditor(ItemKind editedKind, bool isSharedEditor)
        : kind(editedKind)
        , isShared(isSharedEditor)
    {
    }

    void setWindowToAffect(ItemDocument &affected) override;
    void setHost(const QString &text) override;
    void setRemoteFlag(bool isOn) override;
    void setWindowAddFlag(bool isAdded) override;
    void setWindowAddItem(qint16 index) override;
    void setOKButtonCaption(const QString &caption) override;
    void SetDefaultItem() override;
    void SetItem(const QString &text) override;
    void Show() override;

    const ItemKind kind;
    const bool isShared;
    /// The names of what was called, in order: "WindowToAffect", ..., "OKButton", "SetDefaultItem", "SetItem", "Show".
    QStringList calls;

    /// What was set last.
    ItemDocument *document = nullptr;
    QString host;
    bool isRemote = false;
    bool isNew = false;
    qint16 row = -1;
    QString okCaption;
    QString line;
    bool isShown = false;

    /// Run by SetItem() with its line; may raise an error.
    std::function<void(const QString &line)> onSetItem;
};

/// Item editors without windows. An editor is open once it is shown, until the user or its document closes it.
class FakeEditors final : public EditorFactory
{
public:
    /// There is an editor for every kind.
    FakeEditors();

    [[nodiscard]] bool hasEditor(ItemKind kind) const override { return m_kinds.contains(int(kind)); }
    [[nodiscard]] ItemEditor &newEditor(ItemKind kind) override { return add(kind, false); }
    [[nodiscard]] ItemEditor &sharedEditor(ItemKind kind) override;
    void closeEditorsOf(const ItemDocument &document) override;

    /// The kinds that there is an editor for; asking for another kind's editor fails the test.
    void setKinds(const QList<ItemKind> &existing);

    /// Closes an editor as its user does; a shared one is made anew when it is asked for again.
    void close(const FakeEditor &editor);

    /// All that were made and are not closed, oldest first.
    [[nodiscard]] const QList<FakeEditor *> &open() const { return m_open; }

    /// The newest one that is open; fails the test when there is none.
    [[nodiscard]] FakeEditor &last() const;

    /// How many were made, those that are closed too.
    [[nodiscard]] qsizetype madeCount() const { return qsizetype(m_made.size()); }

    /// Every document whose editors were closed, in order.
    QList<const ItemDocument *> closedFor;

    /// Run on every editor that is made, before the document gets it.
    std::function<void(FakeEditor &editor)> onMade;

private:
    FakeEditor &add(ItemKind kind, bool isShared);

    QSet<int> m_kinds;
    // Kept until the end, so that a test can look at an editor that is closed.
    std::vector<std::unique_ptr<FakeEditor>> m_made;
    QList<FakeEditor *> m_open;
};
