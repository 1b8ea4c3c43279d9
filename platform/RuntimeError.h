#pragma once

#include <QString>

#include <exception>

/// An error that an operation raises to whoever started the command. It is shown to the user, and the program goes on:
/// see runReported() in settings/RunReported.h and, behind it, app/Application.h. The numbers and their descriptions
/// are fixed.
class RuntimeError final : public std::exception
{
public:
    enum Number : int {
        InvalidCall = 5,
        Overflow = 6,
        TypeMismatch = 13,
        FileNotFound = 53,
        DeviceError = 57,
        DiskFull = 61,
        PermissionDenied = 70,
        PathAccess = 75,
        PathNotFound = 76,
        /// Raised with a description of its own: see described().
        RegistryError = 10001,
    };

    /// @param number one of Number; its description is the table's
    /// @param path the file that the error is about; empty when there is none
    /// @param detail a sentence of our own that says more than the description; empty when there is nothing to say
    explicit RuntimeError(Number number, const QString &path = {}, const QString &detail = {});

    /// An error whose description the one who raises it gives, because its number stands for several.
    [[nodiscard]] static RuntimeError described(Number number, const QString &description);

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] QString description() const;
    [[nodiscard]] const QString &path() const { return m_path; }
    [[nodiscard]] const QString &detail() const { return m_detail; }

    /// The whole text that is shown to the user: number, description, detail and path, each on lines of its own.
    [[nodiscard]] QString message() const;

    [[nodiscard]] const char *what() const noexcept override { return "run-time error"; }

private:
    int m_number;
    QString m_description;
    QString m_path;
    QString m_detail;
};
