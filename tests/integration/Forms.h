#pragma once

#include "settings/Config.h"
#include "tests/integration/ProgramWithEditors.h"
#include "tests/support/FakeDataSources.h"
#include "tests/support/FakePrograms.h"

#include <span>

/// Every form of the program, open in a program that has a document and something in each of its lists.
class Forms : public ProgramWithEditors
{
public:
    /// A form, how it is opened, and what its keys are for as long as nobody has done anything in it.
    struct Row
    {
        /// Its class, which is its object name too.
        const char *name;
        QWidget *(Forms::*open)();
        /// What has the focus.
        const char *focus;
        /// What Enter and Escape press; nullptr where the form has no such button.
        const char *defaultButton = nullptr;
        const char *cancelButton = nullptr;
    };

    /// All there are.
    [[nodiscard]] static std::span<const Row> all();

protected:
    Forms();

    /// Opens one form after the other, runs check on it, and closes it.
    void withEach(const std::function<void(const Row &row, QWidget &form)> &check);

    /// How often something has been stored in the registry.
    [[nodiscard]] qsizetype storingCalls() const;

    Config config{registry};
    FakeDataSources dataSources;
    FakePrograms programs;

private:
    // Each opens a form and waits until it is active. Forms go with the main window, at the latest.
    QWidget *openMainWindow() { return window.get(); }
    QWidget *openDocument() { return &document(0); }
    template<ItemKind kind>
    QWidget *openEditor();
    QWidget *openFlags();
    QWidget *openPrefix();
    QWidget *openWizard();
    QWidget *openUsers();
    QWidget *openKeys();
    QWidget *openDirectory();
    QWidget *openDrives();
    QWidget *openOptions();
    QWidget *openAbout();

    QWidget *activated(QWidget *form);
};
