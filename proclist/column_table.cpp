#include "column_table.h"

#include "string_ids.h"

namespace proclist {

const std::array<ColumnSpec, kColumnCount>& ProcessListColumns() {
    static constexpr std::array<ColumnSpec, kColumnCount> columns = {{
        {IDS_MENU_PROCESS, 160, ColumnAlignment::Left},
        {IDS_COLUMN_CPU_USAGE, 50, ColumnAlignment::Right},
        {0, 70, ColumnAlignment::Right},
        {IDS_COLUMN_MEMORY_USAGE, 70, ColumnAlignment::Right},
        {IDS_COLUMN_DESCRIPTION, 250, ColumnAlignment::Left},
        {IDS_COLUMN_COMPANY_NAME, 180, ColumnAlignment::Left},
        {IDS_COLUMN_PATH_NAME, 300, ColumnAlignment::Left},
        {IDS_COLUMN_PROCESS_ID, 70, ColumnAlignment::Right},
        {IDS_COLUMN_START_TIME, 120, ColumnAlignment::Left},
        {IDS_COLUMN_USERNAME, 120, ColumnAlignment::Left},
        {IDS_COLUMN_HANDLES, 50, ColumnAlignment::Right},
        // Intended: USER objects (339) before GDI objects (338), in the order of the cell contents.
        {IDS_COLUMN_USER_OBJECTS, 60, ColumnAlignment::Right},
        {IDS_COLUMN_GDI_OBJECTS, 50, ColumnAlignment::Right},
    }};
    return columns;
}

}  // namespace proclist
