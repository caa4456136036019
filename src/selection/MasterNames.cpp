#include "selection/MasterNames.h"

#include "data/Recordsets.h"

using namespace Qt::StringLiterals;

namespace {

QString NameOf(const QString& table, const QString& code) {
    database::Recordset record;
    QString name;
    if (OpenRecordset(record, u"SELECT 名称 FROM "_s + table + u" WHERE コード = '"_s + code + u'\'', false))
        name = record[u"名称"].TextOr(QString());
    CloseQuietly(record);
    return name;
}

}  // namespace

QString LookUpDepartmentName(const QString& code) { return NameOf(u"M部門"_s, code); }

QString LookUpSectionName(const QString& code) { return NameOf(u"Mセクション"_s, code); }
