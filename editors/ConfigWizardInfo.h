#pragma once

#include "editors/GlobalSettings.h"

#include <QDialog>

#include <array>
#include <span>

class Messages;
class QCheckBox;
class QGridLayout;
class QLineEdit;
class QTabWidget;
class SettingsDocument;
struct SettingField;

/// The global settings of one document, on pages. It stands beside the document, whose rows may change meanwhile: they
/// are read again before anything is written, and what the user has not touched follows them.
class ConfigWizardInfo final : public QDialog
{
    Q_OBJECT

public:
    ConfigWizardInfo(SettingsDocument &document, Messages &messages, QWidget *parent);

    /// Reads the document's rows. A field that the user has changed keeps what it shows.
    void LoadItems();

    /// Goes to the field of a setting. @param line any line; one that is no known setting changes nothing
    void MoveCursor(const QString &line);

    /// Writes all settings, as one undo step. @throws RuntimeError Overflow when the document is full
    void Apply();

private:
    /// The controls of a key, and what they showed when they were last in step with the document.
    struct Controls
    {
        QWidget *page = nullptr;
        QWidget *field = nullptr;
        QLineEdit *text = nullptr;
        QCheckBox *flag = nullptr;
        QString lastText;
        bool lastFlag = false;

        [[nodiscard]] bool isTouched() const;
        void remember();
    };

    void addPages();
    void addFrame(QWidget &page, std::span<const SettingField> fields);
    void addField(QGridLayout &layout, const SettingField &field);
    void connectFlags();

    [[nodiscard]] Controls &controls(SettingKey key) { return m_controls[static_cast<size_t>(key)]; }
    void showItem(SettingKey key);
    void SetItem(SettingsWriter &writer, SettingKey key);
    void browse(const SettingField &field);

    SettingsDocument &m_document;
    GlobalSettings m_settings;
    QTabWidget *m_tabs;
    std::array<Controls, settingKeys.size()> m_controls;
};
