#pragma once

#include "config/ConfigForm.h"

#include <QMdiArea>

#include <vector>

/// The document windows of the main window: it makes, opens, closes and arranges them, and knows the active document.
class DocumentArea final : public QMdiArea
{
    Q_OBJECT

public:
    explicit DocumentArea(const ConfigForm::Services &services, QWidget *parent = nullptr);
    ~DocumentArea() override;

    /// The active document; nullptr when there is none. It stays active while another window of the program is used.
    [[nodiscard]] ConfigForm *activeDocument() const { return m_activeDocument; }

    /// All documents, oldest first.
    [[nodiscard]] const std::vector<ConfigForm *> &documents() const { return m_documents; }

    /// Opens an empty, untitled document and makes it the active one.
    void newDocument();

    /// Opens a file in a new document and makes it the active one. When that fails, no window is left behind.
    /// @throws RuntimeError as ConfigForm::Form_Load_Data() does
    void openDocument(const QString &path);

    /// Closes the active document, if there is one, unless the user keeps it open.
    void closeActiveDocument();

    /// Asks every document whether it may close. @return false when one is to stay open; then none will close
    /// @throws RuntimeError when saving fails
    [[nodiscard]] bool queryCloseAll();

    /// Closes every document. @return false when one stayed open
    [[nodiscard]] bool closeAll();

    /// Each arranges the document windows; minimised ones are left out.
    void cascade();
    void tileOneAboveTheOther();
    void tileSideBySide();

    /// Lines up the minimised document windows at the lower edge.
    void arrangeIcons();

private:
    [[nodiscard]] ConfigForm &createDocument();
    void showDocument(ConfigForm &document);
    void discardDocument(ConfigForm &document);
    void setActiveDocument(ConfigForm *document);
    void forgetDocument(ConfigForm *document);

    [[nodiscard]] QList<QMdiSubWindow *> windows(bool areMinimised) const;
    void tile(QList<QRect> (*tiles)(const QSize &area, int count, const QSize &minimum));

    ConfigForm::Services m_services;
    std::vector<ConfigForm *> m_documents;
    ConfigForm *m_activeDocument = nullptr;
    int m_documentCount = 0;
};
