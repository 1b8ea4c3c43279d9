#include "tests/config/PlainGrammar.h"
#include "tests/editors/EditorFixture.h"
#include "tests/editors/PlainFlags.h"
#include "tests/support/Random.h"

#include <QRegularExpression>

namespace {

/// What an editor of accounts, rights or policies makes of lines, told once more as plainly as it can be. It shares
/// nothing with the program.
class PlainEditor
{
public:
    enum class Object { Name, Rights, Word };

    PlainEditor(Object objectKind, const QString &tagOfKind, const plain::Flags &flagsOfKind, bool needsFlags)
        : m_objectKind(objectKind)
        , m_tag(tagOfKind)
        , m_flags(flagsOfKind)
        , m_needsFlags(needsFlags)
    {
        open();
    }

    /// A form that has just been made.
    void open()
    {
        m_controls = plain::blankControls(m_flags);
        m_name.clear();
        m_ticked.clear();
        m_isAll = false;
        m_prefix.clear();
    }

    /// @throws plain::NegativeLength
    void show(const QString &line)
    {
        const plain::Parts parts = plain::parseAsDocument(line);
        plain::parse(m_flags, parts.flags, m_controls);
        m_prefix = parts.prefix;
        const QString behindTag = parts.object.mid(m_tag.size());
        if (m_objectKind == Object::Rights)
            showRights(behindTag);
        else
            m_name = behindTag;
    }

    [[nodiscard]] bool isAccepted() const
    {
        return !m_needsFlags || !plain::build(m_flags, m_controls).isEmpty() || m_prefix.startsWith('!');
    }

    [[nodiscard]] QString line() const
    {
        const QString flags = plain::build(m_flags, m_controls);
        if (m_objectKind == Object::Name)
            return plain::assemble(m_tag + withoutBlanksInFront(m_name), m_prefix, flags, true);
        return plain::assemble(m_objectKind == Object::Rights ? m_tag + rights() : m_tag, "", flags, true);
    }

private:
    static QString withoutBlanksInFront(QString text)
    {
        while (text.startsWith(' '))
            text = text.mid(1);
        return text;
    }

    void showRights(QString text)
    {
        while (text.contains(' '))
            text.remove(text.indexOf(' '), 1);
        m_isAll = text == "" || text == "*";
        if (m_isAll)
            return;
        m_ticked.clear();
        QStringList rest;
        for (const QString &piece : text.split(',')) {
            const qsizetype row = lowerCaseRights().indexOf(piece.toLower());
            if (row >= 0)
                m_ticked << row;
            else if (piece != "")
                rest << piece;
        }
        m_name = rest.join(',');
    }

    [[nodiscard]] QString rights() const
    {
        if (m_isAll)
            return "*";
        QStringList pieces;
        for (qsizetype row = 0; row < knownRights.size(); ++row) {
            if (m_ticked.contains(row))
                pieces << knownRights[row];
        }
        if (m_name != "")
            pieces << m_name;
        return pieces.join(',');
    }

    [[nodiscard]] QStringList lowerCaseRights() const
    {
        QStringList names;
        for (const QString &right : knownRights)
            names << right.toLower();
        return names;
    }

    // Those that the test's lines hold, in the order of the list.
    const QStringList knownRights{"SeInteractiveLogonRight", "SeTcbPrivilege", "SeDebugPrivilege",
                                  "SeChangeNotifyPrivilege"};

    const Object m_objectKind;
    const QString m_tag;
    const plain::Flags &m_flags;
    const bool m_needsFlags;

    plain::Controls m_controls;
    QString m_name;
    QList<qsizetype> m_ticked;
    bool m_isAll = false;
    QString m_prefix;
};

struct EditedKind
{
    const char *name;
    ItemKind kind;
    PlainEditor::Object object;
    const char *tag;
    const plain::Flags &flags;
    bool needsFlags;
};

void PrintTo(const EditedKind &edited, std::ostream *stream)
{
    *stream << edited.name;
}

class AccountEditWithoutChange : public Editors, public testing::WithParamInterface<EditedKind>
{
protected:
    QString randomLine()
    {
        // Most lines are of the kind, as those that the document gives the editor; it must not fall over others.
        QString line = random.oneOf(prefixes);
        line += random.chance(85) ? QString(GetParam().tag) : random.text(namePieces, 2);
        line += random.text(namePieces, 4);
        if (line.contains(' ') && random.chance(80))
            line = "\"" + line + "\"";
        return random.chance(80) ? line + " " + random.text(flagPieces, 6) : line;
    }

