// Part of Checks.h: the checks of rows of the general database.
#include <QFile>

#include "platform/SealedPins.h"
#include "setup/checks/Checks.h"
#include "setup/schema/ClassTables.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/Installation.h"
#include "setup/storage/PinSealing.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

void Add(const CheckScope& scope, CheckReport& report, const QString& what, const QString& effect,
         const QString& remedy = {}, const QString& options = {}) {
    report.Add({.what = scope.GeneralName() + u' ' + what,
                .effect = effect,
                .remedy = remedy,
                .commands = {scope.RepairCommand(options)}});
}

/// True if the statement ran and found no row.
bool FindsNothing(const CheckScope& scope, const QString& sql) {
    const auto rows = scope.Rows(sql);
    return rows && rows->isEmpty();
}

const QString kReset = u" --reset-classes"_s;
const QString kResetText =
    u"次を実行してください（この要員の区分を 0 にします。あとで要員台帳更新で直してください）。"_s;
const QString kAddText =
    u"次を実行してください（「未登録」という名称の区分を加えます。名称はあとで直してください）。"_s;

void CheckClassRows(const CheckScope& scope, CheckReport& report, const ClassTable& table, const ClassState& state) {
    if (state.HasDuplicates()) return;  // reported by CheckStaff
    const bool gaps = table.numbered && !state.IsNumbered();
    if (state.rows.isEmpty())
        return Add(scope, report, u"の %1 に行がありません。"_s.arg(table.table),
                   table.staffColumn.isEmpty() ? u"一覧で区分を選べません。"_s : u"検索しても一覧に何も出ません。"_s,
                   kAddText);
    if (gaps)
        Add(scope, report,
            u"の %1 の区分が 0 からの連番になっていません（今は %2）。"_s.arg(table.table, state.rows.join(u'、')),
            u"一覧で区分を選ぶと、別の区分の要員が出ます。"_s,
            state.HasOthers(table) ? u"次を実行してください（1 桁の数字でない区分を取り除き、その要員の区分を 0 にしま"
                                     u"す）。"_s
                                   : kAddText,
            state.HasOthers(table) ? kReset : QString());
}

void CheckClassesOfStaff(const CheckScope& scope, CheckReport& report, const ClassTable& table,
                         const ClassState& state) {
    if (state.rows.isEmpty()) return;  // none of the staff has a row
    for (const UnlistedClass& one : state.unlisted) {
        const QString value =
            one.value.isEmpty() ? u"空の%1"_s.arg(table.staffColumn) : u"%1「%2」"_s.arg(table.staffColumn, one.value);
        const bool digit = IsClassDigit(one.value);
        Add(scope, report, u"の M担当者 に、%1 にない%2の要員が %3 名います。"_s.arg(table.table, value, one.count),
            u"この要員は検索しても一覧に出ません。"_s, digit ? kAddText : kResetText, digit ? QString() : kReset);
    }
}

/// Counts of the PINs by what the key can do with them.
struct PinCount {
    int clear = 0, sealed = 0, foreign = 0;
};

PinCount CountPins(database::Connection& general, const std::optional<platform::PinKey>& key) {
    PinCount count;
    for (const PinColumn& place : kPinColumns)
        for (const StoredPin& pin : ReadPins(general, place)) {
            const bool sealed = platform::IsSealedPin(pin.text);
            ++(sealed ? count.sealed : count.clear);
            if (sealed && key && !platform::OpenPin(pin.text, *key)) ++count.foreign;
        }
    return count;
}

void AddPinFinding(CheckReport& report, const QString& what, const QString& remedy, const QStringList& commands = {}) {
    report.Add({.what = what,
                .effect = u"暗証番号を入力しても「暗証番号が違います。」と出ます。"_s,
                .remedy = remedy,
                .commands = commands});
}

void CheckStoredPins(const CheckScope& scope, CheckReport& report) {
    const QString file = CommonPlaces(scope.root).conf + u'/' + platform::PinKeyFileName();
    const bool exists = QFile::exists(file);
    const std::optional<platform::PinKey> key = exists ? platform::PinKey::Read(file) : std::nullopt;
    const PinCount count = CountPins(*scope.general, key);
    const QString restore = u"鍵ファイル %1 をバックアップから戻してください。"_s.arg(file);
    const QString owner = scope.IsServer() ? u"--odbc '所有者の接続文字列'"_s : QString();
    if (!exists && count.sealed > 0)
        AddPinFinding(report,
                      u"封じた暗証番号が %1 件ありますが、鍵ファイル %2 がありません。"_s.arg(count.sealed).arg(file),
                      restore);
    if (exists && !key && QFile(file).open(QIODevice::ReadOnly))
        AddPinFinding(report, u"鍵ファイル %1 が壊れています。"_s.arg(file), restore);
    if (count.foreign > 0)
        AddPinFinding(report, u"鍵ファイル %1 では開けない暗証番号が %2 件あります。"_s.arg(file).arg(count.foreign),
                      restore + u"戻せなければ、要員台帳更新で登録し直してください。"_s);
    if (exists && count.clear > 0)
        AddPinFinding(report, u"鍵ファイルがあるのに、封じられていない暗証番号が %1 件あります。"_s.arg(count.clear),
                      {}, {ToolCommand(u"seal-pins"_s, scope.root, owner)});
}

