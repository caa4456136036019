// Part of Checks.h: the checks of rows in a configuration file.
#include <QDateTime>
#include <QFileInfo>

#include "database/sql/Quoting.h"
#include "database/sqlite/OpenSqlite.h"
#include "platform/Services.h"
#include "setup/TerminalTable.h"
#include "setup/checks/Checks.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/Installation.h"
#include "text/TimeStamp.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

const QString kNoDatabase = u"起動すると「データベースが使用できません。」と出て終わります。"_s;

/// An own file of the name that the definition row has, to which `move` would point the row.
bool HasOwnFile(const QString& root, const QString& source) {
    return QFileInfo(root + u"/data/"_s + QString(source).replace(u'\\', u'/').section(u'/', -1)).isFile();
}

/// What `move` corrects in a definition of a file; nullopt if there is nothing.
std::optional<Finding> WrongSource(const CheckScope& scope, const QString& source, const QString& file) {
    const bool own = HasOwnFile(scope.root, source);
    Finding finding{.commands = {ToolCommand(u"move"_s, scope.root)}};
    if (own && !source.startsWith(u'/') && !source.contains(u'\\')) {
        finding.what = u"一般データベースの定義のパス「%1」が絶対パスではありません。"_s.arg(source);
        finding.effect = u"起動したフォルダによって、データベースが使えなかったり別のものが使われたりします。"_s;
    } else if (const QString other = scope.otherInstallation; !other.isEmpty()) {
        finding.what = u"一般データベースの定義が別のインストール %1 の %2 を指しています。"_s.arg(other, source);
        finding.effect = u"%1 の要員が表示され、修正も %1 に書き込まれます。"_s.arg(other);
        if (!own)
            finding.remedy = u"このインストールの一般データベースを %1 に戻し、次を実行してください。"_s.arg(
                scope.root + u"/data"_s);
    } else if (own && !QFileInfo(file).isFile()) {
        finding.what = u"一般データベースの定義が指す %1 がありません。"_s.arg(source);
        finding.effect = kNoDatabase;
    } else {
        return std::nullopt;
    }
    return finding;
}

void CheckSource(const CheckScope& scope, CheckReport& report) {
    const QString source = scope.definition->データソース名, file = database::SqlitePath(source);
    if (const std::optional<Finding> wrong = WrongSource(scope, source, file)) return report.Add(*wrong);
    if (scope.general != nullptr || !CheckDatabase(scope, report, file, SubjectOf(scope, DatabaseKind::General)))
        return;
    report.Add({.what = u"一般データベースの定義のプロバイダ名「%1」では %2 を開けません。%3"_s.arg(
                    scope.definition->プロバイダ名, source, scope.generalError),
                .effect = kNoDatabase,
                .commands = {ToolCommand(u"repair"_s, scope.root)}});
}

/// Rows of a configuration file.
class ConfigurationRows {
  public:
    ConfigurationRows(const CheckScope& scope, CheckReport& report, const QString& file)
        : scope_(scope),
          report_(report),
          file_(file),
          connection_(OpenSuiteFile(file, database::ConnectMode::Read)),
          repair_{ToolCommand(u"repair"_s, scope.root)} {}

    void Check() {
        const auto rows = RowsOf(
            connection_, u"SELECT 運用事業所コード, 起動担当者コード FROM 動作環境定義 WHERE 動作環境定義ID = '001'"_s);
        if (rows && rows->isEmpty()) Add(u"動作環境定義の行 001 がありません。"_s, u"検索しても一覧に何も出ません。"_s);
        if (rows && !rows->isEmpty()) {
            CheckOffice(rows->first()[0].isNull() ? u"000"_s : rows->first()[0]);
            CheckLauncher(TrimBlanks(rows->first()[1]));
        }
        CheckMenu();
    }

  private:
    void Add(const QString& what, const QString& effect, const QString& remedy = {}) {
        report_.Add({.what = u"構成データベース %1 の%2"_s.arg(file_, what),
                     .effect = effect,
                     .remedy = remedy,
                     .commands = repair_});
    }

    /// Number of staff as text; empty if they can't be read.
    QString CountStaff(const QString& where = {}) const {
        const auto rows = scope_.Rows(u"SELECT COUNT(*) FROM M担当者"_s + where);
        return rows ? rows->first()[0] : QString();
    }

    void CheckOffice(const QString& office) {
        const auto found = scope_.Rows(u"SELECT コード FROM M事業所 WHERE コード = "_s + database::TextLiteral(office));
        if (!found) return;
        if (found->isEmpty() && office != u"000"_s)
            return Add(u"運用事業所「%1」が M事業所 にありません。"_s.arg(office),
                       u"次の起動では一覧に何も出ず、運用事業所が 000（全社）に変わります。"_s,
                       u"M事業所 の行を戻すか、次を実行してください（運用事業所を 000 にします）。"_s);
        if (office == u"000"_s) return;
        if (CountStaff(u" WHERE 事業所コード = "_s + database::TextLiteral(office)) != u"0"_s || CountStaff() == u"0"_s)
            return;
        report_.Add({.what = u"構成データベース %1 の運用事業所 %2 に要員がいません。"_s.arg(file_, office),
                     .effect = u"検索しても一覧に何も出ません。"_s,
                     .remedy = u"別の事業所で使うときは、次を実行してください（000 は全社）。"_s,
                     .commands = {ToolCommand(u"repair"_s, scope_.root, u"--office 000"_s)}});
    }

