#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// The grammar of flags once more, written for comparison as plainly as it can be told: step by step over characters
/// counted from 1, with tables of its own, and sharing nothing with the program's.
namespace plain {

struct Flags
{
    /// In the order in which they are written, and in that in which they are read.
    QString written;
    QString read;
    /// Macro, letters, macro, letters ...
    QStringList macros;
    bool isMacroReadAlone;
    QStringList options;
    bool areLettersReadFirst;
};

extern const Flags file;
extern const Flags registry;
extern const Flags user;
extern const Flags group;
extern const Flags userRight;
extern const Flags accountPolicy;
extern const Flags auditPolicy;
extern const Flags directoryService;

/// What the controls of an editor show.
struct Controls
{
    QString checked;
    std::vector<bool> optionBoxes;
    QStringList optionFields;
    QString otherFlags;

    bool operator==(const Controls &) const = default;
};

/// Controls in which nothing is checked and every field is empty.
Controls blankControls(const Flags &flags);

void parse(const Flags &flags, QString text, Controls &controls);

QString build(const Flags &flags, const Controls &controls);

} // namespace plain
