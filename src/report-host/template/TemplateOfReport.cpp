#include "report-host/template/TemplateOfReport.h"

#include "database/sqlite/OpenSqlite.h"
#include "platform/RuntimeError.h"
#include "report-host/layout/SqliteQuery.h"
#include "report-host/template/TemplateCheck.h"

using namespace Qt::StringLiterals;

namespace report {

QString TableOfForm(const FormDefinition& form, const QString& report) {
    return form.table.isEmpty() ? report : form.table;
}

database::SqliteDatabase OpenLinked(const LinkedTable& link) {
    database::ConnectionRequest request;
    request.dataSource = link.DatabaseFile();
    request.mode = database::ConnectMode::Read;
    return database::OpenSqliteFile(request);
}

QList<TemplateError> MistakesOf(const FormsFile& file, const QString& report, const QString& text) {
    ParsedForm parsed = ParseForm(text);
    const QString table = TableOfForm(parsed.form, report);
    const std::optional<LinkedTable> link = file.Link(table);
    if (!link) {
        parsed.mistakes.append({0, u"リンクテーブル「%1」がありません。"_s.arg(table)});
        return parsed.mistakes;
    }
    try {
        const database::SqliteDatabase source = OpenLinked(*link);
        const QStringList existing = ColumnsOf(source.get(), link->source);
        if (existing.isEmpty())
            parsed.mistakes.append(
                {0, u"リンクテーブル「%1」の接続先に表「%2」がありません。"_s.arg(table, link->source)});
        else
            NeededColumns(parsed.form, existing, parsed.mistakes);
    } catch (const database::DatabaseError& error) {
        parsed.mistakes.append(
            {0, u"リンクテーブル「%1」を読めません。%2"_s.arg(table, platform::TextForPeople(error))});
    }
    return parsed.mistakes;
}

}  // namespace report
