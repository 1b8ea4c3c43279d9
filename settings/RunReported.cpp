#include "settings/RunReported.h"

#include "platform/Messages.h"
#include "platform/RuntimeError.h"

#include <new>

void reportCurrentError(Messages &messages)
{
    try {
        throw;
    } catch (const RuntimeError &error) {
        messages.show(error.message(), Messages::Icon::Critical);
    } catch (const std::bad_alloc &) {
        messages.show(QStringLiteral("There is not enough memory for this command."), Messages::Icon::Critical);
    }
}
