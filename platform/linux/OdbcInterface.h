#pragma once

#include <sql.h>
