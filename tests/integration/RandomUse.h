#pragma once

#include "tests/config/PlainGrammar.h"
#include "tests/integration/PlainUse.h"
#include "tests/integration/ProgramWithEditors.h"
#include "tests/support/Random.h"

#include <deque>
#include <optional>

/// Pieces of what a user types.
inline const QStringList typedPieces{"C:\\",   "x",          " ",  "\t",      "\"",      "\\",    ";",        "=",
                                     "!",      "$(LOG)",     "R",  "HKLM\\a", "NTUSER:", "LDAP:", "#define ", "MAILTO ",
                                     "\u00E9", "\U0001F600", "%1", "&",       "<b>",     "\n",    "\r\n"};

/// What a clipboard may hold and nobody types: halves of a character that is no UTF-16, a mark, a zero, other line
/// ends.
inline const QStringList oddPieces{QString(QChar(0xD800)),
                                   QString(QChar(0xDC00)),
                                   QString(QChar(0xDFFF)),
                                   QString(QChar(0xFEFF)),
                                   QString(QChar(0xFFFF)),
                                   QString(QChar(0)),
                                   QString(QChar(0x2028)),
                                   QString(QChar(0x202E)),
                                   "\r",
                                   "\n\r"};

inline constexpr size_t mostDocuments = 4;

/// Keeps what the user is told and asked, and answers in the order of answers; with Yes when there is none left.
class ToldMessages final : public Messages
{
public:
    void show(const QString &text, Icon, const QString &) override { said << text; }

    [[nodiscard]] Answer ask(const QString &text, Buttons, Icon, const QString &) override
    {
        said << text;
        if (answers.empty())
            return Answer::Yes;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    QStringList said;
    std::deque<Answer> answers;
};

/// A document window and what it should hold.
struct OpenDocument
{
    ConfigForm *form;
    plain::UsedDocument plain;
};

/// An item editor that is open, and for what.
struct OpenEditor
{
    QPointer<ItemEditorForm> form;
    ConfigForm *target = nullptr;
    bool isNew = false;
    int row = -1;
    /// What its fields hold, by name.
    QMap<QString, QString> fields;
};

/// A form of global settings that is open.
struct OpenWizard
{
    QPointer<ConfigWizardInfo> form;
    ConfigForm *target = nullptr;
    /// What its fields showed when they were last in step with the document.
    QMap<QString, plain::SettingShown> inStep;
};

/// How a save goes.
struct SavePlan
{
    bool fails = false;
    /// Chosen in the dialog, when there is one; empty: the dialog is cancelled.
    QString chosen;
    Messages::Answer mayReplace = Messages::Answer::Yes;
};

/// A user who does anything at all, in any order. After each action everything that the program holds is compared with
/// the plain model: documents, what is selected in them, files, what was said, and which forms are open.
class RandomUse : public ProgramWithEditors, public testing::WithParamInterface<int>
{
protected:
    RandomUse();
    ~RandomUse() override { messages.standIn = nullptr; }

    void startProgram();
    void note(const QString &what) { history << what; }
    void expectSaid(const QString &text) { expectedSaid << text; }

    // Documents

    [[nodiscard]] OpenDocument *active();
    [[nodiscard]] OpenDocument &of(const ConfigForm *form);

    /// What is selected is the list's business; the model takes it from there.
    static void takeSelection(OpenDocument &document);
    void addOpened(const QString &caption, const QString &path, const QStringList &rows);

    /// What reading a file comes to; nothing when the user is told of an error.
    [[nodiscard]] std::optional<QStringList> read(const QString &path);
    void openFile();
    void newDocument();
    void dropFile();
    void activateAny();
    void reload();
    [[nodiscard]] SavePlan planSave();

    /// Does what saves, with the dialog and the error that the plan has.
    void runSave(const SavePlan &plan, bool hasDialog, const std::function<void()> &gesture);

    /// @param isByForm by the form's own Apply, which takes a cancelled dialog for a save
    /// @return whether there was no error
    bool expectSave(const SavePlan &plan, plain::UsedDocument &document, bool isByForm);
    void save();
    void forget(const ConfigForm *form);
    void closeDocument();
    void endProgram();

    // Rows

    void select();
    [[nodiscard]] bool isCurrentThere(const OpenDocument &document);
    void expectRemoval(OpenDocument &document);
    void remove();
    void move();
    void comment();
    [[nodiscard]] static QString selectedText(const OpenDocument &document);
    void copyOrCut();
    void paste();
    void undo();

    // Editors

    [[nodiscard]] OpenEditor *modelOf(const ItemEditorForm *form);
    void addByEditor();
    void editRow();
    [[nodiscard]] static QByteArray menuNameOf(ItemKind kind);

    /// Fills the fields as a form does; false when the line cannot be taken apart.
    [[nodiscard]] static bool isShown(ItemKind kind, const QString &line, OpenEditor &editor);
    [[nodiscard]] OpenEditor *anyEditor();
    void type();
    void checkFlags();
    void confirmEditor();

    /// What an editor is to hand over; of the flags and rights that have boxes, what these show.
    [[nodiscard]] static plain::Parts partsIn(const OpenEditor &editor);

    /// Whether the form keeps what it shows for itself, because of flags. @param answer to what it asks then
    [[nodiscard]] bool isRefused(const QString &form, const plain::Parts &parts, Messages::Answer answer);
    [[nodiscard]] static QString objectOf(const QString &form, QString object);
    void cancelEditor();

    // Pickers

    void addThingsToPick();

    /// Some keys and clicks in a dialog, none of which closes it.
    void clickAbout(QWidget &dialog);

    /// The rows of a document, or all of it, while a dialog of one of its editors is open.
    void takeAway(ConfigForm &document);
    void usePicker();

    // Global settings

    [[nodiscard]] static QMap<QString, plain::SettingShown> shownIn(const ConfigWizardInfo &wizard);
    void openWizard();
    void useWizard();

    /// Does one action and compares all there is.
    void act();

    // Comparison

    void compareDocument(const OpenDocument &document) const;
    void compare() const;

    /// How many actions a test does: what ZENTILCONF_RANDOM_ACTIONS says, or else what takes a second or two.
    [[nodiscard]] static int actionCount();
    /// With --gtest_shuffle every repetition has seeds of its own.
    [[nodiscard]] static unsigned seedOf(int number);

    const unsigned seed = seedOf(GetParam());
    Random random{seed};
    ToldMessages told;
    QTemporaryDir folder;
    QStringList paths;
    QStringList history;
    QStringList expectedSaid;
    QHash<QString, QByteArray> disk;
    QString clipboard;
    int created = 0;
    std::vector<OpenDocument> documentsOpen;
    std::vector<OpenEditor> editorsOpen;
    std::vector<OpenWizard> wizardsOpen;
};
