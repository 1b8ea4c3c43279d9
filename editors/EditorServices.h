#pragma once

class FileSystem;
class Messages;
class Registry;

/// What item editors need of the rest of the program.
struct EditorServices
{
    Messages &messages;
    FileSystem &fileSystem;
    Registry &registry;
};
