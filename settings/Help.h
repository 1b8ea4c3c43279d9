#pragma once

/// The help of the program.
class Help
{
public:
    Help() = default;
    Help(const Help &) = delete;
    Help &operator=(const Help &) = delete;
    virtual ~Help() = default;

    /// Whether the program has a help file.
    [[nodiscard]] virtual bool hasFile() const = 0;

    /// Opens the help at its contents.
    virtual void showContents() = 0;

    /// Opens the help where the user can search in it.
    virtual void showSearch() = 0;
};
