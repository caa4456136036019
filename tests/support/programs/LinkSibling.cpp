// Fake registration program for tests of the messages between two processes. Independent of the suite's code, it
// contains the table names it needs. Installed in prgbin, it
//   - writes its process id to the file sibling.pid in its folder,
//   - takes the start message for its key from the channel (without one it exits with status 3 and no answer),
//   - runs the statements of the file sibling.sql, if there is one, on the general database,
//   - waits to be killed if the file sibling.waits exists, otherwise answers and exits.

#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

constexpr int kLockWait = 20000;        // milliseconds, busy timeout: longer than any lock of a test
constexpr unsigned kLongestLife = 120;  // seconds
constexpr std::time_t kMessageAge = 60;

[[noreturn]] void Fail(sqlite3* database) {
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(database));
    std::exit(1);
}

sqlite3* Open(const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    if (sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) Fail(database);
    sqlite3_busy_timeout(database, kLockWait);
    return database;
}

void Execute(sqlite3* database, const std::string& sql) {
    if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(database);
}

std::string Stamp(std::time_t time) {
    char text[16];
    std::strftime(text, sizeof text, "%Y%m%d %H%M%S", std::localtime(&time));
    return text;
}

std::string Quoted(const std::string& text) {
    char* quoted = sqlite3_mprintf("%Q", text.c_str());
    std::string result = quoted;
    sqlite3_free(quoted);
    return result;
}

bool TakeStartMessage(sqlite3* configuration, const std::string& key) {
    Execute(configuration,
            "DELETE FROM プログラム連携情報 WHERE 受信プログラムID = '要員台帳更新' AND 連携区分 = '00'"
            " AND 発信日時 >= " +
                Quoted(Stamp(std::time(nullptr) - kMessageAge)) + " AND 起動連携情報 = " + Quoted(key));
    return sqlite3_changes(configuration) > 0;
}

void Answer(sqlite3* configuration, const std::string& key) {
    const std::string now = Quoted(Stamp(std::time(nullptr)));
    Execute(configuration,
            "INSERT INTO プログラム連携情報 (発信日時, 発信プログラムID, 受信プログラムID, 受信期限, 連携区分,"
            " 起動連携情報, 終了連携情報, 運用事業所コード, 起動担当者コード, ユーザID) VALUES (" +
                now + ", '要員名簿照会', '要員台帳更新', " + now + ", '99', " + Quoted(key) + ", '', '', '', '')");
}

void NoteProcess(const std::filesystem::path& folder) {
    std::ofstream(folder / "sibling.part") << getpid();
    std::filesystem::rename(folder / "sibling.part", folder / "sibling.pid");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    alarm(kLongestLife);  // watchdog, in case the test dies
    const std::filesystem::path folder = std::filesystem::path(argv[0]).parent_path();
    const std::filesystem::path root = folder.parent_path();
    sqlite3* configuration = Open(root / "conf" / "usrcnfg.accdb");
    const bool found = TakeStartMessage(configuration, argv[1]);
    NoteProcess(folder);
    if (!found) return 3;
    std::stringstream work;
    work << std::ifstream(folder / "sibling.sql").rdbuf();
    if (!work.str().empty()) Execute(Open(root / "data" / "gnrdb.accdb"), work.str());
    while (std::filesystem::exists(folder / "sibling.waits")) pause();
    Answer(configuration, argv[1]);
    return 0;
}
