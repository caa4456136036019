// Part of Sample.h: view log and personal rights.
#include "setup/sample/Sample.h"
#include "setup/sample/SampleData.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

// Far from the streams of the staff, which are numbered from 0.
constexpr quint64 kViewStream = quint64{1} << 32;
constexpr quint64 kRightsStream = quint64{2} << 32;

QString TwoDigits(int value) { return QString::number(value).rightJustified(2, u'0'); }

void AddView(TableWriter& row, const QString& viewer, const QString& seen, SampleRandom& random) {
    QString day = QString::number(kReferenceYear), time;
    day += TwoDigits(random.Between(4, 9));
    day += TwoDigits(random.Between(1, 28));
    time += TwoDigits(random.Between(8, 18));
    time += TwoDigits(random.Below(60));
    time += TwoDigits(random.Below(60));
    row.Set(u"担当者コード"_s, viewer)
        .Set(u"閲覧情報"_s, u"要員台帳更新"_s)
        .Set(u"伝票事業所コード"_s, u""_s)
        .Set(u"伝票番号基準日付"_s, u""_s)
        .Set(u"伝票No"_s, u""_s)
        .Set(u"キー項目"_s, seen)
        .Set(u"閲覧日付"_s, day)
        .Set(u"閲覧時刻"_s, time)
        .Set(u"閲覧区分"_s, QString::number(random.Below(2)));
    row.Add();
}

}  // namespace

void WriteViewLog(DatabaseFileWriter& store, int count, quint64 seed) {
    TableWriter row(store, u"T閲覧"_s);
    for (int place = 0; place < count; ++place) {
        SampleRandom random(seed, kViewStream + static_cast<quint64>(place));
        const QString seen = StaffCode(place);
        // Of two views of the same person the later one counts.
        if (random.Percent(33))
            for (int looks = random.Between(1, 2); looks > 0; --looks)
                AddView(row, QString::fromUtf16(kLaunchingStaff), seen, random);
        if (random.Percent(10)) AddView(row, StaffCode(random.Below(qMin(count, 20))), seen, random);
    }
}

void WritePersonalRights(DatabaseFileWriter& store, int count, quint64 seed) {
    TableWriter row(store, u"担当者別操作許可プログラム"_s);
    for (int place = 5; place < count; place += 25) {
        SampleRandom random(seed, kRightsStream + static_cast<quint64>(place));
        const auto right = [&] { return random.Percent(30) ? u"|1"_s : u"|0"_s; };
        QString line = StaffCode(place) + u"|販路推進データ管理|要員名簿照会"_s;
        for (int number = 0; number < 8; ++number) line += right();
        row.AddLines(
            u"担当者コード 業務メニュ プログラムID 操作許可 入力許可 修正許可 削除許可 印刷許可 プレビュ許可"
            u" テキスト出力許可 イメージ出力許可"_s,
            {line});
    }
}

}  // namespace setup