/// Tables that the list joins; a server or a table of the site may lack the suite's key.
void CheckDuplicates(const CheckScope& scope, CheckReport& report) {
    for (const auto& [table, key] : {std::pair{u"M担当者"_s, u"コード"_s}, std::pair{u"M事業所"_s, u"コード"_s},
                                     std::pair{u"M部門"_s, u"コード"_s}, std::pair{u"Mセクション"_s, u"コード"_s},
                                     std::pair{u"M役職"_s, u"コード"_s}, std::pair{u"K性別区分"_s, u"区分"_s},
                                     std::pair{u"K在籍区分"_s, u"区分"_s}, std::pair{u"K社員区分"_s, u"区分"_s}}) {
        const auto rows =
            scope.Rows(u"SELECT %2, COUNT(*) FROM %1 GROUP BY %2 HAVING COUNT(*) > 1 ORDER BY %2"_s.arg(table, key));
        if (!rows || rows->isEmpty()) continue;
        QStringList entries;
        for (const QStringList& row : *rows) entries.append(u"%1「%2」: %3 行"_s.arg(key, row[0], row[1]));
        report.Add({.what = scope.GeneralName() + u" の %1 に、同じ%2の行が重なっています。"_s.arg(table, key),
                    .entries = entries,
                    .effect = u"検索すると、同じ要員が何度も出ます。"_s,
                    .remedy = u"要る行を一つずつ残して、ほかを削除してください。"_s});
    }
}

}  // namespace

void CheckCompany(const CheckScope& scope, CheckReport& report) {
    if (FindsNothing(scope, u"SELECT ID FROM Mユーザ WHERE ID = '0001'"_s))
        Add(scope, report, u"の Mユーザ に会社の行 0001 がありません。"_s,
            u"起動すると「ユーザ情報が使用できません。」と出て終わります。"_s,
            u"バックアップから戻すか、次を実行してください（会社名はあとで直してください）。"_s);
    if (FindsNothing(scope, u"SELECT コード FROM M事業所 WHERE コード = '000'"_s))
        Add(scope, report, u"の M事業所 に全社の行 000 がありません。"_s, u"封筒とはがきに差出人が印刷されません。"_s,
            u"バックアップから戻すか、次を実行してください（名称と住所はあとで直してください）。"_s);
    if (FindsNothing(scope, u"SELECT 開始日付 FROM K年号区分"_s))
        Add(scope, report, u"の K年号区分 に行がありません。"_s, u"生年月日と入社日付が出ません。"_s);
}

void CheckClasses(const CheckScope& scope, CheckReport& report) {
    if (scope.general == nullptr) return;
    for (const ClassTable& table : kClassTables) {
        const std::optional<ClassState> state = ReadClassState(*scope.general, table);
        if (!state) continue;
        CheckClassRows(scope, report, table, *state);
        CheckClassesOfStaff(scope, report, table, *state);
    }
}

void CheckStaff(const CheckScope& scope, CheckReport& report) {
    const auto count = scope.Rows(u"SELECT COUNT(*) FROM M担当者 WHERE コード <> ''"_s);
    if (count && count->first()[0] == u"0"_s)
        report.Add({.what = scope.GeneralName() + u" の M担当者 に要員が一人もいません。"_s,
                    .effect = u"検索しても一覧に何も出ません。"_s,
                    .remedy = u"バックアップから戻すか、次で取り込んでください。"_s,
                    .commands = {ToolCommand(u"import"_s, scope.root, u"'ファイル.accdb'"_s)}});
    CheckDuplicates(scope, report);
    const auto nulls = scope.Rows(u"SELECT COUNT(*) FROM M担当者 WHERE 住所A IS NOT NULL AND 住所B IS NULL"_s);
    if (nulls && nulls->first()[0] != u"0"_s)
        Add(scope, report, u"の M担当者 に、住所A があり住所B が Null の要員が %1 名います。"_s.arg(nulls->first()[0]),
            u"検索すると「Null の使い方が不正です。」と出て、その要員から後が一覧に出ません。"_s,
            u"次を実行してください（住所B を空の文字列にします）。"_s);
}

void CheckPins(const CheckScope& scope, CheckReport& report) {
    // The key of this installation does not open the PINs of another one.
    if (scope.general == nullptr || !scope.otherInstallation.isEmpty()) return;
    try {
        CheckStoredPins(scope, report);
    } catch (const database::DatabaseError& error) {
        // A missing table or column is reported by CheckGeneral.
        if (error.Number() != database::kStatementFailure) throw;
    }
}

}  // namespace setup
