#pragma once

#include "editors/FlagAlphabet.h"

/// The flags of all kinds of lines. Captions and tool tips are fixed, whatever they look like.

/// Files and directories.
extern const FlagAlphabet fileFlags;
extern const FlagAlphabet registryFlags;
extern const FlagAlphabet userFlags;
extern const FlagAlphabet groupFlags;
extern const FlagAlphabet userRightFlags;
extern const FlagAlphabet accountPolicyFlags;
extern const FlagAlphabet auditPolicyFlags;
extern const FlagAlphabet directoryServiceFlags;

/// What the flag chooser offers for a line of any kind. It only writes: nothing is ever read into it.
extern const FlagAlphabet chooserFlags;
