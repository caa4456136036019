// Part of Sample.h: people with different rights.
#include <array>

#include "database/sqlite/SqliteQuery.h"
#include "platform/SealedPins.h"
#include "setup/TerminalTable.h"
#include "setup/sample/Sample.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

struct TrialPerson {
    const char16_t* office;
    const char16_t* classRights;      // for program classes 0 to 9
    const char16_t* operationRights;  // for operations 0 to 7
    const char16_t* remark;
};

// "1" forbids.
constexpr std::array kPeople = {
    TrialPerson{u"000", u"0000000000", u"00000000", u"すべて許可"},
    TrialPerson{u"000", u"0000000000", u"00001000", u"印刷だけ不許可"},
    TrialPerson{u"000", u"1110111111", u"00000000", u"処理分類 3 のプログラムだけ許可"},
    TrialPerson{u"001", u"0000000000", u"00000000", u"本社の要員（運用事業所コードが 001 のときだけ）"},
};

constexpr const char16_t* kOperationRights[] = {u"操作許可", u"入力許可",     u"修正許可",         u"削除許可",
                                                u"印刷許可", u"プレビュ許可", u"テキスト出力許可", u"イメージ出力許可"};

QString Line(const QString& code, const QString& login, const QString& pin, const QString& remark) {
    return PadRight(code, 8) + PadRight(login, 20) + PadRight(pin, 10) + remark;
}

}  // namespace

void SetTrialRights(TableWriter& row, int place) {
    if (place >= static_cast<int>(kPeople.size())) return;
    const TrialPerson& person = kPeople[static_cast<size_t>(place)];
    const QString classes = QString::fromUtf16(person.classRights);
    const QString operations = QString::fromUtf16(person.operationRights);
    for (int digit = 0; digit < classes.size(); ++digit)
        row.Set(u"処理分類%1操作許可"_s.arg(digit), classes.mid(digit, 1));
    for (int number = 0; number < operations.size(); ++number)
        row.Set(QString::fromUtf16(kOperationRights[number]), operations.mid(number, 1));
    row.Set(u"ログインID"_s, u"trial"_s + QString::number(place + 1))
        .Set(u"事業所コード"_s, QString::fromUtf16(person.office))
        .Set(u"在籍区分"_s, u"0"_s)
        .Set(u"退社日付"_s, u""_s);
}

QStringList TrialPeople(const QString& generalFile, const QString& keyFile) {
    database::ConnectionRequest request;
    request.dataSource = generalFile;
    request.mode = database::ConnectMode::Read;
    const database::SqliteDatabase database = database::OpenSqliteFile(request);
    const std::optional<platform::PinKey> key = platform::PinKey::Read(keyFile);
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(database.get(), "SELECT コード, ログインID, 暗証番号 FROM M担当者 ORDER BY コード LIMIT ?",
                           -1, &raw, nullptr) != SQLITE_OK)
        throw database::SqliteFailure(database.get());
    const database::SqliteStatement rows(raw);
    sqlite3_bind_int(raw, 1, static_cast<int>(kPeople.size()));
    QStringList lines{Line(u"コード"_s, u"ログインID"_s, u"暗証番号"_s, u"権限"_s)};
    for (size_t place = 0; database::NextRow(raw); ++place) {
        const std::optional<QString> pin = key ? platform::OpenPin(database::ColumnText(raw, 2), *key) : std::nullopt;
        lines << Line(database::ColumnText(raw, 0), database::ColumnText(raw, 1), pin.value_or(QString()),
                      QString::fromUtf16(kPeople[place].remark));
    }
    return lines;
}

}  // namespace setup
