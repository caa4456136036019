// Part of DatabaseFileWriter.h: configuration database and template file of a new installation.
#include "data/Connections.h"
#include "database/DatabaseSession.h"
#include "database/LinkedTables.h"
#include "report-host/template/TemplateFile.h"
#include "setup/sample/Sample.h"
#include "setup/schema/DatabaseFileWriter.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

void WriteDefinition(DatabaseFileWriter& store, const ConfigurationRequest& request) {
    TableWriter row(store, u"データベース定義"_s);
    for (const QString& column : {u"dbmw"_s, u"ドライバ名"_s, u"データベース名"_s, u"サーバー名"_s, u"接続文字列"_s,
                                  u"ユーザーID"_s, u"パスワード"_s})
        row.Set(column, u""_s);
    row.Set(u"情報種類"_s, u"GNR"_s)
        .Set(u"db"_s, u"A"_s)
        .Set(u"プロバイダ名"_s, database::ParseConnectionString(DesktopConnectionString(request.kind, {})).provider)
        .Set(u"データソース名"_s, request.generalFile);
    row.Add();
}

void WriteEnvironment(DatabaseFileWriter& store, const ConfigurationRequest& request) {
    TableWriter row(store, u"動作環境定義"_s);
    for (const QString& day : {u"月曜"_s, u"火曜"_s, u"水曜"_s, u"木曜"_s, u"金曜"_s, u"土曜"_s, u"日曜"_s})
        row.Set(day + u"バックアップ"_s, day == u"金曜"_s ? u"1"_s : u"0"_s);
    row.Set(u"動作環境定義ID"_s, u"001"_s)
        .Set(u"運用事業所コード"_s, u"000"_s)
        .Set(u"インストール区分"_s, QString::number(request.installKind))
        .Set(u"CL更新実行区分"_s, u"0"_s)
        .Set(u"バックアップ日付"_s, u"20260925"_s)
        .Set(u"運用条件切替日付"_s, u"20260401"_s)
        .Set(u"バックアップ方法"_s, u"0"_s)
        .Set(u"バックアップ日指定"_s, u"0"_s)
        .Set(u"バックアップ開始時刻"_s, u"2200"_s)
        .Set(u"バックアップフォルダ"_s, u""_s)
        // With a known viewer the marks of the viewing log are visible from the first start.
        .Set(u"起動担当者コード"_s, request.signedIn ? QString::fromUtf16(kLaunchingStaff) : u""_s);
    row.Add();
}

void WriteMenus(DatabaseFileWriter& store) {
    const QString columns = u"プログラムID 処理分類"_s;
    TableWriter(store, u"販路推進"_s)
        .AddLines(columns, {u"販路推進データ管理|0"_s, u"販路推進補助機能|0"_s, u"販路推進サービスメニュ|0"_s});
    // Labels of the start command stay Null until the program publishes them.
    TableWriter(store, u"販路推進データ管理"_s).AddLines(columns, {u"要員名簿照会|1"_s, u"要員台帳更新|1"_s});
}

}  // namespace

void WriteConfiguration(const QString& path, const ConfigurationRequest& request) {
    DatabaseFileWriter store(path, DatabaseKind::Configuration);
    WriteDefinition(store, request);
    WriteEnvironment(store, request);
    WriteMenus(store);
    store.Commit();
}

void WriteStandardTemplates(const QString& path, const QString& reportDatabase) {
    DatabaseFileWriter store(path, DatabaseKind::Forms);
    {
        TableWriter templates(store, u"帳票"_s), links(store, u"リンクテーブル"_s);
        for (const QString& name : report::StandardTemplateNames()) {
            templates.Set(u"名称"_s, name).Set(u"定義"_s, report::StandardTemplate(name)).Add();
            links.Set(u"名称"_s, name)
                .Set(u"元テーブル"_s, name)
                .Set(u"接続"_s, database::ConnectTextOf(reportDatabase))
                .Set(u"属性"_s, QString::number(database::kLinkedTable))
                .Add();
        }
    }
    store.Commit();
}

}  // namespace setup
