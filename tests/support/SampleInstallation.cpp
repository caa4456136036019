#include "support/SampleInstallation.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <map>
#include <memory>
#include <stdexcept>
#include <tuple>

#include "platform/FileRights.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace {

using Handle = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

[[noreturn]] void Fail(sqlite3* database, const QString& what) {
    throw std::runtime_error((what + u": "_s).toStdString() + sqlite3_errmsg(database));
}

Handle OpenFile(const QString& path) {
    sqlite3* database = nullptr;
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &database, SQLITE_OPEN_READWRITE, nullptr);
    Handle handle(database, sqlite3_close);
    if (result != SQLITE_OK) Fail(database, path);
    sqlite3_busy_timeout(database, 5000);
    // No fsync: the file exists only during the test.
    sqlite3_exec(database, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    return handle;
}

QStringList CurrentRow(sqlite3_stmt* statement) {
    QStringList row;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        row.append(text == nullptr ? QString() : QString::fromUtf8(text, sqlite3_column_bytes(statement, column)));
        if (text != nullptr && row.last().isNull()) row.last() = u""_s;
    }
    return row;
}

/// The installation that is copied for these options.
QString Template(const SampleOptions& options) {
    static QTemporaryDir workshop;
    static std::map<std::tuple<int, bool, int>, QString> made;
    QString& root = made[{options.staff, options.mdb, options.installKind}];
    if (!root.isEmpty()) return root;
    setup::InstallationRequest request;
    request.folder = workshop.filePath(QString::number(made.size()));
    request.staff = options.staff;
    request.kind = options.mdb ? FileKind::Mdb : FileKind::Accdb;
    request.installKind = options.installKind;
    return root = setup::MakeInstallation(request);
}

void CopyTree(const QString& from, const QString& to) {
    QDir().mkpath(to);
    for (const QFileInfo& entry : QDir(from).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
        const QString target = to + u'/' + entry.fileName();
        if (entry.isDir())
            CopyTree(entry.filePath(), target);
        else if (!QFile::copy(entry.filePath(), target))
            throw std::runtime_error("cannot copy to " + target.toStdString());
    }
    const platform::FileRights rights = platform::RightsOf(from).value();
    if (!platform::SetRights(to, rights.group, rights.mode))
        throw std::runtime_error("cannot set the rights of " + to.toStdString());
}

}  // namespace

void SampleFile::Execute(const QString& sql) const {
    const Handle database = OpenFile(path_);
    if (sqlite3_exec(database.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail(database.get(), sql);
}

QList<QStringList> SampleFile::Rows(const QString& sql) const {
    const Handle database = OpenFile(path_);
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(database.get(), sql.toUtf8().constData(), -1, &raw, nullptr) != SQLITE_OK)
        Fail(database.get(), sql);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, sqlite3_finalize);
    QList<QStringList> rows;
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(raw)) == SQLITE_ROW) rows.append(CurrentRow(raw));
    if (result != SQLITE_DONE) Fail(database.get(), sql);
    return rows;
}

QString SampleFile::Value(const QString& sql) const {
    const QList<QStringList> rows = Rows(sql);
    return rows.isEmpty() ? QString() : rows.first().first();
}

SampleInstallation::SampleInstallation(const SampleOptions& options) : root_(folder_.filePath(u"suite"_s)) {
    CopyTree(Template(options), root_);
    const QString suffix = options.mdb ? u".mdb"_s : u".accdb"_s;
    general_ = SampleFile(root_ + u"/data/gnrdb"_s + suffix);
    configuration_ = SampleFile(root_ + u"/conf/usrcnfg"_s + suffix);
    report_ = SampleFile(root_ + u"/report/repdb"_s + suffix);
    forms_ = SampleFile(root_ + u"/report/repfrmdb"_s + suffix);
    SetDefinition(u"データソース名"_s, general_.Path());
    forms_.Execute(u"UPDATE リンクテーブル SET 接続 = "_s + SqlLiteral(u";DATABASE="_s + report_.Path()));
}

void SampleInstallation::SetDefinition(const QString& column, const QString& value) const {
    configuration_.Execute(
        u"UPDATE データベース定義 SET \"%1\" = %2 WHERE 情報種類 = 'GNR'"_s.arg(column, SqlLiteral(value)));
}

void SampleInstallation::SetEnvironment(const QString& column, const QString& value) const {
    configuration_.Execute(
        u"UPDATE 動作環境定義 SET \"%1\" = %2 WHERE 動作環境定義ID = '001'"_s.arg(column, SqlLiteral(value)));
}

void SampleInstallation::ClearStaff() const { general_.Execute(u"DELETE FROM M担当者"_s); }

void SampleInstallation::ReplaceStaff(int count) const {
    ClearStaff();
    general_.Execute(
        u"WITH RECURSIVE n(i) AS (SELECT 1 WHERE %1 > 0 UNION ALL SELECT i + 1 FROM n WHERE i < %1)"
        u" INSERT INTO M担当者 (コード, 氏名, カナ, 性別区分, 在籍区分, 社員区分)"
        u" SELECT printf('%05d', i), '氏名' || i, 'ｼﾒｲ' || i, '0', '0', '0' FROM n"_s.replace(u"%1"_s,
                                                                                              QString::number(count)));
}

void SampleInstallation::AddStaff(const QString& code, const QHash<QString, QString>& columns) const {
    QHash<QString, QString> row{{u"コード"_s, code},     {u"性別区分"_s, u"0"_s},       {u"在籍区分"_s, u"0"_s},
                                {u"社員区分"_s, u"0"_s}, {u"住所A"_s, u"東京都港区"_s}, {u"住所B"_s, u"新橋１－１"_s},
                                {u"住所C"_s, u""_s}};
    row.insert(columns);
    QStringList names, values;
    for (auto column = row.cbegin(); column != row.cend(); ++column) {
        names.append(u'"' + column.key() + u'"');
        values.append(SqlLiteral(column.value()));
    }
    general_.Execute(u"INSERT INTO M担当者 ("_s + names.join(u',') + u") VALUES ("_s + values.join(u',') + u')');
}

QStringList SampleInstallation::HistoryTexts() const {
    QStringList texts;
    for (const QStringList& row : configuration_.Rows(u"SELECT 摘要 FROM プログラム稼動履歴 ORDER BY rowid"_s))
        texts.append(row.first());
    return texts;
}

QString SqlLiteral(const QString& value) {
    if (value.isNull()) return u"NULL"_s;
    QString quoted = value;
    return u'\'' + quoted.replace(u'\'', u"''"_s) + u'\'';
}
