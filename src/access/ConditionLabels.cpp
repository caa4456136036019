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

void PublishConditionLabels(const QString& menu, const QString& programId) {
    const ConditionLabels labels = {u"事業所コード"_s,
                                    u"開始部門コード"_s,
                                    u"終了部門コード"_s,
                                    u"開始セクションコード"_s,
                                    u"終了セクションコード"_s,
                                    u"開始役職コード"_s,
                                    u"終了役職コード"_s,
                                    u"開始担当者コード"_s,
                                    u"終了担当者コード"_s,
                                    u"検索名称(全角15文字)"_s,
                                    u"検索カナ(半角30文字)"_s,
                                    u"検索電話(半角30文字)"_s,
                                    u"検索郵便番号(半角30文字)"_s,
                                    u"検索住所(全角15文字)"_s,
                                    u"表示順区分"_s};
    StoreConditionLabels(menu, programId, labels);
}

void StoreConditionLabels(const QString& menu, const QString& programId, const ConditionLabels& labels) {
    if (!ExecuteConfigSql(UpdateStatement(menu, programId, labels)))
        platform::Services().dialogs->ShowMessage(u"システムデータベースに問題があり登録できません"_s);
}
