#include "data/guarded_table.h"

#include "data/csv_text.h"

namespace tambrix {

std::vector<QStringList> guardedTable(std::vector<QStringList> table)
{
    for (QStringList& row : table) {
        for (QString& cell : row) {
            bool isNumber = false;
            cell.toDouble(&isNumber);
            if (!isNumber)
                cell = guarded(cell);
        }
    }
    return table;
}

} // namespace tambrix
