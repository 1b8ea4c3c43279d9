#pragma once

/// Sets the variables right that say where the user's folders are, for this program and those that it starts. A folder
/// of the XDG base directory rules that is no absolute path is invalid and to be ignored by them, which the toolkit
/// does not do: it would write below the folder that the program was started in. A home that is not given, or no
/// absolute path, is that of the user database.
void settleUserFolders();
