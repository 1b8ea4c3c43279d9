#pragma once

/// Calls the operation UpdateTimer of every open window of the program that has one, once each: a window that does
/// something at intervals takes the new ones. Windows are those of the desktop and those inside another window. The
/// operation is found by its name, as a slot or as one that can be invoked; it takes no arguments.
void updateTimersOfOpenWindows();
