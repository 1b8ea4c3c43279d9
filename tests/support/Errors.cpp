#include "tests/support/Errors.h"

#include <gtest/gtest.h>

std::optional<RuntimeError> errorOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const RuntimeError &error) {
        return error;
    } catch (const std::exception &error) {
        ADD_FAILURE() << error.what();
    }
    return std::nullopt;
}

int errorNumberOf(const std::function<void()> &work)
{
    const std::optional<RuntimeError> error = errorOf(work);
    return error ? error->number() : 0;
}
