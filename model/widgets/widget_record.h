#pragma once

#include <string>
#include <string_view>

#include "model/language/item.h"
#include "model/widgets/widget_fields.h"

namespace calyx {

// A widget's record, "4,8,16,150,GROSS,0,1,3,lblA,1,0,0,1,1": the kind, then the fields of its table. A
// caption may hold commas: it is what the fields before and behind it leave.

void AppendRecord(std::string& out, const WidgetKindInfo& kind, const RowItem<WidgetFields>& item);

// The kind that a record begins with; nothing where it is none.
const WidgetKindInfo* KindOfRecord(std::string_view record);

// Reads a record of that kind; fields that are not understood or out of range stay as they are.
// Whole: all taken. Part: some not. Cut: a text was too long. Not: malformed, the item is as it was.
Taken TakeRecord(const WidgetKindInfo& kind, RowItem<WidgetFields>& item, std::string_view record);

}  // namespace calyx
