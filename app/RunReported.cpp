#include "app/RunReported.h"

#include "platform/Messages.h"
#include "platform/RuntimeError.h"

#include <new>

bool runReported(Messages &messages, const std::function<void()> &command)
{
    try {
        command();
        return true;
    } catch (const RuntimeError &error) {
        messages.show(error.message(), Messages::Icon::Critical);
    } catch (const std::bad_alloc &) {
        messages.show(QStringLiteral("There is not enough memory for this command."), Messages::Icon::Critical);
    }
    return false;
}
