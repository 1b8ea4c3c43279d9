#include "editors/GlobalSettings.h"
#include "config/RowChanges.h"
#include "config/RowList.h"
#include "platform/RuntimeError.h"
#include "tests/support/Random.h"
#include "tests/support/SettingOrder.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

struct ReadCase
{
    const char *name;
    QString line;
    /// The key and "=" and the value; empty when the line is no setting.
    QString expected;
};

class SettingLines : public testing::TestWithParam<ReadCase>
{
};

TEST_P(SettingLines, AreTakenApart)
{
    const std::optional<SettingLine> setting = parseSetting(GetParam().line);
    EXPECT_EQ(setting ? keyText(setting->key) + QLatin1Char('=') + setting->value : QString(), GetParam().expected);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, SettingLines, testing::Values(
    ReadCase{"Plain",              "#define MAILTO a@b",                       "MAILTO=a@b"},
    // Each run of blanks is one, or the key would be empty.
    ReadCase{"ExtraBlanks",        "#define  OUTPUTFILE   c:\\out\\x.zof",     "OUTPUTFILE=c:\\out\\x.zof"},
    ReadCase{"BlanksAround",       "   #define MAILTO a  ",                    "MAILTO=a"},
    ReadCase{"AnyCase",            "#DEFINE detectiondb x",                    "DETECTIONDB=x"},
    ReadCase{"BlanksInTheValue",   "#define MAILSUBJECT two words here",       "MAILSUBJECT=two words here"},
    ReadCase{"RunsInTheValue",     "#define MAILSUBJECT \"two   words\"",      "MAILSUBJECT=two words"},
    ReadCase{"Quoted",             "#define MAILSUBJECT \"two words\"",        "MAILSUBJECT=two words"},
    ReadCase{"OnlyOpeningQuote",   "#define MAILSUBJECT \"two words",          "MAILSUBJECT=\"two words"},
    ReadCase{"OnlyClosingQuote",   "#define MAILSUBJECT two words\"",          "MAILSUBJECT=two words\""},
    ReadCase{"EmptyQuotes",        "#define MAILSUBJECT \"\"",                 "MAILSUBJECT="},
    ReadCase{"OneQuote",           "#define MAILSUBJECT \"",                   "MAILSUBJECT=\""},
    ReadCase{"NoValue",            "#define EVENTLOG",                         "EVENTLOG="},
    ReadCase{"OldPriority",        "#define ZENTILPRIORITY high",              "ZENTILPRIORITY=high"},
    ReadCase{"UnknownKey",         "#define SOMETHING x",                      ""},
    ReadCase{"LongerKey",          "#define MAILTOO x",                        ""},
    ReadCase{"OnlyKeyword",        "#define",                                  ""},
    ReadCase{"HashComment",        "# define MAILTO x",                        ""},
    ReadCase{"OtherDirective",     "#defined MAILTO x",                        ""},
    ReadCase{"CommentedOut",       ";#define MAILTO x",                        ""},
    ReadCase{"NoHash",             "define MAILTO x",                          ""},
    // Tabs are no blanks: the keyword does not end.
    ReadCase{"Tab",                "#define\tMAILTO x",                        ""},
    ReadCase{"Empty",              "",                                         ""}),
    [](const testing::TestParamInfo<ReadCase> &tested) { return tested.param.name; });
// clang-format on

TEST(GlobalSettings, LinesThatBeginWithAHashAreReported)
{
    GlobalSettings settings;
    EXPECT_TRUE(settings.ParseItem("#define MAILTO x", 0));
    EXPECT_TRUE(settings.ParseItem("  # a comment", 1));
    EXPECT_FALSE(settings.ParseItem("c:\\ t", 2));
    EXPECT_FALSE(settings.ParseItem("", 3));
    EXPECT_EQ(settings.row(SettingKey::MailTo), 0);
    EXPECT_LT(settings.row(SettingKey::MailFrom), 0);
}

TEST(GlobalSettings, TheLastLineOfAKeyCounts)
{
    GlobalSettings settings;
    settings.ParseItem("#define MAILTO first", 3);
    settings.ParseItem("#define mailto second", 7);
    EXPECT_EQ(settings.value(SettingKey::MailTo), "second");
    EXPECT_EQ(settings.row(SettingKey::MailTo), 7);
}

TEST(GlobalSettings, EveryKeyButTheOldPriorityIsWrittenOnce)
{
    std::set<SettingKey> written(settingWriteOrder.begin(), settingWriteOrder.end());
    EXPECT_EQ(written.size(), settingWriteOrder.size());
    EXPECT_EQ(written.size() + 1, settingKeys.size());
    EXPECT_FALSE(written.contains(SettingKey::ZentilPriority));
    EXPECT_EQ(keyText(SettingKey::MailTempFile), QLatin1String("MAILTEMPFILE"));
}

TEST(GlobalSettings, ValuesAreQuotedForTheirBlanksOnly)
{
    EXPECT_EQ(quotedValue("two words"), "\"two words\"");
    EXPECT_EQ(quotedValue("word"), "word");
    EXPECT_EQ(quotedValue(""), "");
    // One that begins with a quote is written as it stands.
    EXPECT_EQ(quotedValue("\"two words"), "\"two words");
    EXPECT_EQ(quotedValue("\"two words\""), "\"two words\"");
}

