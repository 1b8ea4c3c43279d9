#pragma once

#include "config/ItemEditor.h"

#include <QDialog>

#include <optional>

class ItemDocument;
class LineEdit;
class Messages;
class QGridLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// The base of all item editors: a window in front of the main window that takes a line apart into fields and hands it
/// back to its document when the user confirms. With a new item it stays open, so that several can be added one after
/// the other; with a changed one it closes. Closing discards what has not been confirmed, and ends the form.
class ItemEditorForm : public QDialog, public ItemEditor
{
    Q_OBJECT

public:
    void setWindowToAffect(ItemDocument &document) final { m_document = &document; }
    void setHost(const QString &host) final { m_host = host; }
    void setRemoteFlag(bool isRemote) final { m_isRemote = isRemote; }
    void setWindowAddFlag(bool isNew) final { m_isNew = isNew; }
    void setWindowAddItem(qint16 row) final { m_row = row; }
    void setOKButtonCaption(const QString &caption) final;

    void SetDefaultItem() override {}

    /// When the line cannot be shown the form closes: it must not change the row to what it showed before.
    void SetItem(const QString &line) final;

    void Show() final;

    /// The document that the form would send its result to; none before it has been given one.
    [[nodiscard]] const ItemDocument *windowToAffect() const { return m_document; }

protected:
    /// What is handed to the document.
    struct Item
    {
        QString object;
        QString prefix;
        QString flags;
    };

    enum class AfterAdding { StaysOpen, Closes };
    enum class Grows { No, Yes };

    ItemEditorForm(QLatin1String name, const QString &title, Messages &messages, QWidget *parent);

    /// The parts of the form, from top to bottom and in the order in which the Tab key goes through them. A field has
    /// a label in front of it and may have a button behind it.
    LineEdit *addField(QLatin1String name, QLatin1String labelName, const QString &label, const QString &toolTip = {});
    /// Another control in the place of a field.
    void addControl(QWidget &control, QLatin1String labelName, const QString &label);
    QPushButton *addButtonBehind(QLatin1String name, const QString &caption, const QString &toolTip = {});
    /// The field Prefix with the button of the prefix chooser.
    LineEdit *addPrefixField(QLatin1String labelName);
    /// @param grows whether the part takes the space that a larger form has
    /// @param alignment where the part stands when it is narrower than the form; by default it is as wide
    void addPart(QWidget &part, Grows grows = Grows::No, Qt::Alignment alignment = {});
    /// OKButton and CancelButton; to be called last, by every form.
    void addButtons(const QString &okCaption, const QString &cancelCaption);

    void setAfterAdding(AfterAdding afterAdding) { m_afterAdding = afterAdding; }

    /// Fills the controls from a line. @throws RuntimeError as ItemDocument::ParseLine() does
    virtual void showItem(const QString &line) = 0;

    /// What the controls show; nothing when the user has been told why it cannot be handed to the document.
    [[nodiscard]] virtual std::optional<Item> collectItem() = 0;

    /// Gives an item to the document. @throws RuntimeError as ItemDocument::ItemAddFile() and ItemChangeFile() do
    void handOver(const Item &item);

    /// The rule of most kinds: only an exclusion, by a prefix that begins with "!", needs no flags. The user is told
    /// when it is broken.
    [[nodiscard]] bool requireFlags(const QString &flags, const QString &prefix);

    [[nodiscard]] const ItemDocument &document() const { return *m_document; }
    [[nodiscard]] const QString &host() const { return m_host; }
    [[nodiscard]] bool isRemote() const { return m_isRemote; }
    /// The host whose objects are looked at; empty for this machine.
    [[nodiscard]] QString browsedHost() const { return m_isRemote ? m_host : QString(); }
    [[nodiscard]] bool isNew() const { return m_isNew; }
    [[nodiscard]] Messages &messages() const { return m_messages; }

private:
    void confirm();
    [[nodiscard]] QWidget *firstControl() const;

    Messages &m_messages;
    ItemDocument *m_document = nullptr;
    QString m_host;
    bool m_isRemote = false;
    bool m_isNew = false;
    qint16 m_row = -1;
    AfterAdding m_afterAdding = AfterAdding::StaysOpen;
    QVBoxLayout *m_layout;
    QGridLayout *m_fields;
    QPushButton *m_okButton = nullptr;
};
