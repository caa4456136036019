#include "support/StaffDatabase.h"

#include <sqlite3.h>

#include <stdexcept>

#include "data/Catalogue.h"
#include "data/Connections.h"
#include "data/ServerSchema.h"
#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

namespace {
[[noreturn]] void Fail(sqlite3* database) { throw std::runtime_error(sqlite3_errmsg(database)); }

void Run(sqlite3* database, const QString& sql) {
    if (sqlite3_exec(database, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(database);
}

QList<QStringList> Read(sqlite3* database, const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK) Fail(database);
    QList<QStringList> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        QStringList row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            row << (text ? QString::fromUtf8(text) : u"(null)"_s);
        }
        rows << row;
    }
    sqlite3_finalize(statement);
    return rows;
}

sqlite3* Make(const QString& path, DatabaseKind store) {
    sqlite3* database = nullptr;
    if (sqlite3_open(path.toUtf8().constData(), &database) != SQLITE_OK) Fail(database);
    QString sql = u"PRAGMA synchronous = OFF; BEGIN;"_s;
    for (const TableDefinition& table : SuiteTables()) {
        if (table.store != store) continue;
        QStringList columns;
        for (const ColumnDefinition& column : table.columns) columns << column.name + u' ' + column.type;
        sql += u"CREATE TABLE "_s + table.name + u" ("_s + columns.join(u", "_s) + u");"_s;
        QList<QStringList> indexes = table.indexes;
        if (!table.key.isEmpty()) indexes << table.key;
        for (qsizetype i = 0; i < indexes.size(); ++i)
            sql += u"CREATE INDEX I"_s + QString::number(i) + table.name + u" ON "_s + table.name + u" ("_s +
                   indexes[i].join(u", "_s) + u");"_s;
    }
    Run(database, sql + u"COMMIT"_s);
    return database;
}

QString Literal(const QString& value) {
    return value.isNull() ? u"NULL"_s : u'\'' + QString(value).replace(u"'"_s, u"''"_s) + u'\'';
}

const QString kMasters =
    u"INSERT INTO K在籍区分 VALUES ('0', '在籍'), ('1', '退職');"
    u"INSERT INTO K社員区分 VALUES ('0', '正社員'), ('1', '契約社員'), ('2', 'パート'), ('3', '派遣');"
    u"INSERT INTO K性別区分 VALUES ('0', '男'), ('1', '女');"
    u"INSERT INTO K年号区分 VALUES ('', '西暦'), ('18680125', '明治'), ('19120730', '大正'), ('19261225', '昭和'),"
    u" ('19890108', '平成'), ('20190501', '令和');"
    u"INSERT INTO M事業所 (コード, 名称) VALUES ('000', '全社'), ('001', '東京本社'), ('002', '大阪支店');"
    u"INSERT INTO M部門 (コード, 名称) VALUES ('010', '総務部'), ('020', '営業部');"
    u"INSERT INTO Mセクション (コード, 名称) VALUES ('001', '一課'), ('002', '二課');"
    u"INSERT INTO M役職 (コード, 名称) VALUES ('10', '部長'), ('50', '係員')"_s;

// %1 is the number of staff. The cells are as long as real ones.
const QString kManyStaff =
    u"BEGIN;"
    u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)"
    u" INSERT INTO M担当者 (コード, 氏名, カナ, 性別区分, 暗証番号, ログインID, 郵便番号, 住所A, 住所B, 住所C, 電話,"
    u" 携帯電話, EMAIL, 事業所コード, 部門コード, セクションコード, 役職コード, 在籍区分, 社員区分, 生年月日, 入社日付,"
    u" 退社日付, 担当者メモ, 登録日付, 更新日付, アクセス権限,"
    u" 処理分類0操作許可, 処理分類1操作許可, 処理分類2操作許可, 処理分類3操作許可, 処理分類4操作許可,"
    u" 処理分類5操作許可, 処理分類6操作許可, 処理分類7操作許可, 処理分類8操作許可, 処理分類9操作許可,"
    u" 操作許可, 入力許可, 修正許可, 削除許可, 印刷許可, プレビュ許可, テキスト出力許可, イメージ出力許可)"
    u" SELECT printf('%05d', i), '佐藤 太郎' || i, 'ｻﾄｳ ﾀﾛｳ' || i, i % 2, 'PIN' || i, 'user' || i,"
    u" printf('%03d-%04d', i % 1000, i % 10000), '東京都千代田区丸の内' || i % 9, i % 30 || '丁目' || i % 20 || '番地',"
    u" CASE WHEN i % 3 = 0 THEN '丸の内ビル' || i % 40 || '階' ELSE '' END,"
    u" printf('03-%04d-%04d', i % 9000, i % 10000), printf('090-%04d-%04d', i % 9000, i % 10000),"
    u" 'taro.sato' || i || '@example.co.jp', printf('%03d', 1 + i % 2),"
    u" printf('%03d', 10 + i % 2 * 10), printf('%03d', 1 + i % 2), '50', '0', i % 4,"
    u" printf('%04d%02d%02d', 1950 + i % 52, 1 + i % 12, 1 + i % 28), printf('%04d0401', 1975 + i % 50),"
    u" CASE WHEN i % 10 = 0 THEN '20990331' ELSE '' END, CASE WHEN i % 5 = 0 THEN '英語が話せる' ELSE '' END,"
    u" '20240401 090000', printf('202510%02d 1815%02d', 1 + i % 28, i % 60),"
    u" '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0', '0' FROM n;"
    u"INSERT INTO T閲覧 (担当者コード, 閲覧情報, 伝票事業所コード, 伝票番号基準日付, 伝票No, キー項目, 閲覧日付,"
    u" 閲覧時刻, 閲覧区分) SELECT '00001', '要員台帳更新', '', '', '', コード, '20251001', '101500', コード % 2"
    u" FROM M担当者 WHERE コード % 3 = 0;"
    u"COMMIT"_s;
}  // namespace