/// Rows, and settings written to them.
class WrittenSettings : public testing::Test
{
protected:
    void load(const QStringList &rows)
    {
        list.setRows(rows);
        settings = {};
        for (int row = 0; row < list.rowCount(); ++row)
            settings.ParseItem(list.at(row), row);
    }

    void apply(const SettingsWriter &writer)
    {
        const RowChanges::Group group(changes);
        writer.apply(changes);
    }

    RowList list;
    RowChanges changes{list};
    GlobalSettings settings;
};

TEST_F(WrittenSettings, StandWhereTheyStoodOrAtTheEnd)
{
    load({"; a", "#define MAILTO old", "c:\\ t"});
    SettingsWriter writer(list, settings);
    writer.SetItem(SettingKey::MailTo, "new");
    writer.SetItem(SettingKey::MailFrom, "me");
    apply(writer);
    EXPECT_EQ(list.rows(), (QStringList{"; a", "#define MAILTO new", "c:\\ t", "#define MAILFROM me"}));
}

TEST_F(WrittenSettings, EmptiedKeysLoseTheirLine)
{
    load({"#define MAILTO a", "; between", "#define MAILFROM b", "#define EVENTLOG", "#define SYSLOG host"});
    SettingsWriter writer(list, settings);
    writer.SetItem(SettingKey::MailTo, "");
    writer.SetItem(SettingKey::MailFrom, "");
    writer.SetItem(SettingKey::EventLog, "", SettingsWriter::Empty::IsKept);
    writer.SetItem(SettingKey::Syslog, "", SettingsWriter::Empty::IsKept);
    apply(writer);
    EXPECT_EQ(list.rows(), (QStringList{"; between", "#define EVENTLOG", "#define SYSLOG"}));
    static_cast<void>(changes.undo(-1));
    EXPECT_EQ(list.rowCount(), 5);
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(WrittenSettings, NothingChangesWhatStandsThereAlready)
{
    load({"#define MAILTO a"});
    SettingsWriter writer(list, settings);
    writer.SetItem(SettingKey::MailTo, "a");
    writer.SetItem(SettingKey::MailFrom, "");
    EXPECT_TRUE(writer.isEmpty());
}

TEST_F(WrittenSettings, AFullDocumentStaysAsItIs)
{
    QStringList rows(RowList::maximumRows - 1, "; row");
    rows << "#define MAILTO a";
    load(rows);
    SettingsWriter writer(list, settings);
    writer.SetItem(SettingKey::MailTo, "b");
    writer.SetItem(SettingKey::MailFrom, "c");
    EXPECT_THROW(apply(writer), RuntimeError);
    EXPECT_EQ(list.rows(), rows);
}

/// The same as plainly as it can be said: a map of keys, and lists that are searched.
QStringList plainlyWritten(QStringList rows, const std::map<QString, QString> &values)
{
    const auto lastOf = [](const QStringList &lines, const QString &name) {
        for (qsizetype row = lines.size() - 1; row >= 0; --row) {
            const QStringList words = lines[row].split(' ', Qt::SkipEmptyParts);
            if (words.size() > 1 && words[0].toUpper() == "#DEFINE" && words[1].toUpper() == name)
                return row;
        }
        return qsizetype(-1);
    };
    const QStringList before = rows;
    QList<qsizetype> removed;
    for (const QString &name : plain::settingOrder) {
        const QString value = values.contains(name) ? values.at(name) : QString();
        const qsizetype row = lastOf(before, name);
        if (value.isEmpty() && row >= 0)
            removed << row;
        else if (!value.isEmpty() && row >= 0)
            rows[row] = "#define " + name + " " + value;
        else if (!value.isEmpty())
            rows << "#define " + name + " " + value;
    }
    std::sort(removed.begin(), removed.end());
    while (!removed.isEmpty())
        rows.removeAt(removed.takeLast());
    return rows;
}

TEST_F(WrittenSettings, AreThoseOfThePlainWay)
{
    Random random(36);
    const QStringList pieces{" ",        "  ",       "#define",        "#DEFINE", "MAILTO", "mailto",
                             "EVENTLOG", "PRIORITY", "ZENTILPRIORITY", "x",       "\"",     ";"};
    for (int round = 0; round < 2000; ++round) {
        QStringList rows;
        for (int count = random.number(0, 12); count > 0; --count) {
            rows << (random.chance(50) ? "#define " + QString(random.oneOf(settingKeys)) + " " + random.text(pieces, 3)
                                       : random.text(pieces, 5));
        }
        load(rows);
        std::map<QString, QString> values;
        for (const SettingKey key : settingWriteOrder) {
            if (random.chance(40))
                values[keyText(key)] = random.oneOf(QStringList{"a", "\"b c\"", "d"});
        }
        SettingsWriter writer(list, settings);
        for (const SettingKey key : settingWriteOrder)
            writer.SetItem(key, values.contains(keyText(key)) ? values[keyText(key)] : QString());
        apply(writer);
        ASSERT_EQ(list.rows(), plainlyWritten(rows, values)) << rows.join("\n").toStdString();
        if (!writer.isEmpty())
            static_cast<void>(changes.undo(-1));
        ASSERT_EQ(list.rows(), rows);
    }
}

} // namespace
