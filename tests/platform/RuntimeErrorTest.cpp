#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct Number
{
    int number;
    RuntimeError::Number name;
    const char *description;
};

void PrintTo(const Number &number, std::ostream *stream)
{
    *stream << number.number;
}

// Administrators know these texts and look them up; every letter counts.
// clang-format off
constexpr std::array numbers {
    Number { 5, RuntimeError::InvalidCall,      "Invalid procedure call or argument"},
    Number { 6, RuntimeError::Overflow,         "Overflow"},
    Number {13, RuntimeError::TypeMismatch,     "Type mismatch"},
    Number {53, RuntimeError::FileNotFound,     "File not found"},
    Number {57, RuntimeError::DeviceError,      "Device I/O error"},
    Number {61, RuntimeError::DiskFull,         "Disk full"},
    Number {70, RuntimeError::PermissionDenied, "Permission denied"},
    Number {75, RuntimeError::PathAccess,       "Path/File access error"},
    Number {76, RuntimeError::PathNotFound,     "Path not found"},
};
// clang-format on

class RuntimeErrorNumber : public testing::TestWithParam<Number>
{
};

TEST_P(RuntimeErrorNumber, HasItsDescription)
{
    const RuntimeError error(GetParam().name);
    EXPECT_EQ(error.number(), GetParam().number);
    EXPECT_EQ(error.description(), GetParam().description);
}

TEST_P(RuntimeErrorNumber, IsShownWithItsDescription)
{
    const QString start =
        QString("Run-time error '%1':\n\n%2").arg(GetParam().number).arg(QString(GetParam().description));
    EXPECT_EQ(RuntimeError(GetParam().name).message(), start);
    EXPECT_EQ(RuntimeError(GetParam().name, "/etc/a b.zcf").message(), start + "\n\n/etc/a b.zcf");
    EXPECT_EQ(RuntimeError(GetParam().name, {}, "More.").message(), start + "\n\nMore.");
    EXPECT_EQ(RuntimeError(GetParam().name, "/etc/a b.zcf", "More.").message(), start + "\n\nMore.\n\n/etc/a b.zcf");
}

INSTANTIATE_TEST_SUITE_P(Numbers, RuntimeErrorNumber, testing::ValuesIn(numbers),
                         [](const auto &test) { return std::to_string(test.param.number); });

TEST(RuntimeError, OneNumberMayStandForSeveralDescriptions)
{
    for (const char *description : {"Unable to create subkey", "Another one"}) {
        const RuntimeError error = RuntimeError::described(RuntimeError::RegistryError, description);
        EXPECT_EQ(error.number(), 10001);
        EXPECT_EQ(error.description(), description);
        EXPECT_EQ(error.message(), QString("Run-time error '10001':\n\n%1").arg(description));
    }
}

TEST(RuntimeError, KeepsWhatItIsAbout)
{
    const RuntimeError error(RuntimeError::DiskFull, "/etc/file", "More.");
    EXPECT_EQ(error.path(), "/etc/file");
    EXPECT_EQ(error.detail(), "More.");
    EXPECT_EQ(RuntimeError(RuntimeError::DiskFull).path(), "");
    EXPECT_EQ(RuntimeError(RuntimeError::DiskFull).detail(), "");
}

TEST(RuntimeError, PathsAreNotTakenForPlaceholders)
{
    // Were the text put together by repeated arg(), the path's "%1" would be replaced.
    EXPECT_EQ(RuntimeError(RuntimeError::FileNotFound, "/a/%1/%2", "In %1.").message(),
              "Run-time error '53':\n\nFile not found\n\nIn %1.\n\n/a/%1/%2");
}

TEST(RuntimeError, IsCaughtAsAnException)
{
    try {
        throw RuntimeError(RuntimeError::Overflow, "/etc/file");
    } catch (const std::exception &error) {
        EXPECT_STREQ(error.what(), "run-time error");
        const auto *asRuntimeError = dynamic_cast<const RuntimeError *>(&error);
        ASSERT_TRUE(asRuntimeError);
        EXPECT_EQ(asRuntimeError->path(), "/etc/file");
    }
}

} // namespace
