#include "access/ConditionLabels.h"

#include "data/Recordsets.h"
#include "database/sql/Quoting.h"
#include "platform/Services.h"

using namespace Qt::StringLiterals;

namespace {

QString UpdateStatement(const QString& menu, const QString& programId, const ConditionLabels& labels) {
    QString sql = u"UPDATE "_s + menu + u" SET "_s;
    for (size_t i = 0; i < labels.size(); ++i) {
        const auto letter = QChar(static_cast<char16_t>(u'A' + i));
        sql += u" 条件項目名"_s + letter + u" = "_s + database::TextLiteral(labels[i]);
        if (i + 1 < labels.size()) sql += u',';
    }
    return sql + u" WHERE プログラムID = "_s + database::TextLiteral(programId);
}

}  // namespace

void StoreConditionLabels(const QString& menu, const QString& programId, const ConditionLabels& labels) {
    if (!ExecuteConfigSql(UpdateStatement(menu, programId, labels)))
        platform::Services().dialogs->ShowMessage(u"システムデータベースに問題があり登録できません"_s);
}
