#include "tests/support/FakeEditors.h"

#include <gtest/gtest.h>

#include <algorithm>

void FakeEditor::setWindowToAffect(ItemDocument &affected)
{
    calls << QStringLiteral("WindowToAffect");
    document = &affected;
}

void FakeEditor::setHost(const QString &text)
{
    calls << QStringLiteral("Host");
    host = text;
}

void FakeEditor::setRemoteFlag(bool isOn)
{
    calls << QStringLiteral("RemoteFlag");
    isRemote = isOn;
}

void FakeEditor::setWindowAddFlag(bool isAdded)
{
    calls << QStringLiteral("WindowAddFlag");
    isNew = isAdded;
}

void FakeEditor::setWindowAddItem(qint16 index)
{
    calls << QStringLiteral("WindowAddItem");
    row = index;
}

void FakeEditor::setOKButtonCaption(const QString &caption)
{
    calls << QStringLiteral("OKButton");
    okCaption = caption;
}

void FakeEditor::SetDefaultItem()
{
    calls << QStringLiteral("SetDefaultItem");
}

void FakeEditor::SetItem(const QString &text)
{
    calls << QStringLiteral("SetItem");
    line = text;
    if (onSetItem)
        onSetItem(text);
}

void FakeEditor::Show()
{
    calls << QStringLiteral("Show");
    isShown = true;
}

FakeEditors::FakeEditors()
{
    for (const ItemKindRow &row : itemKinds)
        m_kinds << int(row.kind);
}

void FakeEditors::setKinds(const QList<ItemKind> &existing)
{
    m_kinds.clear();
    for (const ItemKind kind : existing)
        m_kinds << int(kind);
}

ItemEditor &FakeEditors::sharedEditor(ItemKind kind)
{
    const auto shared = std::find_if(m_open.begin(), m_open.end(), [kind](const FakeEditor *editor) {
        return editor->isShared && editor->kind == kind;
    });
    return shared == m_open.end() ? add(kind, true) : **shared;
}

void FakeEditors::closeEditorsOf(const ItemDocument &document)
{
    closedFor << &document;
    const QList<FakeEditor *> before = m_open;
    for (const FakeEditor *editor : before) {
        if (editor->document == &document)
            close(*editor);
    }
}

void FakeEditors::close(const FakeEditor &editor)
{
    const auto closed = std::find(m_open.begin(), m_open.end(), &editor);
    if (closed == m_open.end()) {
        ADD_FAILURE() << "the editor is closed already";
        return;
    }
    (*closed)->isShown = false;
    m_open.erase(closed);
}

FakeEditor &FakeEditors::last() const
{
    static FakeEditor none(ItemKind::Other, false);
    if (m_open.isEmpty()) {
        ADD_FAILURE() << "no editor is open";
        return none;
    }
    return *m_open.last();
}

FakeEditor &FakeEditors::add(ItemKind kind, bool isShared)
{
    EXPECT_TRUE(hasEditor(kind)) << "there is no editor for " << itemKindRow(kind).displayName.data();
    m_made.push_back(std::make_unique<FakeEditor>(kind, isShared));
    FakeEditor &editor = *m_made.back();
    m_open << &editor;
    if (onMade)
        onMade(editor);
    return editor;
}
