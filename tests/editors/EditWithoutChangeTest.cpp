#include "tests/config/PlainGrammar.h"
#include "tests/editors/EditorFixture.h"
#include "tests/editors/PlainFlags.h"
#include "tests/support/Random.h"

/// Lines of files and keys that are opened and confirmed without a change become what a model says that is told step by
/// step and shares nothing with the program. What would break it: a letter in a wrong place of either order, an option
/// that is cleared or read behind a letter, a path that the lists have changed, a separator too many or too few.

namespace {

const QString flagMessage = "You must select at least one flag.";

/// Where the walk through the folders ends, and what the user is told then.
QString plainFileMessage(const QString &path, const QStringList &things)
{
    const auto isThere = [&things](QString each) {
        if (each.endsWith('\\'))
            each.chop(1);
        return things.contains(each.toUpper());
    };
    if (path.size() >= 2 && path[1] == u':' && path[0].toUpper() >= u'A' && path[0].toUpper() <= u'Z') {
        const QString drive = path.left(1).toUpper() + ":";
        if (!isThere(drive))
            return "Cannot access file system " + drive + "\\";
    }
    // None of these is a file.
    if (isThere(path))
        return "";
    const int last = int(path.lastIndexOf('\\'));
    if (last <= 0)
        return "Cannot find file " + path;
    if (path[last - 1] == u':')
        return "";
    return isThere(path.left(last)) ? "" : "Cannot find file " + path;
}

QString plainFileObject(const QString &object)
{
    if (object.endsWith("\\") && !object.endsWith(":\\"))
        return object.left(object.size() - 1);
    return object;
}

QString plainKey(const QString &object)
{
    return object.contains("\\") ? object : object + "\\";
}

class EditWithoutChange : public Editors
{
protected:
    /// One kind of lines. What the model says of a line comes before the editor does.
    void run(ItemKind kind, const plain::Flags &flags, const std::function<QString(const QString &)> &object,
             const std::function<void(const QString &)> &expectMessages, const std::function<QString()> &nextLine)
    {
        int refused = 0;
        int changed = 0;
        document.rows = QStringList{QString()};
        plain::Controls controls = plain::blankControls(flags);
        for (int round = 0; round < rounds; ++round) {
            const QString line = nextLine();
            document.rows[0] = line;
            plain::Parts parts;
            try {
                parts = plain::parseAsDocument(line);
            } catch (const plain::NegativeLength &) {
                continue;
            }
            // The form stays open after a refusal, and with it what is checked.
            plain::parse(flags, parts.flags, controls);
            const QString built = plain::build(flags, controls);
            const bool isAccepted = !built.isEmpty() || parts.prefix.startsWith("!");
            expectMessages(parts.object);
            if (!isAccepted)
                messages.expectShow(flagMessage, Messages::Icon::Exclamation);
            const ItemEditorForm &form = edit(kind, 0);
            press(form, "OKButton");
            messages.verify();
            ASSERT_EQ(form.isVisible(), !isAccepted) << line.toStdString();
            const QString expected =
                isAccepted ? plain::assemble(object(parts.object), parts.prefix, built, true) : line;
            ASSERT_EQ(document.rows[0], expected) << line.toStdString();
            refused += isAccepted ? 0 : 1;
            changed += expected == line ? 0 : 1;
            if (isAccepted)
                controls = plain::blankControls(flags);
        }
        // Everything happens often enough to mean something.
        EXPECT_GT(refused, rounds / 20);
        EXPECT_LT(refused, rounds / 2);
        EXPECT_GT(changed, rounds / 4);
        EXPECT_LT(changed, rounds - rounds / 20);
    }

    static constexpr int rounds = 500;
    const QStringList prefixes{"", "", "", "=", "==", "!", "!!", "=!", " "};
};

TEST_F(EditWithoutChange, OfFilesWritesWhatThePlainModelSays)
{
    fileSystem.addDrive("C:\\");
    fileSystem.addFolder("C:\\a b\\c");
    fileSystem.addFolder("C:\\d");
    const QStringList things{"C:", "C:\\A B", "C:\\A B\\C", "C:\\D"};
    const QStringList starts{"C:\\", "C:\\", "c:\\", "C:", "D:\\", "\\", "1:\\", "\u00E9:\\", "\\\\srv\\C$\\", "%x%"};
    const QStringList names{"a b", "A B\\C", "d", "D\\", "d\\e", "f", "\u00E9", "\\", "c:\\", "$", " "};
    const QStringList flags{"$(A)", "$(LOG)", "EVT5", "EVT", "EVT-3", "EVT10-2", ",", "t", "c", "a", "m",      "v",
                            "s",    "n",      "i",    "o",   "g",     "p",       "z", "1", "2", "x", "tcnogpz"};
    Random random(61);
    run(
        ItemKind::File, plain::file, plainFileObject,
        [&](const QString &object) {
            const QString message = plainFileMessage(object, things);
            if (!message.isEmpty())
                messages.expectShow(message);
        },
        [&] {
            const QString quote = random.oneOf(QStringList{"", "", "\""});
            return random.oneOf(prefixes) + quote + random.oneOf(starts) + random.text(names, 3) + quote + " " +
                   random.text(flags, 5);
        });
}

TEST_F(EditWithoutChange, OfKeysWritesWhatThePlainModelSays)
{
    const QStringList starts{"HKLM", "HKLM\\", "hkcu\\", "HKEY_USERS\\", "HK", "x"};
    const QStringList names{"Software", "a b", "\\", "\u00E9", "{1-2}", "x", " "};
    const QStringList flags{"$(RA)", "EVT5", "EVT", "EVT-3", "G2", "G", ",", "c",      "k",       "m",
                            "o",     "g",    "p",   "z",     "1",  "2", "x", "ckogpz", "ckmogpz2"};
    Random random(62);
    run(
        ItemKind::Registry, plain::registry, plainKey, [](const QString &) {},
        [&] {
            const QString quote = random.oneOf(QStringList{"", "", "\""});
            return random.oneOf(prefixes) + quote + random.oneOf(starts) + random.text(names, 3) + quote + " " +
                   random.text(flags, 5);
        });
}

} // namespace
