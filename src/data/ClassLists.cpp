#include "data/ClassLists.h"

#include "data/Recordsets.h"

using namespace Qt::StringLiterals;

QStringList ReadClassNames(const QString& table) {
    QStringList names;
    database::Recordset recordset;
    if (OpenRecordset(recordset, u"SELECT * FROM "_s + table + u" ORDER BY 区分"_s, false))
        for (; !recordset.AtEOF(); recordset.MoveNext()) names.append(recordset[u"名称"].TextOr(QString()));
    CloseQuietly(recordset);
    return names;
}
