#pragma once

// The types of the second come from the first.
#include <qt_windows.h>

#include <sql.h>
