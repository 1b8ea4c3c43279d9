#pragma once

#include "config/ConfigForm.h"

#include <QMdiArea>

#include <functional>
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

    /// Takes back what queryCloseAll() agreed to.
    void forgetCloseAgreed();

    /// Closes every document. @return false when one stayed open
    [[nodiscard]] bool closeAll();

    /// Each arranges the document windows, in the order in which they were opened or, one behind the other, stand now;
    /// minimised ones are left out.
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

    /// A way to arrange windows, as in app/Tiling.h.
    using Places = std::function<QList<QRect>(const QSize &area, int count, const QSize &minimum)>;

    [[nodiscard]] QList<QMdiSubWindow *> windows(WindowOrder order, bool areMinimised) const;
    void arrange(const QList<QMdiSubWindow *> &arranged, const Places &placesIn);

    ConfigForm::Services m_services;
    std::vector<ConfigForm *> m_documents;
    ConfigForm *m_activeDocument = nullptr;
    int m_documentCount = 0;
};
