#pragma once

class Accounts;
class Directory;
class FileSystem;
class Messages;
class PasswordScrambler;
class Registry;

/// What item editors use of the rest of the program. A form takes from it what its kind needs.
struct EditorServices
{
    Messages &messages;
    Accounts &accounts;
    FileSystem &fileSystem;
    Registry &registry;
    Directory &directory;
    PasswordScrambler &scrambler;
};
