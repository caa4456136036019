#include "inquiry/LoadedStaff.h"

#include <QStringBuilder>
#include <algorithm>

#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/StaffColumns.h"
#include "platform/Services.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

namespace {
using enum StaffText;

const QString kViewedProgram = u"要員台帳更新"_s;

bool IsDigits(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
}

/// "yyyymmdd hhnnss" to "yyyy/mm/dd hh:nn:ss", by position without validation.
QString StampForDisplay(const QString& stamp) {
    const QStringView s(stamp);
    const auto cut = [s](qsizetype from, qsizetype count) { return from < s.size() ? s.mid(from, count) : s.left(0); };
    return cut(0, 4) % u'/' % cut(4, 2) % u'/' % cut(6, 2) % u' ' % cut(9, 2) % u':' % cut(11, 2) % u':' % cut(13, 2);
}

/// The date that a field of the screen belongs to.
const StaffDate* DateOf(StaffText field) {
    const auto found = std::find_if(kStaffDates.begin(), kStaffDates.end(), [field](const StaffDate& date) {
        return field == date.年号 || field == date.年 || field == date.月 || field == date.日;
    });
    return found == kStaffDates.end() ? nullptr : &*found;
}
}  // namespace

int GetLastViewKind(const QString& 閲覧情報, const QString& 伝票事業所コード, const QString& 伝票番号基準日付,
                    const QString& 伝票No, const QString& キー項目) {
    const QString& launcher = Globals().Staff.LaunchingStaffCode;
    if (launcher.isEmpty()) return -2;
    const QString sql =
        u"SELECT TOP 1 [T閲覧].[閲覧日付],[T閲覧].[閲覧時刻],[T閲覧].[閲覧区分] FROM [T閲覧]"
        " WHERE [T閲覧].[担当者コード] = '"_s %
        launcher % u"' AND [T閲覧].[閲覧情報] = '" % 閲覧情報 % u"' AND [T閲覧].[伝票事業所コード] = '" %
        伝票事業所コード % u"' AND [T閲覧].[伝票番号基準日付] = '" % 伝票番号基準日付 % u"' AND [T閲覧].[伝票No] = '" %
        伝票No % u"' AND [T閲覧].[キー項目] = '" % キー項目 %
        u"' ORDER BY [T閲覧].[閲覧日付] DESC, [T閲覧].[閲覧時刻] DESC";
    database::Recordset record;
    const bool found = OpenRecordset(record, sql);
    const int kind = found ? NumericValue(record[u"閲覧区分"].TextOr(QString())) : -1;
    CloseQuietly(record);
    return kind;
}

StaffLookups StaffLookups::Read() {
    StaffLookups lookups;
    lookups.eras_ = EraCalendar::Read();
    lookups.ReadViews();
    return lookups;
}

void StaffLookups::ReadViews() {
    constexpr int kMostViews = 500'000;
    const QString& launcher = Globals().Staff.LaunchingStaffCode;
    if (launcher.isEmpty() || !IsDigits(launcher)) return;
    const QString sql =
        u"SELECT TOP %1 [T閲覧].[キー項目],[T閲覧].[閲覧区分] FROM [T閲覧] WHERE [T閲覧].[担当者コード] = '%2'"
        u" AND [T閲覧].[閲覧情報] = '%3' AND [T閲覧].[伝票事業所コード] = ''"
        u" AND [T閲覧].[伝票番号基準日付] = '' AND [T閲覧].[伝票No] = ''"
        u" ORDER BY [T閲覧].[閲覧日付] DESC, [T閲覧].[閲覧時刻] DESC"_s.arg(QString::number(kMostViews + 1), launcher,
                                                                            kViewedProgram);
    try {
        database::Recordset record;
        record.Open(sql, Globals().MainConnection);
        coversViews_ = record.RecordCount() <= kMostViews;
        for (; coversViews_ && !record.AtEOF(); record.MoveNext()) {
            const QString code = record[u"キー項目"].TextOr(QString());
            // A server may take other characters for equal that differ here.
            coversViews_ = IsDigits(code);
            if (!views_.contains(code))
                views_.insert(code, static_cast<qint16>(NumericValue(record[u"閲覧区分"].TextOr(QString()))));
        }
    } catch (const database::DatabaseError&) {
        coversViews_ = false;
    }
}

