#include "data/ClassLists.h"

#include "data/Recordsets.h"
#include "screen/Control.h"

using namespace Qt::StringLiterals;

void FillClassList(Control& number, Control& list, const QString& table) {
    int rows = 0;
    list.ClearList();
    platform::Recordset recordset;
    if (OpenRecordset(recordset, u"SELECT * FROM "_s + table + u" ORDER BY 区分"_s, false)) {
        for (; !recordset.AtEOF(); recordset.MoveNext(), ++rows) list.AddItem(recordset[u"名称"].TextOr(QString()));
    }
    CloseQuietly(recordset);
    list.AddItem(u"全て"_s);
    number.SetMinValue(0);
    number.SetMaxValue(rows);
}