    void CheckLauncher(const QString& code) {
        if (code.isEmpty()) return;
        const auto found = scope_.Rows(u"SELECT コード FROM M担当者 WHERE コード = "_s + database::TextLiteral(code));
        if (found && found->isEmpty() && CountStaff() != u"0"_s)
            Add(u"起動担当者「%1」が M担当者 にいません。"_s.arg(code),
                u"見出しに担当者の名前が出ず、閲覧した要員に色が付きません。"_s,
                u"次を実行してください（起動担当者を空にします。次に暗証番号を入力した人が起動担当者になります）。"_s);
    }

    void CheckMenu() {
        const auto rows = RowsOf(connection_, u"SELECT プログラムID FROM 販路推進データ管理"_s);
        if (!rows) return;
        for (const QString& program : {u"要員名簿照会"_s, u"要員台帳更新"_s})
            if (!rows->contains(QStringList{program}))
                Add(u"販路推進データ管理に %1 の行がありません。"_s.arg(program),
                    u"暗証番号を使う会社では「操作権限がありません。」と出て使えません。"_s);
    }

    const CheckScope& scope_;
    CheckReport& report_;
    QString file_;
    database::Connection connection_;
    QStringList repair_;
};

}  // namespace

void CheckDefinition(const CheckScope& scope, CheckReport& report) {
    if (!scope.configurationOpens) return;
    database::Connection connection = OpenSuiteFile(scope.configuration, database::ConnectMode::Read);
    const auto rows = RowsOf(connection, u"SELECT db, dbmw FROM データベース定義 WHERE 情報種類 = 'GNR'"_s);
    if (!rows) return;
    const QStringList repair{ToolCommand(u"repair"_s, scope.root)};
    if (rows->isEmpty())
        return report.Add(
            {.what = u"%1 に一般データベースの定義（情報種類 GNR）がありません。"_s.arg(scope.configuration),
             .effect = kNoDatabase,
             .commands = repair});
    if (rows->first()[0].isNull() || rows->first()[1].isNull())
        report.Add({.what = u"%1 の一般データベースの定義で db か dbmw が Null です。"_s.arg(scope.configuration),
                    .effect = kNoDatabase,
                    .commands = repair});
    else if (const QString db = rows->first()[0]; db != u"A"_s && db != u"S"_s && db != u"O"_s)
        report.Add({.what = u"%1 の一般データベースの定義の db「%2」は A、S、O のどれでもありません。"_s.arg(
                        scope.configuration, db),
                    .effect = kNoDatabase,
                    .commands = repair});
    else if (db == u"A"_s && scope.definition)
        CheckSource(scope, report);
}

void CheckEnvironment(const CheckScope& scope, CheckReport& report) {
    if (!scope.configurationOpens) return;
    if (scope.installKind != 0 && !scope.HasPrivateCopies())
        report.Add({.what = u"%1 のインストール区分が 0 でも 1 でもありません。"_s.arg(scope.configuration),
                    .effect = kNoDatabase,
                    .remedy = u"構成と帳票を全員で共有するなら 0、利用者ごとに複写を持つなら 1 を指定して、"
                              u"次を実行してください。"_s,
                    .commands = {ToolCommand(u"repair"_s, scope.root, u"--install-kind 0"_s)}});
    CheckConfigurationRows(scope, report, scope.configuration);  // new private copies have its rows
}

void CheckConfigurationRows(const CheckScope& scope, CheckReport& report, const QString& configuration) {
    ConfigurationRows(scope, report, configuration).Check();
}

void CheckClock(const CheckScope& scope, CheckReport& report, const QString& configuration) {
    constexpr qint64 kAhead = 3600;  // seconds; the clocks of clients differ a little
    constexpr int kUnusedMonths = 13;
    database::Connection connection = OpenSuiteFile(configuration, database::ConnectMode::Read);
    const auto rows = RowsOf(connection, u"SELECT MAX(実行日付) FROM プログラム稼動履歴"_s);
    if (!rows || rows->isEmpty()) return;
    const QString stamp = rows->first()[0];
    const QDateTime newest = QDateTime::fromString(stamp, u"yyyyMMdd HHmmss"_s),
                    now = platform::Services().clock->Now();
    if (!newest.isValid()) return;
    const QString what = u"%1 の稼動履歴の最新の行は %2 で、このコンピューターの時計（%3）"_s.arg(
        configuration, ReadableTime(stamp), ReadableTime(TimeStamp(now)));
    if (now.secsTo(newest) > kAhead)
        report.Add({.what = what + u"より進んでいます。"_s,
                    .effect = u"要員台帳更新を終えても一覧に戻れないことがあります。"_s,
                    .remedy = u"時計を合わせてください（timedatectl）。時計が正しければ、先の日付の行を次で消してくださ"
                              u"い。"_s,
                    .commands = {ToolCommand(u"repair"_s, scope.root, u"--future-rows"_s)}});
    else if (newest.addMonths(kUnusedMonths) < now)
        report.Add({.what = what + u"より %1 か月以上遅れています。"_s.arg(kUnusedMonths),
                    .effect = u"時計が進んでいるなら、退社した人や履歴の日付を誤って扱います。"_s,
                    .remedy = u"時計を合わせてください（timedatectl）。長く使っていなかっただけなら、プログラムを一度起"
                              u"動してください。"_s});
}

void CheckCommonClock(const CheckScope& scope, CheckReport& report) {
    if (scope.configurationOpens && !scope.HasPrivateCopies()) CheckClock(scope, report, scope.configuration);
}

}  // namespace setup