    Random random{43};
    const QStringList prefixes{"", "", "", "=", "==", "!", "!!", "=!", " ", "\""};
    const QStringList namePieces{"adam",
                                 "*",
                                 " ",
                                 " ",
                                 "\"",
                                 "=",
                                 "!",
                                 "\\",
                                 ":",
                                 ",",
                                 ",",
                                 "Se Foo",
                                 "\u00E9",
                                 "\\u0x0009",
                                 "NTUSER",
                                 "SeTcbPrivilege",
                                 "seDEBUGprivilege",
                                 "SeChangeNotifyPrivilege,",
                                 "SeInteractiveLogonRight"};
    const QStringList flagPieces{"n",
                                 "c",
                                 "C",
                                 "g",
                                 "m",
                                 "M",
                                 "p",
                                 "a",
                                 "$(UA)",
                                 "$(GA)",
                                 ",",
                                 ",",
                                 "EVT5",
                                 "EVT10-2",
                                 "EVcT12",
                                 ",EVT,",
                                 "Z",
                                 "ncgm",
                                 "ncCdjhspwlSoebxmuMgRrfLO"};
};

TEST_P(AccountEditWithoutChange, WritesWhatThePlainModelSays)
{
    PlainEditor model(GetParam().object, GetParam().tag, GetParam().flags, GetParam().needsFlags);
    document.rows = QStringList{"", "", ""};
    int accepted = 0;
    int refused = 0;
    int eventsBehindLetters = 0;
    for (int round = 0; round < 250; ++round) {
        // Up to three lines are shown in the same form, and the last one is confirmed: what one leaves behind is known
        // to the model too.
        qint16 row = 0;
        bool isShown = true;
        for (int count = random.number(1, 3); count > 0 && isShown; --count) {
            row = qint16(random.number(0, 2));
            document.rows[row] = randomLine();
            try {
                model.show(document.rows[row]);
            } catch (const plain::NegativeLength &) {
                isShown = false;
            }
            if (isShown)
                (void)edit(GetParam().kind, row);
            else
                EXPECT_THROW((void)edit(GetParam().kind, row), RuntimeError);
        }
        if (!isShown) {
            model.open();
            continue;
        }
        const QString line = document.rows[row];
        const auto &form = dynamic_cast<ItemEditorForm &>(editors.sharedEditor(GetParam().kind));
        if (!model.isAccepted())
            messages.expectShow("You must select at least one flag.", Messages::Icon::Exclamation);
        press(form, "OKButton");
        messages.verify();
        ASSERT_EQ(form.isVisible(), !model.isAccepted()) << line.toStdString();
        ASSERT_EQ(document.rows[row], model.isAccepted() ? model.line() : line) << line.toStdString();
        if (!model.isAccepted()) {
            ++refused;
            continue;
        }
        ++accepted;
        eventsBehindLetters += int(document.rows[row].contains(QRegularExpression(R"(\S,EVT\d+(,\S+)?$)")));
        model.open();
    }
    // Both happen often enough to mean something.
    EXPECT_GT(accepted, 100);
    EXPECT_EQ(refused > 10, GetParam().needsFlags);
    EXPECT_EQ(eventsBehindLetters > 10,
              GetParam().kind != ItemKind::UserRight && GetParam().kind != ItemKind::AuditPolicy);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Kinds, AccountEditWithoutChange, testing::Values(
    EditedKind{"User",          ItemKind::User,          PlainEditor::Object::Name,   "NTUSER:",       plain::user,          true},
    EditedKind{"Group",         ItemKind::Group,         PlainEditor::Object::Name,   "NTGROUP:",      plain::group,         true},
    EditedKind{"UserRight",     ItemKind::UserRight,     PlainEditor::Object::Rights, "USERRIGHT:",    plain::userRight,     false},
    EditedKind{"AccountPolicy", ItemKind::AccountPolicy, PlainEditor::Object::Word,   "ACCOUNTPOLICY", plain::accountPolicy, false},
    EditedKind{"AuditPolicy",   ItemKind::AuditPolicy,   PlainEditor::Object::Word,   "AUDITPOLICY",   plain::auditPolicy,   false}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

} // namespace
