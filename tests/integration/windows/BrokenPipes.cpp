#include "tests/integration/BrokenPipes.h"

// Windows has no such signal: the call that writes fails.
void letBrokenPipesEndTheProgram() {}