qint16 StaffLookups::LastViewKind(const QString& staffCode) const {
    if (coversViews_ && IsDigits(staffCode)) return views_.value(staffCode, -1);
    const QString empty;
    return static_cast<qint16>(GetLastViewKind(kViewedProgram, empty, empty, empty, staffCode));
}

void LoadedStaff::FindColumns() {
    if (columnsFound_) return;
    for (const StaffColumn& entry : kStaffColumns)
        if (!entry.column.isEmpty()) columns_[static_cast<size_t>(entry.field)] = rows_.ColumnOf(entry.column);
    columnsFound_ = true;
}

void LoadedStaff::Prepare(int row) {
    FindColumns();
    const auto isNull = [&](StaffText field) { return rows_.IsNull(row, columns_[static_cast<size_t>(field)]); };
    if (isNull(住所B) && !isNull(住所A))
        throw platform::RuntimeError(platform::kInvalidUseOfNull, u"Null の使い方が不正です。"_s);
    if (!isNull(暗証番号)) platform::Services().pins->Check(Stored(暗証番号, row));
    for (const StaffDate& date : kStaffDates) PrepareDate(row, date.stored);
}

void LoadedStaff::PrepareDate(int row, StaffText stored) {
    const int column = columns_[static_cast<size_t>(stored)];
    if (rows_.IsNull(row, column)) return;
    const QByteArrayView bytes = rows_.Utf8(row, column);
    if (bytes.isEmpty() || lookups_.Eras().Covers(bytes)) return;
    const QString date = rows_.Text(row, column);
    const QString longForm = EraDateLong(date);
    eraTexts_.insert(date, {.longForm = longForm, .shortForm = EraDateShort(date)});
}

qint16 LoadedStaff::LastViewKind(int row) const { return lookups_.LastViewKind(Stored(担当者コード, row)); }

QString LoadedStaff::Stored(StaffText field, int row) const {
    return rows_.Text(row, columns_[static_cast<size_t>(field)]);
}

QString LoadedStaff::Text(StaffText field, int row) const {
    const StaffColumn& entry = ColumnOf(field);
    switch (entry.source) {
        case StaffSource::Column:
            if (!entry.guard.isEmpty() && rows_.IsNull(row, columns_[static_cast<size_t>(住所A)])) return {};
            return Stored(field, row);
        case StaffSource::Pin:
            return platform::Services().pins->ClearText(Stored(field, row));
        case StaffSource::Stamp: {
            const QString stamp = Stored(field, row);
            return stamp.isEmpty() ? QString() : StampForDisplay(stamp);
        }
        case StaffSource::Derived:
            break;
    }
    return field == 行No ? FormatByMask(firstNumber_ + row, u"#####0"_s) : DatePart(field, row);
}

LoadedStaff::EraTexts LoadedStaff::TextsOf(const QString& date) const {
    if (const auto found = eraTexts_.constFind(date); found != eraTexts_.cend()) return *found;
    return {.longForm = lookups_.Eras().Long(date), .shortForm = lookups_.Eras().Short(date)};
}

// Both era texts are cut by position. For an era without a start date, 年号 and 年 thus contain the two halves of the
// western year.
QString LoadedStaff::DatePart(StaffText field, int row) const {
    const StaffDate* date = DateOf(field);
    const QString stored = date == nullptr ? QString() : Stored(date->stored, row);
    if (stored.isEmpty()) return {};
    if (field == date->月) return stored.mid(4, 2);
    if (field == date->日) return stored.mid(6, 2);
    const EraTexts texts = TextsOf(stored);
    return (field == date->年号 ? texts.longForm : texts.shortForm).left(2);
}
