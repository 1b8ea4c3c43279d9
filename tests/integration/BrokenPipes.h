#pragma once

/// From now on to write to who does not read any more ends the program, as it is when one starts, where the system does
/// so at all.
void letBrokenPipesEndTheProgram();
