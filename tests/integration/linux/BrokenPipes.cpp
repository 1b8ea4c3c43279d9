#include "tests/integration/BrokenPipes.h"

#include <csignal>

void letBrokenPipesEndTheProgram()
{
    (void)std::signal(SIGPIPE, SIG_DFL);
}
