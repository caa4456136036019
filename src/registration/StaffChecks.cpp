#include "registration/StaffChecks.h"

#include <QDate>
#include <algorithm>

#include "data/Recordsets.h"
#include "text/CodePage932.h"

using namespace Qt::StringLiterals;

namespace {

QList<MasterEntry> LoadMaster(const StaffItem& item) {
    const QString key = item.key.toString();
    const QString sql = u"SELECT "_s + key + u", 名称 FROM "_s + item.master.toString() + u" ORDER BY "_s + key;
    QList<MasterEntry> entries;
    database::Recordset rows;
    if (OpenRecordset(rows, sql)) {
        for (; !rows.AtEOF(); rows.MoveNext())
            entries.append({rows[item.key].TextOr(QString()), rows[u"名称"].TextOr(QString())});
    }
    CloseQuietly(rows);
    return entries;
}

/// The first character without an encoding in code page 932, which the suite's programs use to exchange texts.
QString UnknownCharacter(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype units = text.at(i).isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        if (Encode932(QStringView(text).mid(i, units)).lost > 0) return text.mid(i, units);
    }
    return {};
}

QString LengthMessage(const StaffItem& item) {
    const QString half = QString::number(item.bytes), full = QString::number(item.bytes / 2);
    if (item.kind == StaffItemKind::Text)
        return u"%1は全角%2文字(半角%3文字)以内で入力してください。"_s.arg(item.caption, full, half);
    return u"%1は半角%2文字以内で入力してください。"_s.arg(item.caption, half);
}

QString CheckText(const StaffItem& item, const QString& value) {
    const QString unknown = UnknownCharacter(value);
    if (!unknown.isEmpty()) return u"%1に使用できない文字「%2」があります。"_s.arg(item.caption, unknown);
    if (ByteLength932(value) > item.bytes) return LengthMessage(item);
    return {};
}

/// The error message for a value, empty if it is valid.
QString CheckValue(const StaffItem& item, const QString& value, const QList<MasterEntry>& master) {
    if (value.isEmpty()) return item.required ? u"%1を入力してください。"_s.arg(item.caption) : QString();
    if (item.kind == StaffItemKind::Code && IndexOfCode(master, value) < 0)
        return u"%1 %2 は登録されていません。"_s.arg(item.caption, value);
    if (item.kind == StaffItemKind::Date && !IsDate(value))
        return u"%1 %2 は正しい日付ではありません。"_s.arg(item.caption, value);
    return CheckText(item, value);
}

}  // namespace

StaffMasters LoadStaffMasters() {
    StaffMasters masters;
    for (size_t i = 0; i < kStaffItemCount; ++i)
        if (!kStaffItems[i].master.isEmpty()) masters[i] = LoadMaster(kStaffItems[i]);
    return masters;
}

int IndexOfCode(const QList<MasterEntry>& master, const QString& code) {
    const auto found =
        std::find_if(master.begin(), master.end(), [&](const MasterEntry& entry) { return entry.code == code; });
    return found == master.end() ? -1 : static_cast<int>(found - master.begin());
}

bool IsDate(const QString& text) {
    const bool digits = std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return text.size() == 8 && digits &&
           QDate::isValid(text.left(4).toInt(), text.mid(4, 2).toInt(), text.right(2).toInt()) &&
           text.left(4) != u"0000"_s;
}

std::optional<ValidationError> FindValidationError(const StaffValues& entered, const StaffValues& before,
                                                   const StaffMasters& masters) {
    for (size_t i = 0; i < kStaffItemCount; ++i) {
        if (entered[i] == before[i]) continue;
        const QString message = CheckValue(kStaffItems[i], entered[i], masters[i]);
        if (!message.isEmpty()) return ValidationError{.item = i, .message = message};
    }
    return std::nullopt;
}
