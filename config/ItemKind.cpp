#include "config/ItemKind.h"

#include <algorithm>

const ItemKindRow &itemKindRow(ItemKind kind)
{
    return *std::find_if(itemKinds.begin(), itemKinds.end(),
                         [kind](const ItemKindRow &row) { return row.kind == kind; });
}
