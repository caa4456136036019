// Part of ReportData.h: the work tables of mail pieces.

#include <QStringBuilder>
#include <array>
#include <utility>

#include "access/CompanyInformation.h"
#include "data/Recordsets.h"
#include "globals/ProgramGlobals.h"
#include "inquiry/StaffColumns.h"
#include "output/ReportData.h"
#include "output/ReportDatabase.h"
#include "platform/FileSystem.h"

using namespace Qt::StringLiterals;

namespace {

const QString kPerson = u"様"_s;

/// Runs one statement; a failure does not stop the next one.
template <typename Callback>
void IgnoreErrors(Callback callback) {
    try {
        callback();
    } catch (const platform::RuntimeError&) {
        return;
    }
}

enum class OnError { Ignore, Throw };

template <typename Callback>
void Run(OnError onError, Callback callback) {
    if (onError == OnError::Ignore)
        IgnoreErrors(callback);
    else
        callback();
}

void WriteIgnoringErrors(database::Recordset& record, QStringView column, const QString& value) {
    IgnoreErrors([&] { record.Write(column, value); });
}

constexpr auto kAddress = std::to_array({StaffText::郵便番号, StaffText::住所A, StaffText::住所B, StaffText::住所C});

/// Writes the recipient; `side` is the prefix of the column names. Companies would be addressed by 名称A and 御中. A
/// person's honorific is written twice, to its own column and after the name; each template prints one of them.
void WriteRecipient(database::Recordset& record, const QString& side, int row, OnError onError) {
    const StaffRowStore& rows = Globals().Rows;
    const QString name = side + u"名称B"_s;
    const auto write = [&](const QString& column, const QString& value) {
        Run(onError, [&] { record.Write(column, value); });
    };
    write(side + u"コード"_s, rows.Text(StaffText::担当者コード, row));
    write(side + u"名称A"_s, QString());
    write(name, rows.Text(StaffText::担当者名, row));
    for (const StaffText field : kAddress) write(side % ColumnOf(field).column, rows.Text(field, row));
    write(side + u"御中"_s, kPerson);
    Run(onError, [&] { record.Write(name, record[name].Text() + u' ' + kPerson); });
}

struct OfficeColumn {
    QStringView column;
    QString OfficeRecord::*field;
};

constexpr std::array kSenderOffice = {
    OfficeColumn{u"ユーザ郵便番号", &OfficeRecord::郵便番号}, OfficeColumn{u"ユーザ住所A", &OfficeRecord::住所A},
    OfficeColumn{u"ユーザ住所B", &OfficeRecord::住所B},       OfficeColumn{u"ユーザ住所C", &OfficeRecord::住所C},
    OfficeColumn{u"ユーザ電話", &OfficeRecord::電話},         OfficeColumn{u"ユーザFAX", &OfficeRecord::FAX},
};

constexpr std::array kSecondSender = {
    OfficeColumn{u"事業所名称", &OfficeRecord::名称},   OfficeColumn{u"事業所郵便番号", &OfficeRecord::郵便番号},
    OfficeColumn{u"事業所住所A", &OfficeRecord::住所A}, OfficeColumn{u"事業所住所B", &OfficeRecord::住所B},
    OfficeColumn{u"事業所住所C", &OfficeRecord::住所C}, OfficeColumn{u"事業所電話", &OfficeRecord::電話},
    OfficeColumn{u"事業所FAX", &OfficeRecord::FAX},
};

struct CompanyColumn {
    QStringView column;
    QString CompanyRecord::*field;
};

constexpr std::array kSenderCompany = {
    CompanyColumn{u"ユーザ名称", &CompanyRecord::名称},   CompanyColumn{u"ユーザ郵便番号", &CompanyRecord::郵便番号},
    CompanyColumn{u"ユーザ住所A", &CompanyRecord::住所A}, CompanyColumn{u"ユーザ住所B", &CompanyRecord::住所B},
    CompanyColumn{u"ユーザ住所C", &CompanyRecord::住所C}, CompanyColumn{u"ユーザ電話", &CompanyRecord::電話},
    CompanyColumn{u"ユーザFAX", &CompanyRecord::FAX},
};

template <typename Columns, typename Source>
void WriteFrom(database::Recordset& record, const Columns& columns, const Source& source) {
    for (const auto& column : columns) WriteIgnoringErrors(record, column.column, source.*column.field);
}

/// A blank picture if the company has no logo: the template's picture always needs a file.
void WriteLogo(database::Recordset& record) {
    const ProgramGlobals& globals = Globals();
    const QString column = u"ユーザ会社ロゴfile"_s, separator = platform::kPathSeparator;
    WriteIgnoringErrors(record, column, globals.Layout.ProgramFolder + separator + u"空白.jpg"_s);
    if (globals.Company.会社ロゴfile.isEmpty()) return;
    WriteIgnoringErrors(
        record, column,
        globals.Company.写真フォルダ + separator + u"会社ロゴ"_s + separator + globals.Company.会社ロゴfile);
}

/// With two offices both are printed on every envelope; with more, the second sender is printed for branch offices
/// only.
void WriteSecondSender(database::Recordset& record) {
    const ProgramGlobals& globals = Globals();
    const QString& scope = globals.ScopeOfficeCode;
    if (scope != u"000"_s && scope != u"001"_s && globals.OfficeCount >= 3) {
        WriteFrom(record, kSecondSender, globals.Office);
    } else if (globals.OfficeCount == 2) {
        IgnoreErrors([] { LoadOutputOffice(u"002"_s); });
        WriteFrom(record, kSecondSender, globals.OutputOffice);
    }
}

void WriteEnvelope(database::Recordset& record, int row) {
    WriteRecipient(record, QString(), row, OnError::Ignore);
    WriteIgnoringErrors(record, u"ユーザ名称", Globals().Company.名称);
    WriteLogo(record);
    IgnoreErrors([] { LoadOutputOffice(u"001"_s); });
    WriteFrom(record, kSenderOffice, Globals().OutputOffice);
    WriteSecondSender(record);
}

/// The sender is the company; on an envelope it is office "001" with the company's name.
void WritePostcard(database::Recordset& record, int row) {
    WriteRecipient(record, QString(), row, OnError::Ignore);
    WriteFrom(record, kSenderCompany, Globals().Company);
}

bool BuildPieces(const QString& table, void (*writePiece)(database::Recordset& record, int row)) {
    database::Recordset& record = Globals().ReportRecordset;
    OpenEmptiedWorkTable(table);
    ForEachMarkedRow([&record, writePiece](int row) {
        IgnoreErrors([&record] { record.AddNew(); });
        writePiece(record, row);
        IgnoreErrors([&record] { record.Update(); });
    });
    bool hasRows = false;
    IgnoreErrors([&] { record.Close(); });
    IgnoreErrors([&] { hasRows = WorkTableHasRows(table); });
    record = database::Recordset();
    return hasRows;
}

void NumberRecord(database::Recordset& record, int number) {
    record.Write(u"行番号", QString::number(number).rightJustified(6, u'0'));
    record.Update();
}

constexpr int kRecordsOfSheet = 6;

/// Adds two labels per record, in the last one only the left label if their count is odd. Returns the record count.
int AddLabels(database::Recordset& record) {
    int counter = -1;
    ForEachMarkedRow([&](int row) {
        ++counter;
        const bool left = counter % 2 == 0;
        if (left) record.AddNew();
        WriteRecipient(record, left ? u"A列"_s : u"B列"_s, row, OnError::Throw);
        if (!left) NumberRecord(record, (counter + 1) / 2);
    });
    const bool halfFull = counter % 2 == 0;
    const int count = (counter + (halfFull ? 2 : 1)) / 2;
    if (halfFull) NumberRecord(record, count);
    return count;
}

/// Pads the first sheet with empty records; further sheets are not padded, and an empty list stays empty.
void PadSheet(database::Recordset& record, int count) {
    if (count % kRecordsOfSheet == 0) return;
    for (int number = count + 1; number <= kRecordsOfSheet; ++number) {
        record.AddNew();
        NumberRecord(record, number);
    }
}

}  // namespace

bool BuildEnvelopeData() { return BuildPieces(Globals().ReportName + u"封筒"_s, &WriteEnvelope); }

bool BuildPostcardData() { return BuildPieces(Globals().ReportName + u"はがき"_s, &WritePostcard); }

bool BuildLabelData() {
    const QString table = Globals().ReportName + u"宛名ラベル"_s;
    database::Recordset& record = Globals().ReportRecordset;
    OpenEmptiedWorkTable(table);
    PadSheet(record, AddLabels(record));
    CloseQuietly(record);
    return WorkTableHasRows(table);
}
