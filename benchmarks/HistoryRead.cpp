// `suite-setup history` over 100,000 rows of 200 users, as text; compared with a loop that reads the same rows with the
// engine's C API and writes them unsorted.

#include <sqlite3.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include "PairedRuns.h"
#include "setup/commands/Verbs.h"
#include "setup/storage/Installer.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 100'000, kUsers = 200, kRowsOfRun = 5;
constexpr double kMostMilliseconds = 1000;

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

void Run(sqlite3* database, const QByteArray& sql) {
    if (sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(database));
}

QString TextOf(int row) {
    if (row == 0) return u"開始 000"_s;
    if (row == kRowsOfRun - 1) return u"終了"_s;
    return u"出力終了 SELECT M担当者.*, M事業所.名称 as 事業所名 FROM M担当者 WHERE M担当者.コード <> '''''''' AND "
           u"M担当者.氏名 LIKE ''''%山%'''' ORDER BY M担当者.事業所コード, M担当者.コード"_s;
}

/// Runs of all users, interleaved.
void Fill(const QString& file) {
    sqlite3* database = nullptr;
    if (sqlite3_open(file.toUtf8().constData(), &database) != SQLITE_OK) Fail("cannot open the configuration");
    Run(database, "BEGIN");
    for (int i = 0; i < kRows; ++i) {
        const int row = i / kUsers % kRowsOfRun;
        Run(database,
            u"INSERT INTO プログラム稼動履歴 VALUES ('2026%1 %2', '要員名簿照会', '%3', '%4', '000', '00001',"
            u" 'user%5')"_s.arg(1001 + i / 10000)
                .arg(90000 + i % 10000 / 10, 6, 10, QChar(u'0'))
                .arg(row + 1, 12, 10, QChar(u'0'))
                .arg(TextOf(row))
                .arg(i % kUsers)
                .toUtf8());
    }
    Run(database, "COMMIT");
    sqlite3_close(database);
}

void ReadByHand(const QString& file) {
    sqlite3* database = nullptr;
    sqlite3_stmt* rows = nullptr;
    if (sqlite3_open_v2(file.toUtf8().constData(), &database, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK ||
        sqlite3_prepare_v2(database, "SELECT * FROM プログラム稼動履歴 ORDER BY rowid", -1, &rows, nullptr) !=
            SQLITE_OK)
        Fail(sqlite3_errmsg(database));
    std::FILE* out = std::fopen("/dev/null", "w");
    while (sqlite3_step(rows) == SQLITE_ROW) {
        for (int column = 0; column < sqlite3_column_count(rows); ++column)
            std::fprintf(out, "%s  ", reinterpret_cast<const char*>(sqlite3_column_text(rows, column)));
        std::fputc('\n', out);
    }
    std::fclose(out);
    sqlite3_finalize(rows);
    sqlite3_close(database);
}

void ReadByTool(const QString& root) {
    QFile file(u"/dev/null"_s);
    if (!file.open(QIODevice::WriteOnly)) Fail("cannot open /dev/null");
    QTextStream out(&file), err(stderr);
    if (setup::RunSetup({u"history"_s, root}, {out, err, {}, [] { return false; }}) != 0) Fail("history failed");
}

}  // namespace

int main() {
    const QTemporaryDir folder;
    const QString root =
        setup::MakeInstallation({.folder = folder.filePath(u"suite"_s), .programFolder = {}, .staff = 1});
    const QString file = root + u"/conf/usrcnfg.accdb"_s;
    Fill(file);
    const auto result = PairedRuns(7).Measure(
        "history", [&] { ReadByTool(root); }, "bare loop", [&] { ReadByHand(file); });
    return result.first < kMostMilliseconds ? 0 : 1;
}