StaffDatabase::StaffDatabase()
    : general_(Make(GeneralPath(), DatabaseKind::General)),
      configuration_(Make(folder_.filePath(u"usrcnfg.accdb"_s), DatabaseKind::Configuration)) {
    if (!ServerDatabase::Engine().isEmpty()) MakeServerTables();
    General(kMasters);
}

void StaffDatabase::MakeServerTables() {
    server_ = std::make_unique<ServerDatabase>();
    const ServerSchema schema = ServerSchemaOf(ServerDatabase::Engine(), TablesOf(DatabaseKind::General));
    // The functions exist already.
    for (const QString& statement : schema.tables)
        if (statement.startsWith(u"CREATE TABLE"_s)) server_->Run(statement);
    for (const QString& statement : schema.indexes) server_->Run(statement);
}

/// Copies the tables of the file to the server.
void StaffDatabase::CopyToServer() {
    constexpr qsizetype kRowsInStatement = 500;
    for (const QString& table : {u"M担当者"_s, u"T閲覧"_s}) {
        const QList<QStringList> rows = Read(general_, u"SELECT * FROM "_s + table);
        for (qsizetype i = 0; i < rows.size(); i += kRowsInStatement) {
            QStringList texts;
            for (const QStringList& row : rows.mid(i, kRowsInStatement)) {
                QStringList values;
                for (const QString& value : row) values << (value == u"(null)"_s ? u"NULL"_s : Literal(value));
                texts << u'(' + values.join(u',') + u')';
            }
            server_->Run(u"INSERT INTO "_s + table + u" VALUES "_s + texts.join(u','));
        }
    }
}

StaffDatabase::~StaffDatabase() {
    sqlite3_close(general_);
    sqlite3_close(configuration_);
}

void StaffDatabase::General(const QString& sql) {
    if (server_ != nullptr)
        server_->Run(sql);
    else
        Run(general_, sql);
}

void StaffDatabase::Configuration(const QString& sql) { Run(configuration_, sql); }

QList<QStringList> StaffDatabase::GeneralRows(const QString& sql) const {
    return server_ != nullptr ? server_->Rows(sql) : Read(general_, sql);
}

QStringList StaffDatabase::History() const {
    QStringList texts;
    for (const QStringList& row : Read(configuration_, u"SELECT 摘要 FROM プログラム稼動履歴 ORDER BY rowid"_s))
        texts << row.first();
    return texts;
}

void StaffDatabase::Insert(const QString& table, const Row& row) {
    QStringList columns, values;
    for (const auto& [column, value] : row) {
        columns << column;
        values << Literal(value);
    }
    General(u"INSERT INTO "_s + table + u" ("_s + columns.join(u", "_s) + u") VALUES ("_s + values.join(u", "_s) +
            u')');
}

void StaffDatabase::AddStaff(const QString& code, const Row& row) {
    Insert(u"M担当者"_s, {{u"コード"_s, code},
                          {u"氏名"_s, u"氏名"_s + code},
                          {u"性別区分"_s, u"0"_s},
                          {u"在籍区分"_s, u"0"_s},
                          {u"社員区分"_s, u"0"_s}});
    for (const auto& [column, value] : row)
        General(u"UPDATE M担当者 SET "_s + column + u" = "_s + Literal(value) + u" WHERE コード = '"_s + code + u'\'');
}

void StaffDatabase::AddManyStaff(int count) {
    Run(general_, QString(kManyStaff).replace(u"%1"_s, QString::number(count)));
    if (server_ != nullptr) CopyToServer();
}

void StaffDatabase::OpenConnections() const {
    ProgramGlobals& globals = Globals();
    OpenConfigConnection(ConfigConnectionString(FileKind::Accdb, folder_.filePath(u"usrcnfg.accdb"_s)));
    globals.ConfigConnectionOpen = true;
    globals.GeneralDatabase.db = u"A"_s;
    globals.GeneralDatabase.プロバイダ名 = u"Microsoft.ACE.OLEDB.12.0"_s;
    globals.GeneralDatabase.データソース名 = GeneralPath();
    if (server_ != nullptr) {
        globals.GeneralDatabase.db = u"S"_s;
        globals.GeneralDatabase.プロバイダ名 = ServerDatabase::Provider();
        globals.GeneralDatabase.サーバー名 = ServerDatabase::Server();
        globals.GeneralDatabase.データベース名 = server_->Name();
        globals.GeneralDatabase.ユーザーID = ServerDatabase::User();
        globals.GeneralDatabase.パスワード = ServerDatabase::Password();
    }
    OpenGeneralConnection();
    globals.MainConnectionOpen = true;
}

QString StaffDatabase::GeneralPath() const { return folder_.filePath(u"gnrdb.accdb"_s); }
