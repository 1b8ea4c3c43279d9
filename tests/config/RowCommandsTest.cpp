#include "config/RowCommands.h"

#include "config/RowChanges.h"
#include "config/RowList.h"
#include "tests/config/PlainDocument.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

void PrintTo(const RowSelection &selection, std::ostream *stream)
{
    *stream << testing::PrintToString(selection.rows) << ", current " << selection.current;
}

namespace {

class Commands : public testing::Test
{
protected:
    void give(const QStringList &texts) { rows.setRows(texts); }

    RowList rows;
    RowChanges changes{rows};
    RowCommands commands{rows, changes};
};

TEST_F(Commands, ALineGoesInFrontOfTheCurrentRowWhichStaysCurrentAndSelected)
{
    give({"a", "b", "c"});
    EXPECT_EQ(commands.insertLine("x", {{0, 1}, 1}), (RowSelection{{0, 2}, 2}));
    EXPECT_EQ(rows.rows(), (QStringList{"a", "x", "b", "c"}));
}

TEST_F(Commands, ALineGoesInFrontOfACurrentRowThatIsNotSelected)
{
    give({"a", "b", "c"});
    EXPECT_EQ(commands.insertLine("x", {{2}, 1}), (RowSelection{{3}, 2}));
    EXPECT_EQ(rows.rows(), (QStringList{"a", "x", "b", "c"}));
}

TEST_F(Commands, ALineGoesBehindTheLastRowWhenNoneIsCurrent)
{
    give({"a"});
    EXPECT_EQ(commands.insertLine("x", {{0}, -1}), (RowSelection{{0}, -1}));
    EXPECT_EQ(rows.rows(), (QStringList{"a", "x"}));
}

TEST_F(Commands, ALineOfSeveralPiecesMovesTheCurrentRowByAsMany)
{
    give({"a", "b"});
    EXPECT_EQ(commands.insertLine("x\r\ny", {{1}, 1}), (RowSelection{{3}, 3}));
}

TEST_F(Commands, RemovingRows2And5And6IsOneUndoStep)
{
    give({"0", "1", "2", "3", "4", "5", "6", "7"});
    EXPECT_EQ(commands.removeSelected({{2, 5, 6}, 5}), (RowSelection{{4}, 4}));
    EXPECT_EQ(rows.rows(), (QStringList{"0", "1", "3", "4", "7"}));
    (void)changes.undo(4);
    EXPECT_EQ(rows.rows(), (QStringList{"0", "1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Commands, AfterTheLastRowsAreRemovedTheNewLastIsCurrent)
{
    give({"a", "b", "c"});
    EXPECT_EQ(commands.removeSelected({{1, 2}, 2}), (RowSelection{{0}, 0}));
    EXPECT_EQ(commands.removeSelected({{0}, 0}), RowSelection());
}

TEST_F(Commands, ACurrentRowThatIsNotSelectedStaysWhenOthersAreRemoved)
{
    give({"a", "b", "c"});
    EXPECT_EQ(commands.removeSelected({{0}, 2}), (RowSelection{{}, 1}));
    EXPECT_EQ(rows.rows(), (QStringList{"b", "c"}));
}

TEST_F(Commands, TheFirstRowCannotGoUpNorTheLastDown)
{
    give({"a", "b", "c"});
    EXPECT_FALSE(commands.mayMoveUp({{0, 2}, 2}));
    EXPECT_TRUE(commands.mayMoveUp({{1, 2}, 0}));
    EXPECT_FALSE(commands.mayMoveDown({{0, 2}, 0}));
    EXPECT_TRUE(commands.mayMoveDown({{0, 1}, 2}));
}

TEST_F(Commands, AMoveOfSeveralRowsIsOneUndoStep)
{
    give({"a", "b", "c", "d", "e"});
    EXPECT_EQ(commands.moveUp({{1, 2, 4}, 4}), (RowSelection{{0, 1, 3}, 3}));
    EXPECT_EQ(rows.rows(), (QStringList{"b", "c", "a", "e", "d"}));
    EXPECT_EQ(commands.moveDown({{0, 3}, 0}), (RowSelection{{1, 4}, 1}));
    EXPECT_EQ(rows.rows(), (QStringList{"c", "b", "a", "d", "e"}));
    (void)changes.undo(-1);
    EXPECT_EQ(rows.rows(), (QStringList{"b", "c", "a", "e", "d"}));
    (void)changes.undo(-1);
    EXPECT_EQ(rows.rows(), (QStringList{"a", "b", "c", "d", "e"}));
    EXPECT_FALSE(changes.canUndo());
}

struct ToggleCase
{
    const char *name;
    QString before;
    QString after;
};

class CommentToggle : public Commands, public testing::WithParamInterface<ToggleCase>
{
};

TEST_P(CommentToggle, ChangesTheRow)
{
    give({GetParam().before});
    commands.toggleComments({{0}, 0});
    EXPECT_EQ(rows.rows(), QStringList{GetParam().after});
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CommentToggle,
    testing::Values(ToggleCase{"Plain", "C:\\x R", ";C:\\x R"}, ToggleCase{"Commented", ";C:\\x R", "C:\\x R"},
                    ToggleCase{"SpacesInFrontStay", "  ;a;b", "  a;b"}, ToggleCase{"OnlyTheFirstGoes", ";;a", ";a"},
                    ToggleCase{"Empty", "", ";"}, ToggleCase{"SpacesOnly", "  ", ";  "},
                    // To trim is to remove spaces, and a tab is none.
                    ToggleCase{"TabInFront", "\t;a", ";\t;a"}, ToggleCase{"NumberSign", "#a", ";#a"}),
    [](const auto &tested) { return tested.param.name; });

TEST_F(Commands, TogglingSeveralRowsIsOneUndoStep)
{
    give({"a", ";b", "c"});
    commands.toggleComments({{0, 1}, 0});
    EXPECT_EQ(rows.rows(), (QStringList{";a", "b", "c"}));
    (void)changes.undo(0);
    EXPECT_EQ(rows.rows(), (QStringList{"a", ";b", "c"}));
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Commands, SelectedRowsAreJoinedWithCrLfWithoutOneAtTheEnd)
{
    give({"1", "2", "3", "4"});
    EXPECT_EQ(commands.selectedText({{1, 3}, 1}), "2\r\n4");
    EXPECT_EQ(commands.selectedText({{0}, 0}), "1");
    EXPECT_EQ(commands.selectedText({}), "");
}

TEST_F(Commands, AnEmptySelectedRowIsAnEmptyLine)
{
    give({"", "a", ""});
    EXPECT_EQ(commands.selectedText({{0, 1, 2}, 1}), "\r\na\r\n");
    EXPECT_EQ(commands.selectedText({{0}, 0}), "");
}

TEST_F(Commands, APasteGoesAboveTheCurrentRowAndCannotBeUndone)
{
    give({"a", "b"});
    EXPECT_EQ(commands.insertUnrecorded({"1", "2"}, {{1}, 1}), (RowSelection{{3}, 3}));
    EXPECT_EQ(rows.rows(), (QStringList{"a", "1", "2", "b"}));
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Commands, APasteWithoutACurrentRowGoesToTheEnd)
{
    give({"a"});
    EXPECT_EQ(commands.insertUnrecorded({"1", "2"}, {{}, -1}), (RowSelection{{}, -1}));
    EXPECT_EQ(rows.rows(), (QStringList{"a", "1", "2"}));
}

struct TextCase
{
    const char *name;
    QString text;
    QStringList rows;
};

class TextAsRows : public testing::TestWithParam<TextCase>
{
};

TEST_P(TextAsRows, IsSplit)
{
    EXPECT_EQ(rowsOfText(GetParam().text), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(Texts, TextAsRows,
                         testing::Values(TextCase{"CrLf", "a\r\nb", {"a", "b"}},
                                         TextCase{"ATrailingLineBreakIsAnEmptyRow", "a\r\nb\r\n", {"a", "b", ""}},
                                         TextCase{"EmptyPiecesAreRows", "\r\n\r\na", {"", "", "a"}},
                                         TextCase{"Cr", "a\rb", {"a", "b"}},
                                         TextCase{"EveryLfIsRemovedWhereThereIsACr", "a\nb\r\nc", {"ab", "c"}},
                                         TextCase{"LfAlone", "a\nb\n", {"a", "b", ""}},
                                         TextCase{"OneLine", "a", {"a"}}),
                         [](const auto &tested) { return tested.param.name; });

/// Random commands on the program's rows and on the plain document, compared after each.
class Script
{
public:
    explicit Script(unsigned seed)
        : m_random(seed)
    {
        for (int count = m_random.number(0, 9); count > 0; --count)
            m_plain.rows.append({newLine()});
        m_rows.setRows(m_plain.texts());
    }

    void step()
    {
        chooseSelection();
        switch (m_random.number(0, 6)) {
        case 0:
            insert();
            break;
        case 1:
            remove();
            break;
        case 2:
            moveUp();
            break;
        case 3:
            moveDown();
            break;
        case 4:
            toggle();
            break;
        case 5:
            m_random.chance(80) ? undo() : paste();
            break;
        default:
            change();
            break;
        }
        ASSERT_EQ(m_rows.rows(), m_plain.texts());
        ASSERT_EQ(QList<int>(m_selection.rows.begin(), m_selection.rows.end()), m_plain.selected());
        ASSERT_EQ(m_selection.current, m_plain.current);
    }

private:
    QString newLine() { return m_random.text({"C:\\", ";", " ", "a", "\u00E9", "b"}, 4); }

    void chooseSelection()
    {
        m_selection = {};
        m_plain.current = m_plain.rows.isEmpty() ? -1 : m_random.number(-1, int(m_plain.rows.size()) - 1);
        m_selection.current = m_plain.current;
        for (int i = 0; i < m_plain.rows.size(); ++i) {
            m_plain.rows[i].isSelected = m_random.chance(40);
            if (m_plain.rows[i].isSelected)
                m_selection.rows.push_back(i);
        }
    }

    void insert()
    {
        const QString line = newLine();
        m_plain.insertLine(line);
        m_selection = m_commands.insertLine(line, m_selection);
    }

    void remove()
    {
        if (m_plain.current < 0 || m_selection.rows.empty())
            return;
        m_plain.removeSelected();
        m_selection = m_commands.removeSelected(m_selection);
    }

    void moveUp()
    {
        if (m_selection.rows.empty())
            return;
        ASSERT_EQ(m_commands.mayMoveUp(m_selection), m_plain.moveUp());
        if (m_commands.mayMoveUp(m_selection))
            m_selection = m_commands.moveUp(m_selection);
    }

    void moveDown()
    {
        if (m_selection.rows.empty())
            return;
        ASSERT_EQ(m_commands.mayMoveDown(m_selection), m_plain.moveDown());
        if (m_commands.mayMoveDown(m_selection))
            m_selection = m_commands.moveDown(m_selection);
    }

    void toggle()
    {
        if (m_selection.rows.empty())
            return;
        m_plain.toggleComments();
        m_commands.toggleComments(m_selection);
    }

    void change()
    {
        if (m_plain.rows.isEmpty())
            return;
        const QString line = newLine();
        const int row = m_random.number(0, int(m_plain.rows.size()) - 1);
        m_plain.change(row, line);
        m_changes.replace(line, row);
    }

    void undo()
    {
        ASSERT_EQ(m_changes.canUndo(), m_plain.canUndo());
        if (!m_changes.canUndo())
            return;
        (void)m_changes.undo(-1);
        m_plain.undo();
        m_selection = {};
        m_plain.current = -1;
    }

    void paste()
    {
        const QStringList lines{newLine(), newLine()};
        m_plain.paste(lines);
        m_selection = m_commands.insertUnrecorded(lines, m_selection);
        // The older records address rows that moved.
        m_changes.forget();
    }

    Random m_random;
    plain::Document m_plain;
    RowList m_rows;
    RowChanges m_changes{m_rows};
    RowCommands m_commands{m_rows, m_changes};
    RowSelection m_selection;
};

TEST(RowCommandsTest, RandomCommandsDoWhatThePlainDocumentDoes)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        Script script(seed);
        for (int i = 0; i < 40; ++i) {
            script.step();
            if (testing::Test::HasFatalFailure())
                FAIL() << "seed " << seed << ", step " << i;
        }
    }
}

} // namespace
