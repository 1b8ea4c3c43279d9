#pragma once

#include <QLatin1String>

#include <optional>

class ConfigForm;
enum class ItemKind : int;

/// What a menu entry does with the active document.
struct DocumentCommand
{
    QLatin1String entry;
    void (*run)(ConfigForm &document);
    /// The entry opens the editor for this kind.
    std::optional<ItemKind> kind = std::nullopt;
};

/// The command of that entry; nullptr when the entry has nothing to do with documents.
[[nodiscard]] const DocumentCommand *documentCommand(QLatin1String entry);
